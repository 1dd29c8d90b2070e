// SPDX-License-Identifier: MIT
#include "visualization/highlight/FortranSyntaxHighlighter.h"

#include "tests/visualization/highlight/ColouredText.h"
#include "tests/visualization/highlight/LanguageTables.h"

#include <QtTest>

using Kova::GUI::FortranSyntaxHighlighter;

class FortranSyntaxHighlighterTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tables() {
        QCOMPARE(fortranKeywords().size(), 153);
        compareTables<FortranSyntaxHighlighter>(fortranKeywords(), Qt::CaseInsensitive,
                                                {PlainWalk::commentFormat(), PlainWalk::quotationFormat()});
        QCOMPARE(FortranSyntaxHighlighter::staticMetaObject.className(), "Kova::GUI::FortranSyntaxHighlighter");
    }

    // Not in the first column, where a c begins a comment.
    void everyKeyword() {
        for (const QString& word : fortranKeywords()) {
            const QString expected = '.' + QString(word.length(), 'k');
            QCOMPARE(coloured<FortranSyntaxHighlighter>(' ' + word), expected);
            QCOMPARE(coloured<FortranSyntaxHighlighter>(' ' + word.toUpper()), expected);
            QCOMPARE(coloured<FortranSyntaxHighlighter>(' ' + word.left(1).toUpper() + word.mid(1)), expected);
            QCOMPARE(coloured<FortranSyntaxHighlighter>(' ' + word + '9'), QString(word.length() + 2, '.'));
        }
    }

    void lines_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected");
        QTest::newRow("case") << "IF (a) then"
                              << "kk.....kkkk";
        QTest::newRow("underscore parts words") << "do_loop double2"
                                                << "kk.............";
        QTest::newRow("joined words") << "  end do; enddo"
                                      << "..kkk.kk..kkkkk";
        QTest::newRow("no calls") << "  f(x) = sin(y)"
                                  << "...............";
        QTest::newRow("two strings are one") << "x = 'a' + 'b'"
                                             << "....qqqqqqqqq";
        QTest::newRow("keyword in a string") << "x = 'if' if"
                                             << "....qqqq.kk";
        QTest::newRow("one quote is none") << "x = 'if"
                                           << ".....kk";
        QTest::newRow("double quotes are nothing") << "x = \"if\""
                                                   << ".....kk.";
        QTest::newRow("c begins a comment") << "c = 1"
                                            << "ccccc";
        QTest::newRow("C begins a comment") << "C if"
                                            << "cccc";
        QTest::newRow("so does a statement that begins with it") << "call f"
                                                                 << "cccccc";
        QTest::newRow("a mark begins a comment") << "! if"
                                                 << "cccc";
        QTest::newRow("not behind the first column") << "x ! if"
                                                     << "....kk";
        QTest::newRow("not behind spaces") << " ! if"
                                           << "...kk";
        QTest::newRow("star is nothing") << "* if"
                                         << "..kk";
        QTest::newRow("string in a comment") << "! 'a' b"
                                             << "ccqqqcc";
        QTest::newRow("C's comments are nothing") << "/* if */ // if"
                                                  << "...kk.......kk";
        QTest::newRow("no text") << ""
                                 << "";
    }

    void lines() {
        QFETCH(QString, text);
        QTEST(coloured<FortranSyntaxHighlighter>(text), "expected");
    }

    void everyLineEndsOutside() {
        const ColouredText<FortranSyntaxHighlighter> text("/* a\n\n'b\n! c");
        QCOMPARE(text.letters(), QString("....\n\n..\nccc"));
        for (int i = 0; i < text.lineCount(); ++i)
            QCOMPARE(text.state(i), 0);
    }
};

QTEST_MAIN(FortranSyntaxHighlighterTest)
#include "FortranSyntaxHighlighterTest.moc"
