// SPDX-License-Identifier: MIT
#include "environment/tessel/SubroutineCallExpression.h"

#include "environment/tessel/GenericSelectionExpression.h"
#include "tests/environment/support/Build.h"

#include <gtest/gtest.h>

using namespace Kova::Tessel;
using namespace Kova::Tests;
using U = UnaryOperator;

namespace {

class SubroutineCallExpressionTest : public testing::Test {
protected:
    SubroutineDeclaration* calledBy(ExpressionPtr callee) {
        return SubroutineCallExpression(std::move(callee)).getSubroutine();
    }

    SubroutineDeclaration f{"f", nullptr};
    VariableDeclaration pointer{"p", nullptr};
};

TEST_F(SubroutineCallExpressionTest, HoldsCalleeAndArguments) {
    const ExpressionPtr node = call(f, literal("1"), literal("2"));
    const auto& made = static_cast<SubroutineCallExpression&>(*node);
    EXPECT_EQ(made.getArgumentCount(), 2U);
    EXPECT_EQ(made.getCallee(), made.getChild(0));
    EXPECT_EQ(made.getArgument(0), made.getChild(1));
    EXPECT_EQ(made.getArgument(1), made.getChild(2));
    EXPECT_EQ(made.getArgument(2), nullptr);
}

TEST_F(SubroutineCallExpressionTest, KnowsWhatIsCalledByName) {
    EXPECT_EQ(calledBy(use(f)), &f);
    EXPECT_EQ(calledBy(unary(U::Dereference, use(f))), &f);
    EXPECT_EQ(calledBy(unary(U::AddressOf, use(f))), &f);
    EXPECT_EQ(calledBy(unary(U::Dereference, unary(U::AddressOf, use(f)))), &f);
    EXPECT_EQ(calledBy(unary(U::Extension, use(f))), &f);
}

TEST_F(SubroutineCallExpressionTest, KnowsWhatAGenericSelectionChooses) {
    for (const std::size_t chosen : {0U, 1U, 2U}) {
        auto selection = std::make_unique<GenericSelectionExpression>(literal("1"), chosen);
        selection->appendAssociation(nullptr, use(f));
        selection->appendAssociation(nullptr, use(pointer));
        EXPECT_EQ(calledBy(std::move(selection)), chosen == 0 ? &f : nullptr);
    }
}

TEST_F(SubroutineCallExpressionTest, KnowsNothingOfACallThroughAPointer) {
    EXPECT_EQ(calledBy(use(pointer)), nullptr);
    EXPECT_EQ(calledBy(unary(U::Dereference, use(pointer))), nullptr);
    EXPECT_EQ(calledBy(unary(U::Minus, use(f))), nullptr);
    EXPECT_EQ(calledBy(conditional(literal("1"), use(f), use(f))), nullptr);
    EXPECT_EQ(calledBy(nullptr), nullptr);
    EXPECT_EQ(calledBy(unary(U::Dereference, nullptr)), nullptr);
}

} // namespace
