// SPDX-License-Identifier: MIT
#include "tests/visualization/highlight/ColouredText.h"
#include "tests/visualization/highlight/TestedHighlighter.h"
#include "visualization/highlight/CSyntaxHighlighter.h"
#include "visualization/highlight/FortranSyntaxHighlighter.h"

#include <QElapsedTimer>
#include <QTextCursor>
#include <QtTest>

using Kova::GUI::CSyntaxHighlighter;
using Kova::GUI::FortranSyntaxHighlighter;

namespace {

/// Far above what is needed, far below what anything quadratic would take.
constexpr qint64 mostMilliseconds = 5000;
constexpr int longLine = 100000;

QString repeated(const QString& piece) {
    return piece.repeated(longLine / piece.length());
}

template <class Highlighter, class... Arguments>
void compareLongLine(const QString& text, const PlainWalk& walk, const Arguments&... arguments) {
    QElapsedTimer timer;
    timer.start();
    const ColouredText<Highlighter> coloured(text, arguments...);
    const qint64 taken = timer.elapsed();
    QVERIFY2(taken < mostMilliseconds, qPrintable(QString("%1 ms").arg(taken)));
    QCOMPARE(firstDifference(coloured, walk), -1);
}

} // namespace

class HighlighterBadInputTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void emptyDocument() {
        const ColouredText<CSyntaxHighlighter> c("");
        QCOMPARE(c.letters(), QString());
        QCOMPARE(c.state(0), 0);
        const ColouredText<FortranSyntaxHighlighter> fortran("");
        QCOMPARE(fortran.letters(), QString());
        QCOMPARE(fortran.state(0), 0);
    }

    void noDocument() {
        CSyntaxHighlighter c(nullptr);
        c.rehighlight();
        FortranSyntaxHighlighter fortran(nullptr);
        fortran.rehighlight();
        QTextDocument document("if if");
        c.setDocument(&document);
        c.rehighlight();
        QCOMPARE(lettersOf(formatsOf(document.firstBlock())), QString("kk.kk"));
        c.setDocument(nullptr);
        QCOMPARE(lettersOf(formatsOf(document.firstBlock())), QString("....."));
    }

    void longLines_data() {
        QTest::addColumn<QString>("text");
        for (const char* piece : {"a", " ", "int ", "int", "a(", "\"", "'", "\"a", "/*", "*/", "/*/", "//", "/* */",
                                  "(", "()", "!", "if (a[i] == 'x') f(b, \"s\"); ", "IF(A.EQ.1)B='X' ", "_"})
            QTest::newRow(piece) << repeated(piece);
        QTest::newRow("a call at the end") << repeated("a") + '(';
        QTest::newRow("lone surrogates") << QString(longLine, QChar(0xD801));
    }

    void longLines() {
        QFETCH(QString, text);
        compareLongLine<CSyntaxHighlighter>(text, plainC());
        compareLongLine<FortranSyntaxHighlighter>(text, plainFortran());
    }

    void commentOpenOverManyLines() {
        constexpr int lines = 10000;
        QElapsedTimer timer;
        timer.start();
        ColouredText<CSyntaxHighlighter> text("int /*" + QString("\nint a; // \"b\"\n").repeated(lines / 2));
        QCOMPARE(text.lineCount(), lines + 1);
        QCOMPARE(text.letters(0), QString("kkk.cc"));
        for (int i = 0; i < text.lineCount(); ++i) {
            QCOMPARE(text.state(i), 1);
            QCOMPARE(text.letters(i).count('c'), i == 0 ? 2 : text.line(i).length() - 1);
        }

        // Closing it colours all lines anew; so does opening it again.
        QTextCursor cursor(text.line(0));
        cursor.movePosition(QTextCursor::EndOfBlock);
        cursor.insertText("*/");
        for (int i = 0; i < text.lineCount(); ++i)
            QCOMPARE(text.state(i), 0);
        QCOMPARE(text.letters(1), QString("kkk....cccqqq"));
        cursor.deletePreviousChar();
        QCOMPARE(text.state(lines), 1);
        QVERIFY(timer.elapsed() < mostMilliseconds);
    }

    void loneSurrogates() {
        const QString high(QChar(0xD835));
        const QString low(QChar(0xDC00));
        for (const QString& text : {high, low, low + high, high + "if" + low, "if" + high + "if", high + "/*" + low,
                                    '"' + high + '"', '\'' + low + '\'', "f" + high + "(", "c" + low}) {
            QCOMPARE(firstDifference(ColouredText<CSyntaxHighlighter>(text), plainC()), -1);
            QCOMPARE(firstDifference(ColouredText<FortranSyntaxHighlighter>(text), plainFortran()), -1);
        }
        // A surrogate by itself is no letter.
        QCOMPARE(coloured<CSyntaxHighlighter>(high + "if" + low), QString(".kk."));
    }

    void searchesThatFindNothingLongEnd() {
        const QStringList endless = {"", "a*", "\\b", "$", "^", "(?=a)", "(?!b)", "x?"};
        for (const QString& pattern : endless) {
            for (const QString& text : {QString(), QString("aab a"), QString("ab ").repeated(1000)}) {
                PlainWalk rule;
                rule.rules.push_back({QRegExp(pattern), PlainWalk::quotationFormat()});
                compareLongLine<TestedHighlighter>(text, rule, rule);
                for (const QString& end : endless) {
                    PlainWalk comments;
                    comments.commentStart = QRegExp(pattern);
                    comments.commentEnd = QRegExp(end);
                    compareLongLine<TestedHighlighter>(text, comments, comments);
                }
            }
        }
    }
};

QTEST_MAIN(HighlighterBadInputTest)
#include "HighlighterBadInputTest.moc"
