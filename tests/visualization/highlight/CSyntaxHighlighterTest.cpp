// SPDX-License-Identifier: MIT
#include "visualization/highlight/CSyntaxHighlighter.h"

#include "tests/visualization/highlight/ColouredText.h"
#include "tests/visualization/highlight/LanguageTables.h"

#include <QtTest>

using Kova::GUI::CSyntaxHighlighter;

class CSyntaxHighlighterTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tables() {
        QCOMPARE(cKeywords().size(), 33);
        compareTables<CSyntaxHighlighter>(
            cKeywords(), Qt::CaseSensitive,
            {PlainWalk::functionFormat(), PlainWalk::commentFormat(), PlainWalk::quotationFormat()});
        QCOMPARE(CSyntaxHighlighter::staticMetaObject.className(), "Kova::GUI::CSyntaxHighlighter");
    }

    void everyKeyword() {
        for (const QString& word : cKeywords()) {
            QCOMPARE(coloured<CSyntaxHighlighter>(word), QString(word.length(), 'k'));
            QCOMPARE(coloured<CSyntaxHighlighter>(word.toUpper()), QString(word.length(), '.'));
        }
    }

    void lines_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected");
        QTest::newRow("case") << "IF if"
                              << "...kk";
        QTest::newRow("underscore parts words") << "do_loop double2"
                                                << "kk.............";
        QTest::newRow("call") << "printf(x)"
                              << "ffffff...";
        QTest::newRow("no call with a space") << "print (x)"
                                              << ".........";
        QTest::newRow("keyword as a call") << "if(x) return(0)"
                                           << "ff....ffffff...";
        QTest::newRow("keyword before a space") << "if (x)"
                                                << "kk....";
        QTest::newRow("keyword within a call's name") << "my_int(0)"
                                                      << "ffffff...";
        QTest::newRow("number as a call") << "12(a)"
                                          << "ff...";
        QTest::newRow("call in a call") << "f(g(1))"
                                        << "f.f....";
        QTest::newRow("comment") << "int a; // if b()"
                                 << "kkk....ccccccccc";
        QTest::newRow("string") << "a = \"if b()\"; int"
                                << "....qqqqqqqq..kkk";
        QTest::newRow("two strings are one") << "\"a\" if \"b\""
                                             << "qqqqqqqqqq";
        QTest::newRow("one quote is none") << "\"a if"
                                           << "...kk";
        QTest::newRow("string in a comment") << "// \"a\" b"
                                             << "cccqqqcc";
        QTest::newRow("comment in a string") << "\"// a\" b"
                                             << "qqqqqqcc";
        QTest::newRow("single quotes are nothing") << "'if'"
                                                   << ".kk.";
        QTest::newRow("block comment") << "a /* if b() \"c\" */ int"
                                       << "..cccccccccccccccc.kkk";
        QTest::newRow("block comment in a string") << "\"/* */\""
                                                   << "qcccccq";
        QTest::newRow("slash, star, slash") << "/*/ int"
                                            << "ccc.kkk";
        QTest::newRow("comment's end alone") << "*/ int"
                                             << "...kkk";
        QTest::newRow("division") << "a / b"
                                  << ".....";
        QTest::newRow("call in a directive") << "#define MAX(a) a"
                                             << "........fff.....";
    }

    void lines() {
        QFETCH(QString, text);
        QTEST(coloured<CSyntaxHighlighter>(text), "expected");
    }

    void commentsOverLines() {
        const ColouredText<CSyntaxHighlighter> text("int a; /* if\n\nfor */int b;\nint c;");
        QCOMPARE(text.letters(), QString("kkk....ccccc\n\ncccccckkk...\nkkk..."));
        QCOMPARE(text.state(0), 1);
        QCOMPARE(text.state(1), 1);
        QCOMPARE(text.state(2), 0);
        QCOMPARE(text.state(3), 0);
    }

    void openedWithinALineComment() {
        const ColouredText<CSyntaxHighlighter> text("// /* x\nint");
        QCOMPARE(text.letters(), QString("ccccccc\nccc"));
        QCOMPARE(text.state(0), 1);
        QCOMPARE(text.state(1), 1);
    }

    void openedWithinAString() {
        const ColouredText<CSyntaxHighlighter> text("s = \"/*\";\nint");
        QCOMPARE(text.letters(), QString("....qcccc\nccc"));
        QCOMPARE(text.state(0), 1);
    }
};

QTEST_MAIN(CSyntaxHighlighterTest)
#include "CSyntaxHighlighterTest.moc"
