// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/ChangedOperand_p.h"
#include "tests/environment/support/Build.h"

#include <gtest/gtest.h>

using namespace DepGraph;
using namespace Kova::Tessel;
using namespace Kova::Tests;
using B = BinaryOperator;
using U = UnaryOperator;

namespace {

/// The number of the child that is changed; -1 for none.
int changedChild(const ExpressionPtr& node) {
    const ExpressionBase* operand = findChangedOperand(*node);
    return operand == nullptr ? -1 : static_cast<int>(operand->getIndexInParent());
}

} // namespace

TEST(ChangedOperand, Assignments) {
    EXPECT_EQ(changedChild(assign(literal("1"), literal("2"))), 0);
    EXPECT_EQ(changedChild(std::make_unique<AssignmentExpression>(literal("1"), literal("2"), B::Add)), 0);
}

TEST(ChangedOperand, Steps) {
    for (const U step : {U::PreIncrement, U::PreDecrement, U::PostIncrement, U::PostDecrement})
        EXPECT_EQ(changedChild(unary(step, literal("1"))), 0);
}

TEST(ChangedOperand, NothingElse) {
    for (const U other : {U::Plus, U::Minus, U::LogicalNot, U::BitwiseNot, U::Dereference, U::AddressOf})
        EXPECT_EQ(changedChild(unary(other, literal("1"))), -1);
    EXPECT_EQ(changedChild(binary(literal("1"), B::Add, literal("2"))), -1);
    EXPECT_EQ(changedChild(subscript(literal("1"), literal("2"))), -1);
    EXPECT_EQ(findChangedOperand(*statement(literal("1"))), nullptr);
}
