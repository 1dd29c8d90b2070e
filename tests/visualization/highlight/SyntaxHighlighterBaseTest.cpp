// SPDX-License-Identifier: MIT
#include "tests/visualization/highlight/ColouredText.h"
#include "tests/visualization/highlight/TestedHighlighter.h"

#include <QBrush>
#include <QTextCursor>
#include <QtTest>

namespace {

QString colouredWords(const QString& text, const QStringList& words, bool caseSensitive) {
    ColouredText<TestedHighlighter> coloured(text);
    coloured.highlighter().addKeywords(words, caseSensitive);
    coloured.highlighter().rehighlight();
    return coloured.letters();
}

QString colouredByRule(const QString& text, const QString& pattern) {
    ColouredText<TestedHighlighter> coloured(text);
    coloured.highlighter().setQuotationFormat(QRegExp(pattern));
    coloured.highlighter().rehighlight();
    return coloured.letters();
}

/// The letters of each line and its state, lines joined with '|'.
QString colouredComments(const QString& text, const QString& start, const QString& end) {
    ColouredText<TestedHighlighter> coloured(text);
    coloured.highlighter().setMultilineCommentFormat(QRegExp(start), QRegExp(end));
    coloured.highlighter().rehighlight();
    QStringList lines;
    for (int i = 0; i < coloured.lineCount(); ++i)
        lines.append(coloured.letters(i) + QString::number(coloured.state(i)));
    return lines.join('|');
}

void compareFormat(const QTextCharFormat& format, const QColor& colour, const QMap<int, QVariant>& others) {
    QCOMPARE(format.foreground(), QBrush(colour, Qt::SolidPattern));
    QMap<int, QVariant> properties = format.properties();
    QCOMPARE(properties.remove(QTextFormat::ForegroundBrush), 1);
    QCOMPARE(properties, others);
}

} // namespace

class SyntaxHighlighterBaseTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void formats() {
        ColouredText<TestedHighlighter> text("key fun rem quo (*x*)");
        TestedHighlighter& highlighter = text.highlighter();
        highlighter.addKeywords({"key"}, true);
        highlighter.setFunctionFormat(QRegExp("fun"));
        highlighter.setSingleLineCommentFormat(QRegExp("rem"));
        highlighter.setQuotationFormat(QRegExp("quo"));
        highlighter.setMultilineCommentFormat(QRegExp(R"(\(\*)"), QRegExp(R"(\*\))"));
        highlighter.rehighlight();
        const CharacterFormats formats = formatsOf(text.line(0));
        compareFormat(formats.at(0), QColor(0, 0, 128), {{QTextFormat::FontWeight, 75}});
        compareFormat(formats.at(4), QColor(0, 0, 255), {{QTextFormat::FontItalic, true}});
        compareFormat(formats.at(8), QColor(255, 0, 0), {});
        compareFormat(formats.at(12), QColor(0, 128, 0), {});
        compareFormat(formats.at(16), QColor(255, 0, 0), {});
        QCOMPARE(text.letters(), QString("kkk.fff.ccc.qqq.ccccc"));
    }

    void tablesKeepTheirOrder() {
        QTextDocument document;
        TestedHighlighter highlighter(&document);
        highlighter.addKeywords({"b", "aa"}, true);
        highlighter.setQuotationFormat(QRegExp("1"));
        highlighter.addKeywords({"a", "b"}, false);
        highlighter.setFunctionFormat(QRegExp("2"));
        highlighter.addRule({QRegExp("3"), QTextCharFormat()});
        QStringList words;
        for (const auto& keyword : highlighter.getKeywords()) {
            words.append(keyword.matcher.pattern());
            QCOMPARE(keyword.length, static_cast<int>(keyword.matcher.pattern().length()));
        }
        QCOMPARE(words, QStringList({"b", "aa", "a", "b"}));
        QCOMPARE(highlighter.getKeywords().at(1).matcher.caseSensitivity(), Qt::CaseSensitive);
        QCOMPARE(highlighter.getKeywords().at(3).matcher.caseSensitivity(), Qt::CaseInsensitive);
        QStringList patterns;
        for (const auto& rule : highlighter.getRules())
            patterns.append(rule.pattern.pattern());
        QCOMPARE(patterns, QStringList({"1", "2", "3"}));
    }

    void keywordsStandAlone_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected");
        QTest::newRow("whole line") << "int"
                                    << "kkk";
        QTest::newRow("between spaces") << " int "
                                        << ".kkk.";
        QTest::newRow("underscores part words") << "my_int_x"
                                                << "...kkk..";
        QTest::newRow("letters do not") << "xint intx"
                                        << ".........";
        QTest::newRow("digits do not") << "1int int2"
                                       << ".........";
        QTest::newRow("letters and digits beyond ASCII do not")
            << QString::fromUtf8("\u00e4int int\u0663") << ".........";
        QTest::newRow("combining marks part words") << QString::fromUtf8("int\u0301") << "kkk.";
        QTest::newRow("signs part words") << "int*int,(int)"
                                          << "kkk.kkk..kkk.";
        QTest::newRow("a rejected hit and a good one") << "intint int"
                                                       << ".......kkk";
        QTest::newRow("case") << "Int INT"
                              << ".......";
    }

    void keywordsStandAlone() {
        QFETCH(QString, text);
        QTEST(colouredWords(text, {"int"}, true), "expected");
    }

    // "a-a" at 1 is joined to the x; the one at 3 begins within it.
    void searchGoesOnBehindARejectedHit() {
        QCOMPARE(colouredWords("xa-a-a", {"a-a"}, true), QString("......"));
        QCOMPARE(colouredWords("xa-a a-a", {"a-a"}, true), QString(".....kkk"));
    }

    void caseIsOfTheListItWasAddedWith() {
        QCOMPARE(colouredWords("If IF if iF", {"if"}, false), QString("kk.kk.kk.kk"));
        QCOMPARE(colouredWords("If IF if iF", {"IF"}, true), QString("...kk......"));
        ColouredText<TestedHighlighter> both("do DO if IF");
        both.highlighter().addKeywords({"do"}, true);
        both.highlighter().addKeywords({"if"}, false);
        both.highlighter().rehighlight();
        QCOMPARE(both.letters(), QString("kk....kk.kk"));
    }

    // The long s and the Kelvin sign are letters whose case folds to s and k.
    void lettersBeyondAsciiThatFoldToAscii() {
        QCOMPARE(colouredWords(QString::fromUtf8("\u017fave bac\u212a save"), {"save", "back"}, false),
                 QString("kkkk.kkkk.kkkk"));
        QCOMPARE(colouredWords(QString::fromUtf8("\u017fave save"), {"save"}, true), QString(".....kkkk"));
    }

    void keywordsOfAnyCharacters() {
        QCOMPARE(colouredWords("#if if", {"#if"}, true), QString("kkk..."));
        QCOMPARE(
            colouredWords(QString::fromUtf8("\u00dcBER \u00fcber \u00fcb"), {QString::fromUtf8("\u00fcber")}, false),
            QString("kkkk.kkkk..."));
        QCOMPARE(colouredWords("my_int int", {"my_int"}, true), QString("kkkkkk...."));
        QCOMPARE(colouredWords("a  b", {" "}, true), QString("...."));
        QCOMPARE(colouredWords("-  -", {" "}, true), QString(".kk."));
    }

    void aKeywordOfNoCharactersIsPassedOver() {
        QCOMPARE(colouredWords("a if", {"", "if"}, true), QString("..kk"));
        QCOMPARE(colouredWords("", {""}, true), QString());
    }

    void keywordsOfOneWordInDifferentCase() {
        QCOMPARE(colouredWords("if If IF", {"IF", "if"}, true), QString("kk....kk"));
    }

    void rulesAreSearchedFromBehindTheLastMatch() {
        QCOMPARE(colouredByRule("aaaaa b aa", "aa"), QString("qqqq....qq"));
        QCOMPARE(colouredByRule("abab", "b"), QString(".q.q"));
    }

    // A search from the middle of a line still sees what stands before it.
    void lineStartsAndWordEdgesAreThoseOfTheLine() {
        QCOMPARE(colouredByRule("aaa", "^a"), QString("q.."));
        QCOMPARE(colouredByRule("aaa aa", "\\ba"), QString("q...q."));
        QCOMPARE(colouredByRule("aaa", "a$"), QString("..q"));
    }

    void rulesAreCaseSensitiveAndGreedy() {
        QCOMPARE(colouredByRule("A a", "a"), QString("..q"));
        QCOMPARE(colouredByRule("<a> <b>", "<.*>"), QString("qqqqqqq"));
    }

    void laterFormatsReplaceEarlierOnes() {
        ColouredText<TestedHighlighter> text("int call( word");
        TestedHighlighter& highlighter = text.highlighter();
        highlighter.setFunctionFormat(QRegExp("call"));
        highlighter.setQuotationFormat(QRegExp("ll\\("));
        highlighter.addKeywords({"int", "call"}, true);
        highlighter.setMultilineCommentFormat(QRegExp("t c"), QRegExp("c"));
        highlighter.rehighlight();
        QCOMPARE(text.letters(), QString("kkcccfqqq....."));
    }

    void comments_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected");
        QTest::newRow("none") << "a"
                              << ".0";
        QTest::newRow("no text") << ""
                                 << "0";
        QTest::newRow("on one line") << "a<b>c"
                                     << ".ccc.0";
        QTest::newRow("two on one line") << "<>a<>"
                                         << "cc.cc0";
        QTest::newRow("one right behind another") << "<><>"
                                                  << "cccc0";
        QTest::newRow("open") << "a<b"
                              << ".cc1";
        QTest::newRow("over lines") << "a<b\nc\nd>e"
                                    << ".cc1|c1|cc.0";
        QTest::newRow("no text in between") << "<\n\n>"
                                            << "c1|1|c0";
        QTest::newRow("a start within goes unseen") << "<a<\n<b>c"
                                                    << "ccc1|ccc.0";
        QTest::newRow("closed and opened again") << "<\n>a<\n>"
                                                 << "c1|c.c1|c0";
        QTest::newRow("an end alone") << ">a"
                                      << "..0";
    }

    void comments() {
        QFETCH(QString, text);
        QTEST(colouredComments(text, "<", ">"), "expected");
    }

    // The end is searched from the start's first character on.
    void aStartMayHoldItsEnd() {
        QCOMPARE(colouredComments("<->a", "<-", "->"), QString("ccc.0"));
        QCOMPARE(colouredComments("|a|b", "\\|", "\\|"), QString("c.c.0"));
    }

    void noCommentsWithoutAStart() {
        QCOMPARE(colouredComments("a>b", "", ">"), QString("...0"));
        QCOMPARE(colouredWords("a", {"b"}, true), QString("."));
    }

    void everyStateButOneIsOutside() {
        ColouredText<TestedHighlighter> text("a\nb>");
        text.highlighter().setMultilineCommentFormat(QRegExp("<"), QRegExp(">"));
        QTextBlock first = text.line(0);
        for (const int state : {-1, 0, 2, 3}) {
            first.setUserState(state);
            text.highlighter().rehighlightBlock(text.line(1));
            QCOMPARE(text.letters(1), QString(".."));
        }
        first.setUserState(1);
        text.highlighter().rehighlightBlock(text.line(1));
        QCOMPARE(text.letters(1), QString("cc"));
    }

    void matchesOfNoLengthEndARule() {
        QCOMPARE(colouredByRule("baab", "a*"), QString("...."));
        QCOMPARE(colouredByRule("aab", "a*"), QString("qq."));
        QCOMPARE(colouredByRule("ab", "\\b"), QString(".."));
        QCOMPARE(colouredByRule("ab", "(?=b)"), QString(".."));
        QCOMPARE(colouredByRule("ab", ""), QString(".."));
        QCOMPARE(colouredByRule("", ".*"), QString());
    }

    void endsOfNoLengthEndTheSearch() {
        QCOMPARE(colouredComments("<a<", "<", "x*"), QString("...0"));
        QCOMPARE(colouredComments("<a<", "<", ""), QString("...0"));
        QCOMPARE(colouredComments("<ab<ab", "<", "(?=b)"), QString("cc.cc.0"));
        QCOMPARE(colouredComments("ab", "(?=b)", "$"), QString(".c0"));
        QCOMPARE(colouredComments("ab", "x*", "y*"), QString("..0"));
    }

    void invalidExpressionsMatchNothing() {
        QCOMPARE(colouredByRule("(a", "("), QString(".."));
        QCOMPARE(colouredComments("[a", "[", "]"), QString("..0"));
    }

    void editsAreFollowed() {
        ColouredText<TestedHighlighter> text("a\nb\nc>d");
        text.highlighter().setMultilineCommentFormat(QRegExp("<"), QRegExp(">"));
        text.highlighter().rehighlight();
        QCOMPARE(text.letters(), QString(".\n.\n..."));
        QTextCursor cursor(&text.document());
        cursor.insertText("<");
        QCOMPARE(text.letters(), QString("cc\nc\ncc."));
        cursor.deletePreviousChar();
        QCOMPARE(text.letters(), QString(".\n.\n..."));
    }

    void goesWithItsDocument() {
        auto document = std::make_unique<QTextDocument>();
        const QPointer<QObject> highlighter = new TestedHighlighter(document.get());
        QCOMPARE(highlighter->parent(), document.get());
        document.reset();
        QVERIFY(highlighter.isNull());
        const TestedHighlighter without(nullptr);
        QVERIFY(without.document() == nullptr);
    }
};

QTEST_MAIN(SyntaxHighlighterBaseTest)
#include "SyntaxHighlighterBaseTest.moc"
