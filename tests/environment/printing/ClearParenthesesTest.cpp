// SPDX-License-Identifier: MIT
#include "environment/printing/ClearParentheses.h"

#include "environment/printing/OutToC.h"
#include "environment/tessel/ConditionalExpression.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/WhileStatement.h"
#include "tests/environment/printing/Names.h"
#include "tests/environment/printing/PrintedLines.h"

#include <gtest/gtest.h>

using namespace Kova;
using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

class ClearParenthesesTest : public testing::Test, protected Names {
protected:
    /// As program text, then as an expression alone.
    std::pair<std::string, std::string> leftUnder(B inner, B outer) {
        const ExpressionPtr root = binary(binary(a(), inner, b()), outer, c());
        return {printed(*root).front(), Backends::OutToC::expressionToString(*root)};
    }
    using Both = std::pair<std::string, std::string>;
};

TEST_F(ClearParenthesesTest, AreSetWhereCompilersAskForThem) {
    EXPECT_EQ(leftUnder(B::LogicalAnd, B::LogicalOr), Both("(a && b) || c", "a && b || c"));
    EXPECT_EQ(leftUnder(B::Add, B::ShiftLeft), Both("(a + b) << c", "a + b << c"));
    EXPECT_EQ(leftUnder(B::Subtract, B::ShiftRight), Both("(a - b) >> c", "a - b >> c"));
    EXPECT_EQ(leftUnder(B::BitwiseAnd, B::BitwiseOr), Both("(a & b) | c", "a & b | c"));
    EXPECT_EQ(leftUnder(B::BitwiseXor, B::BitwiseOr), Both("(a ^ b) | c", "a ^ b | c"));
    EXPECT_EQ(leftUnder(B::Add, B::BitwiseAnd), Both("(a + b) & c", "a + b & c"));
    EXPECT_EQ(leftUnder(B::Equal, B::BitwiseAnd), Both("(a == b) & c", "a == b & c"));
    EXPECT_EQ(leftUnder(B::Less, B::Less), Both("(a < b) < c", "a < b < c"));
    EXPECT_EQ(leftUnder(B::Less, B::NotEqual), Both("(a < b) != c", "a < b != c"));
}

TEST_F(ClearParenthesesTest, AreNotSetElsewhere) {
    for (const B outer : {B::Add, B::Subtract, B::Less, B::LogicalAnd, B::Comma})
        for (const B inner : {B::Multiply, B::Divide}) {
            const Both both = leftUnder(inner, outer);
            EXPECT_EQ(both.first, both.second);
        }
    EXPECT_EQ(leftUnder(B::Add, B::Equal).first, "a + b == c");
    EXPECT_EQ(leftUnder(B::ShiftLeft, B::BitwiseOr).first, "a << b | c");
    EXPECT_EQ(leftUnder(B::BitwiseOr, B::BitwiseOr).first, "a | b | c");
    EXPECT_EQ(leftUnder(B::LogicalOr, B::LogicalOr).first, "a || b || c");
    EXPECT_EQ(leftUnder(B::Less, B::LogicalOr).first, "a < b || c");
}

TEST_F(ClearParenthesesTest, AreSetAroundANegationThatIsCompared) {
    const ExpressionPtr compared = binary(unary(UnaryOperator::LogicalNot, a()), B::Equal, b());
    EXPECT_EQ(printed(*compared).front(), "(!a) == b");
    const ExpressionPtr masked = binary(unary(UnaryOperator::LogicalNot, a()), B::BitwiseAnd, b());
    EXPECT_EQ(printed(*masked).front(), "(!a) & b");
    const ExpressionPtr joined = binary(unary(UnaryOperator::LogicalNot, a()), B::LogicalAnd, b());
    EXPECT_EQ(printed(*joined).front(), "!a && b");
}

TEST_F(ClearParenthesesTest, AreSetAroundAnAssignmentThatDecides) {
    WhileStatement loop(assign(a(), b()), block());
    EXPECT_EQ(printed(loop).front(), "while ((a = b))");
}

TEST_F(ClearParenthesesTest, AreSetAroundAnAssignmentThatAnOperatorHandsUp) {
    const auto comma = [this] { return binary(a(), B::Comma, assign(b(), c())); };
    EXPECT_EQ(printed(*make<WhileStatement>(comma(), block())).front(), "while (a, (b = c))");
    EXPECT_EQ(printed(*binary(comma(), B::LogicalAnd, c())).front(), "(a, (b = c)) && c");
    EXPECT_EQ(printed(*binary(c(), B::Comma, comma())).front(), "c, (a, b = c)");
    EXPECT_EQ(printed(*make<WhileStatement>(binary(comma(), B::Comma, c()), block())).front(), "while (a, b = c, c)");
    const ExpressionPtr choice = make<ConditionalExpression>(a(), assign(b(), c()), c());
    EXPECT_EQ(printed(*choice).front(), "a ? (b = c) : c");
}

TEST_F(ClearParenthesesTest, AreNotSetWhereTheValueIsLeft) {
    EXPECT_EQ(printed(*statement(binary(a(), B::Comma, assign(b(), c())))).front(), "a, b = c;");
    ForStatement loop(nullptr, nullptr, binary(a(), B::Comma, assign(b(), c())), block());
    EXPECT_EQ(printed(loop).front(), "for (;; a, b = c)");
}

} // namespace
