// SPDX-License-Identifier: MIT
#include "tests/environment/support/Build.h"
#include "visualization/sourceselector/SourceSelectorOutput.h"
#include "visualization/sourceselector/SourceText.h"

#include <QtTest>

using namespace Kova::GUI;
using Kova::Tessel::ExpressionPtr;

namespace {

QStringList texts(const SourceText& text, int line) {
    QStringList all;
    for (const SourceText::Part& part : text.getLine(line))
        all.append(part.text);
    return all;
}

} // namespace

/// The text of a selector and the sink that fills it.
class SelectorTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isEmptyAtFirst();
    void newLinesBeginWithTheirText();
    void textBeforeAnyLineOpensOne();
    void widestLineCountsCharacters();
    void linesOfNodesAreThoseOfTheirFirstParts();
};

void SelectorTextTest::isEmptyAtFirst() {
    PieceTexts pieces;
    const SourceText text(pieces);
    const ExpressionPtr node = Kova::Tests::literal("1");
    QCOMPARE(text.getLineCount(), 0);
    QCOMPARE(text.getPartCount(), 0);
    QCOMPARE(text.getWidestLine(), 0);
    QCOMPARE(text.findLine(node.get()), -1);
}

void SelectorTextTest::newLinesBeginWithTheirText() {
    const ExpressionPtr node = Kova::Tests::literal("1");
    const ExpressionPtr other = Kova::Tests::literal("2");
    PieceTexts pieces;
    SourceText text(pieces);
    SourceSelectorOutput output(text);
    output.writeNewLine("one", *node);
    output.write("two", *other);
    output.writeNewLine("three", *node);
    output.writeNewLine("", *node);
    output.write("four", *node);
    QCOMPARE(text.getLineCount(), 3);
    QCOMPARE(texts(text, 0), QStringList({"one", "two"}));
    QCOMPARE(texts(text, 1), QStringList({"three"}));
    QCOMPARE(texts(text, 2), QStringList({"", "four"}));
    QCOMPARE(text.getPartCount(), 5);
    QCOMPARE(text.getLine(0).begin()[0].node, node.get());
    QCOMPARE(text.getLine(0).begin()[1].node, other.get());
}

void SelectorTextTest::textBeforeAnyLineOpensOne() {
    const ExpressionPtr node = Kova::Tests::literal("1");
    PieceTexts pieces;
    SourceText text(pieces);
    SourceSelectorOutput output(text);
    output.write("a", *node);
    output.write("b", *node);
    QCOMPARE(text.getLineCount(), 1);
    QCOMPARE(texts(text, 0), QStringList({"a", "b"}));
}

void SelectorTextTest::widestLineCountsCharacters() {
    const ExpressionPtr node = Kova::Tests::literal("1");
    PieceTexts pieces;
    SourceText text(pieces);
    SourceSelectorOutput output(text);
    output.writeNewLine("12345", *node);
    output.writeNewLine("\xC3\xA4\xC3\xA4\xC3\xA4", *node);
    output.write("4567", *node);
    output.writeNewLine("", *node);
    QCOMPARE(text.getWidestLine(), 7);
}

void SelectorTextTest::linesOfNodesAreThoseOfTheirFirstParts() {
    const ExpressionPtr first = Kova::Tests::literal("1");
    const ExpressionPtr second = Kova::Tests::literal("2");
    const ExpressionPtr third = Kova::Tests::literal("3");
    PieceTexts pieces;
    SourceText text(pieces);
    {
        SourceSelectorOutput output(text);
        output.writeNewLine("x", *first);
        output.writeNewLine("x", *first);
        output.write("x", *second);
        output.writeNewLine("x", *first);
        output.write("x", *second);
    }
    QCOMPARE(text.findLine(first.get()), 0);
    QCOMPARE(text.findLine(second.get()), 1);
    QCOMPARE(text.findLine(third.get()), -1);
    QCOMPARE(text.findLine(nullptr), -1);
}

QTEST_APPLESS_MAIN(SelectorTextTest)
#include "SelectorTextTest.moc"
