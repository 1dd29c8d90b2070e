// SPDX-License-Identifier: MIT
#include "environment/analyses/controlflow/ControlFlowGraph.h"
#include "environment/tessel/CastExpression.h"
#include "environment/tessel/IfStatement.h"
#include "environment/tessel/types/BasicType.h"
#include "environment/tessel/types/PointerType.h"
#include "tests/environment/support/Build.h"

#include <gtest/gtest.h>

namespace Kova::Tests {

namespace {

using namespace Tessel;

/// What is known of conditions, for the types of which a front end is needed or that it rarely writes.
class ConstantConditionsTest : public testing::Test {
protected:
    /// Which ways lead on from an if with the condition: "true", "false" or "both".
    static std::string waysOf(ExpressionPtr condition) {
        const auto root = block(make<IfStatement>(std::move(condition), block(), block()));
        const ControlFlowGraph graph(*root);
        std::string ways;
        for (const ControlTransfer way : graph.getTransfers(root->getStatement(0)))
            ways += way == ControlTransfer::True ? "true" : way == ControlTransfer::False ? "false" : "?";
        return ways == "truefalse" ? "both" : ways;
    }
    static ExpressionPtr typed(ExpressionPtr expression, const Type& type) {
        expression->setType(&type);
        return expression;
    }
    static ExpressionPtr string() { return literal("\"message\"", LiteralExpression::Kind::String); }
    [[nodiscard]] ExpressionPtr number(const std::string& text) const { return typed(literal(text), m_int); }

    BasicType m_int{"int", BasicType::Category::SignedInteger, 32, Type::NoQualifier};
    BasicType m_double{"double", BasicType::Category::Floating, 64, Type::NoQualifier};
    PointerType m_pointer{&m_int, Type::NoQualifier};
    VariableDeclaration m_a{"a", &m_int};
};

// As in assert(a && "message") and assert(!"message").
TEST_F(ConstantConditionsTest, StringsAreNeverNull) {
    EXPECT_EQ(waysOf(string()), "true");
    EXPECT_EQ(waysOf(unary(UnaryOperator::LogicalNot, string())), "false");
    EXPECT_EQ(waysOf(binary(string(), BinaryOperator::LogicalAnd, number("0"))), "false");
    EXPECT_EQ(waysOf(binary(use(m_a), BinaryOperator::LogicalAnd, string())), "both");
    EXPECT_EQ(waysOf(binary(use(m_a), BinaryOperator::LogicalOr, string())), "true");
    EXPECT_EQ(waysOf(conditional(string(), number("0"), use(m_a))), "false");
    // In the parts of an expression that is evaluated as a whole.
    const auto isOne = [this](ExpressionPtr value) {
        return waysOf(binary(std::move(value), BinaryOperator::Equal, number("1")));
    };
    EXPECT_EQ(isOne(unary(UnaryOperator::LogicalNot, string())), "false");
    EXPECT_EQ(isOne(binary(string(), BinaryOperator::LogicalAnd, string())), "true");
    EXPECT_EQ(isOne(binary(use(m_a), BinaryOperator::LogicalOr, string())), "true");
    EXPECT_EQ(isOne(binary(use(m_a), BinaryOperator::LogicalAnd, string())), "both");
    EXPECT_EQ(isOne(conditional(string(), number("1"), use(m_a))), "true");
    EXPECT_EQ(isOne(conditional(string(), nullptr, number("1"))), "both");
}

// Where they are is not known.
TEST_F(ConstantConditionsTest, StringsHaveNoValue) {
    EXPECT_EQ(waysOf(binary(string(), BinaryOperator::Equal, string())), "both");
    EXPECT_EQ(waysOf(binary(string(), BinaryOperator::Add, number("1"))), "both");
    EXPECT_EQ(waysOf(typed(make<CastExpression>(&m_int, string()), m_int)), "both");
}

// (1 ? 2 : 0.5) / 4 is a half.
TEST_F(ConstantConditionsTest, ChoicesHaveTheTypeOfBothValues) {
    const auto quarter = [this](const Type& type) {
        ExpressionPtr value = conditional(number("1"), number("2"), literal("0.5", LiteralExpression::Kind::Floating));
        return waysOf(binary(typed(std::move(value), type), BinaryOperator::Divide, number("4")));
    };
    EXPECT_EQ(quarter(m_double), "both");
    EXPECT_EQ(quarter(m_int), "false");
    ExpressionPtr null = conditional(number("1"), number("0"), use(m_a));
    EXPECT_EQ(waysOf(binary(typed(std::move(null), m_pointer), BinaryOperator::Equal, number("0"))), "true");
    // Hand-made trees need not have types.
    EXPECT_EQ(waysOf(binary(conditional(literal("1"), literal("3"), use(m_a)), BinaryOperator::Equal, literal("3"))),
              "true");
}

} // namespace

} // namespace Kova::Tests
