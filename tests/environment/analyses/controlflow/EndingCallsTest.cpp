// SPDX-License-Identifier: MIT
#include "environment/analyses/controlflow/ControlFlowGraph.h"
#include "tests/environment/support/Build.h"

#include <gtest/gtest.h>

namespace Kova::Tests {

namespace {

using namespace Tessel;

/// Calls of what never returns inside other expressions.
class EndingCallsTest : public testing::Test {
protected:
    EndingCallsTest() { m_stop.setNoReturn(true); }

    /// Whether control gets behind a statement of the expression.
    static bool goesOn(ExpressionPtr expression) {
        const auto root = block(statement(std::move(expression)));
        return !ControlFlowGraph(*root).getSuccessors(root->getStatement(0)).empty();
    }
    static ExpressionPtr keptText(ExpressionPtr operand) {
        auto text = make<OpaqueExpression>("__builtin_choose_expr(1, 2, stop())");
        text->appendOperand(std::move(operand));
        return text;
    }

    SubroutineDeclaration m_stop{"stop", nullptr};
    VariableDeclaration m_a{"a", nullptr};
};

TEST_F(EndingCallsTest, ArgumentsAreEvaluated) {
    EXPECT_FALSE(goesOn(call(m_stop)));
    EXPECT_FALSE(goesOn(call(use(m_a), call(m_stop))));
    EXPECT_TRUE(goesOn(call(use(m_a), use(m_stop))));
}

// As of __builtin_choose_expr, which evaluates one of two.
TEST_F(EndingCallsTest, OperandsOfKeptTextsNeedNotBeEvaluated) {
    EXPECT_TRUE(goesOn(keptText(call(m_stop))));
    EXPECT_TRUE(goesOn(assign(use(m_a), keptText(call(use(m_a), call(m_stop))))));
    EXPECT_FALSE(goesOn(call(m_stop, keptText(use(m_a)))));
    EXPECT_FALSE(goesOn(binary(keptText(use(m_a)), BinaryOperator::Add, call(m_stop))));
}

} // namespace

} // namespace Kova::Tests
