// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/LoopCounter_p.h"
#include "environment/tessel/DeclarationStatement.h"
#include "environment/tessel/DoWhileStatement.h"
#include "tests/environment/analyses/lamport/ArrowSample.h"

#include <gtest/gtest.h>

using namespace DepGraph;
using namespace Kova::Tessel;
using namespace Kova::Tests;
using B = BinaryOperator;
using U = UnaryOperator;

namespace {

class LoopCounterTest : public testing::Test {
protected:
    static const VariableDeclaration* counterOf(StatementPtr initialization, ExpressionPtr condition,
                                                ExpressionPtr increment) {
        return findNamingCounter(
            ForStatement(std::move(initialization), std::move(condition), std::move(increment), block()));
    }

    VariableDeclaration i{"i", nullptr};
    VariableDeclaration j{"j", nullptr};
};

} // namespace

TEST_F(LoopCounterTest, IsWhatTheIncrementChanges) {
    for (const U step : {U::PreIncrement, U::PreDecrement, U::PostIncrement, U::PostDecrement})
        EXPECT_EQ(counterOf(statement(assign(use(j), literal("0"))), use(j), unary(step, use(i))), &i);
    EXPECT_EQ(counterOf(nullptr, nullptr, assign(use(i), use(j))), &i);
    EXPECT_EQ(counterOf(nullptr, nullptr, std::make_unique<AssignmentExpression>(use(i), literal("2"), B::Add)), &i);
}

TEST_F(LoopCounterTest, TheConditionChoosesAmongSeveral) {
    const auto both = [this] {
        return binary(unary(U::PostIncrement, use(j)), B::Comma, unary(U::PostIncrement, use(i)));
    };
    EXPECT_EQ(counterOf(nullptr, binary(use(i), B::Less, literal("9")), both()), &i);
    EXPECT_EQ(counterOf(nullptr, binary(use(j), B::Less, use(i)), both()), &j);
    EXPECT_EQ(counterOf(nullptr, nullptr, both()), &j);
}

TEST_F(LoopCounterTest, WithoutAnIncrementTheInitializationDecides) {
    EXPECT_EQ(counterOf(statement(assign(use(i), literal("0"))), nullptr, nullptr), &i);
    auto declaration = std::make_unique<DeclarationStatement>();
    auto counter = std::make_unique<VariableDeclaration>("k", nullptr, literal("0"));
    const VariableDeclaration* expected = counter.get();
    declaration->append(std::move(counter));
    const ForStatement loop(std::move(declaration), nullptr, nullptr, block());
    EXPECT_EQ(findNamingCounter(loop), expected);
}

TEST_F(LoopCounterTest, NoCounter) {
    EXPECT_EQ(counterOf(nullptr, use(i), nullptr), nullptr);
    EXPECT_EQ(counterOf(nullptr, use(i), assign(subscript(use(i), literal("0")), literal("0"))), nullptr);
    EXPECT_EQ(counterOf(nullptr, use(i), unary(U::Minus, use(i))), nullptr);
    EXPECT_EQ(findNamingCounter(WhileStatement(use(i), block(statement(assign(use(i), use(j)))))), nullptr);
    EXPECT_EQ(findNamingCounter(DoWhileStatement(block(), use(i))), nullptr);
}
