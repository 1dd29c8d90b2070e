// SPDX-License-Identifier: MIT
#include "environment/printing/OperandsInText.h"

#include "environment/tessel/OpaqueExpression.h"
#include "environment/tessel/OpaqueStatement.h"
#include "tests/environment/printing/Names.h"
#include "tests/environment/printing/PrintedLines.h"

#include <gtest/gtest.h>

using namespace Kova;
using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

using Lines = std::vector<std::string>;

class OperandsInTextTest : public testing::Test, protected Names {
protected:
    /// Appends an operand in the place of the first such text behind the operand before.
    template <class Node>
    void append(Node& node, const std::string& text, ExpressionPtr operand) {
        const auto& places = node.getOperandPlaces();
        const std::size_t behind = places.empty() || !places.back() ? 0 : places.back()->end;
        const std::size_t begin = node.getText().find(text, behind);
        ASSERT_NE(begin, std::string::npos);
        node.appendOperand(std::move(operand), TextPlace{begin, begin + text.size()});
    }
    template <class Node>
    [[nodiscard]] PrintedLines print(Node& node) {
        PrintedLines out;
        out.print(node);
        return out;
    }
};

TEST_F(OperandsInTextTest, AreNodesOfTheirOwn) {
    OpaqueExpression opaque("odd(x, y[x], z)");
    append(opaque, "x", f());
    append(opaque, "x", binary(a(), B::Add, b()));
    append(opaque, "z", call(f(), c()));
    PrintedLines out = print(opaque);
    EXPECT_EQ(out.getTexts(), (Lines{"odd(f, y[a + b], f(c))"}));
    EXPECT_EQ(out.partsOf[&opaque], (Lines{"", "odd(", ", y[", "], ", ")"}));
    EXPECT_EQ(out.partsOf[opaque.getChild(0)], (Lines{"f"}));
    EXPECT_EQ(out.partsOf[opaque.getChild(1)], (Lines{" + "}));
    EXPECT_EQ(out.partsOf[opaque.getChild(1)->getChild(0)], (Lines{"a"}));
}

TEST_F(OperandsInTextTest, StandInParenthesesWhereACommaWouldSeparate) {
    OpaqueExpression opaque("odd(x)");
    append(opaque, "x", binary(a(), B::Comma, b()));
    EXPECT_EQ(print(opaque).getTexts(), (Lines{"odd((a, b))"}));
}

TEST_F(OperandsInTextTest, KeepTheirPlacesWhenTheTextIsPutOnOneLine) {
    OpaqueStatement opaque("asm (\"a\\n\"\n    \"b\" // why\n    : \"=r\" (x)\n    : /* in */ \"r\" (y));");
    append(opaque, "x", a());
    append(opaque, "y", b());
    EXPECT_EQ(print(opaque).getTexts(), (Lines{"asm (\"a\\n\" \"b\" : \"=r\" (a) : \"r\" (b));"}));
}

TEST_F(OperandsInTextTest, MayCoverTheWholeText) {
    OpaqueExpression opaque("x");
    append(opaque, "x", a());
    PrintedLines out = print(opaque);
    EXPECT_EQ(out.getTexts(), (Lines{"a"}));
    EXPECT_EQ(out.partsOf[opaque.getChild(0)], (Lines{"a"}));
}

TEST_F(OperandsInTextTest, WithoutAPlaceStandUnwrittenBeforeTheText) {
    OpaqueExpression opaque("odd(a, b)");
    append(opaque, "b", b());
    opaque.appendOperand(binary(a(), B::Add, c()));
    PrintedLines out = print(opaque);
    EXPECT_EQ(out.getTexts(), (Lines{"odd(a, b)"}));
    EXPECT_EQ(out.partsOf[opaque.getChild(0)], (Lines{"b"}));
    EXPECT_EQ(out.partsOf[opaque.getChild(1)], (Lines{""}));
    EXPECT_EQ(out.partsOf[opaque.getChild(1)->getChild(0)], (Lines{""}));
}

TEST_F(OperandsInTextTest, OutsideOfTheTextOrInsideAnotherHaveNoPlace) {
    OpaqueExpression opaque("odd(a, b)");
    opaque.appendOperand(c(), TextPlace{5, 100});
    opaque.appendOperand(c(), TextPlace{6, 5});
    opaque.appendOperand(a(), TextPlace{4, 5});
    opaque.appendOperand(c(), TextPlace{4, 8});
    opaque.appendOperand(nullptr, TextPlace{7, 8});
    EXPECT_EQ(print(opaque).getTexts(), (Lines{"odd(a, b)"}));
}

TEST_F(OperandsInTextTest, AreFoundByNameWhenNoneHasAPlace) {
    OpaqueExpression opaque("odd(a,\n a)");
    opaque.appendOperand(a());
    PrintedLines out = print(opaque);
    EXPECT_EQ(out.getTexts(), (Lines{"odd(a, a)"}));
    EXPECT_EQ(out.partsOf[opaque.getChild(0)], (Lines{"a"}));
}

TEST_F(OperandsInTextTest, GetNoSecondParentheses) {
    const auto printedIn = [this](const std::string& text, const std::string& place) {
        OpaqueExpression opaque(text);
        append(opaque, place, binary(a(), B::Comma, b()));
        return print(opaque).getTexts().front();
    };
    EXPECT_EQ(printedIn("odd(1, (x))", "x"), "odd(1, (a, b))");
    EXPECT_EQ(printedIn("odd(( x ))", "x"), "odd(( a, b ))");
    EXPECT_EQ(printedIn("asm (\"i\" (x))", "x"), "asm (\"i\" (a, b))");
    // These are the call's.
    EXPECT_EQ(printedIn("odd(x)", "x"), "odd((a, b))");
    EXPECT_EQ(printedIn("odd (x)", "x"), "odd ((a, b))");
    EXPECT_EQ(printedIn("f(1)(x)", "x"), "f(1)((a, b))");
    EXPECT_EQ(printedIn("odd((x), y)", "(x)"), "odd((a, b), y)");
    EXPECT_EQ(printedIn("x", "x"), "(a, b)");
}

} // namespace
