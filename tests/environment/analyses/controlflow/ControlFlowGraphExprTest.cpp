// SPDX-License-Identifier: MIT
#include "environment/analyses/controlflow/ControlFlowGraphExpr.h"

#include "environment/analyses/controlflow/ControlFlowGraphExprBuilder.h"
#include "environment/tessel/IfStatement.h"
#include "environment/tessel/NullStatement.h"
#include "environment/tessel/WhileStatement.h"
#include "tests/environment/analyses/controlflow/FlowText.h"
#include "tests/environment/support/Build.h"
#include "tests/environment/support/EveryNode.h"

#include <gtest/gtest.h>

using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

class ControlFlowGraphExprTest : public testing::Test {
protected:
    static std::string textOf(StatementBase& statement, bool splits = true) {
        ControlFlowGraphExpr graph;
        ControlFlowGraphExprBuilder(splits).build(statement, graph);
        return Kova::Tests::textOf(graph);
    }
    static std::string textOf(const StatementPtr& statement, bool splits = true) { return textOf(*statement, splits); }

    VariableDeclaration a{"a", nullptr};
    VariableDeclaration b{"b", nullptr};
    VariableDeclaration c{"c", nullptr};
};

TEST_F(ControlFlowGraphExprTest, AGraphIsEmptyAtFirst) {
    const ControlFlowGraphExpr graph;
    EXPECT_TRUE(graph.getBasicBlocks().empty());
    EXPECT_EQ(graph.getEntry(), nullptr);
    EXPECT_EQ(graph.getExit(), nullptr);
}

TEST_F(ControlFlowGraphExprTest, NothingToEvaluateLeavesEntryAndExit) {
    for (const bool splits : {false, true}) {
        EXPECT_EQ(textOf(std::make_unique<NullStatement>(), splits), "entry: exit\nexit\n");
        EXPECT_EQ(textOf(block(block(), block()), splits), "entry: exit\nexit\n");
        EXPECT_EQ(textOf(statement(nullptr), splits), "entry: exit\nexit\n");
    }
    ControlFlowGraphExpr graph;
    NullStatement nothing;
    ControlFlowGraphExprBuilder(true).build(nothing, graph);
    ASSERT_EQ(graph.getBasicBlocks().size(), 2U);
    EXPECT_EQ(graph.getEntry(), graph.getBasicBlocks().front());
    EXPECT_EQ(graph.getExit(), graph.getBasicBlocks().back());
    EXPECT_TRUE(graph.getEntry()->isReachable());
    EXPECT_TRUE(graph.getExit()->isReachable());
    EXPECT_TRUE(graph.getExit()->getSuccessors().empty());
    EXPECT_EQ(graph.getEntry()->getTransfers(), std::vector<ControlTransfer>{ControlTransfer::Next});
}

TEST_F(ControlFlowGraphExprTest, BuildingAnewReplacesAll) {
    ControlFlowGraphExpr graph;
    const auto first =
        block(statement(use(a)), std::make_unique<IfStatement>(use(b), block(statement(use(c))), nullptr));
    const auto second = statement(use(b));
    const ControlFlowGraphExprBuilder builder(true);
    builder.build(*first, graph);
    EXPECT_EQ(Kova::Tests::textOf(graph), "entry: 1\n1 [a] [b]: +2, -exit\n2 [c]: exit\nexit\n");
    builder.build(*second, graph);
    EXPECT_EQ(Kova::Tests::textOf(graph), "entry: 1\n1 [b]: exit\nexit\n");
}

TEST_F(ControlFlowGraphExprTest, ExpressionsOfOneWayAreOneBlock) {
    EXPECT_EQ(textOf(block(statement(use(a)), block(statement(use(b))), std::make_unique<NullStatement>(),
                           statement(use(c)))),
              "entry: 1\n1 [a] [b] [c]: exit\nexit\n");
}

TEST_F(ControlFlowGraphExprTest, AnExpressionOutsideOfEveryBlockIsEnough) {
    const auto sum = statement(assign(use(a), binary(use(b), BinaryOperator::LogicalAnd, use(c))));
    EXPECT_EQ(textOf(sum), "entry: 1\n1 [b]: +2, -3\n2 [c]: 3\n3 [a = b && c]: exit\nexit\n");
    EXPECT_EQ(textOf(sum, false), "entry: 1\n1 [a = b && c]: exit\nexit\n");
}

TEST_F(ControlFlowGraphExprTest, LoopsLeadBack) {
    EXPECT_EQ(textOf(std::make_unique<WhileStatement>(use(a), block(statement(use(b))))),
              "entry: 1\n1 [a]: +2, -exit\n2 [b]: ^1\nexit\n");
    EXPECT_EQ(textOf(std::make_unique<WhileStatement>(use(a), block())), "entry: 1\n1 [a]: ^1, -exit\nexit\n");
}

TEST_F(ControlFlowGraphExprTest, WhatTreesLeaveOutIsNoMatter) {
    EveryNode every;
    for (const bool splits : {false, true})
        for (auto& node : every.nodes) {
            auto* whole = dynamic_cast<StatementBase*>(node.get());
            if (whole == nullptr)
                continue;
            ControlFlowGraphExpr graph;
            ControlFlowGraphExprBuilder(splits).build(*whole, graph);
            EXPECT_GE(graph.getBasicBlocks().size(), 2U);
        }
    for (auto& node : every.nodes)
        if (dynamic_cast<ExpressionBase*>(node.get()) != nullptr) {
            const auto whole = statement(ExpressionPtr(static_cast<ExpressionBase*>(node.release())));
            ControlFlowGraphExpr graph;
            ControlFlowGraphExprBuilder(true).build(*whole, graph);
            EXPECT_GE(graph.getBasicBlocks().size(), 2U);
        }
}

TEST_F(ControlFlowGraphExprTest, OperatorsOfAnyNumberAndDepth) {
    ExpressionPtr sum = use(a);
    ExpressionPtr all = use(a);
    for (int i = 1; i < 20'000; ++i) {
        sum = binary(std::move(sum), BinaryOperator::Add, use(a));
        all = binary(std::move(all), BinaryOperator::LogicalAnd, use(a));
    }
    ControlFlowGraphExpr graph;
    const auto ofSum = statement(std::move(sum));
    ControlFlowGraphExprBuilder(true).build(*ofSum, graph);
    EXPECT_EQ(graph.getBasicBlocks().size(), 3U);
    const auto ofAll = statement(std::move(all));
    ControlFlowGraphExprBuilder(true).build(*ofAll, graph);
    ASSERT_EQ(graph.getBasicBlocks().size(), 20'002U);
    for (std::size_t i = 1; i < 20'000; ++i)
        ASSERT_EQ(graph.getBasicBlocks()[i]->getSuccessors(),
                  (std::vector<ControlFlowGraphExpr::BasicBlock*>{graph.getBasicBlocks()[i + 1], graph.getExit()}));
    // To the right as well, and in a condition below as many negations.
    ExpressionPtr nested = use(a);
    for (int i = 0; i < 1000; ++i)
        nested = unary(UnaryOperator::LogicalNot, binary(use(b), BinaryOperator::LogicalOr, std::move(nested)));
    const auto branch = std::make_unique<IfStatement>(std::move(nested), block(statement(use(c))), nullptr);
    ControlFlowGraphExprBuilder(true).build(*branch, graph);
    EXPECT_EQ(graph.getBasicBlocks().size(), 1001U + 1U + 2U);
    ControlFlowGraphExprBuilder(false).build(*branch, graph);
    EXPECT_EQ(graph.getBasicBlocks().size(), 4U);
}

TEST_F(ControlFlowGraphExprTest, AThousandChoicesInsideEachOther) {
    ExpressionPtr inFirst = use(a);
    ExpressionPtr inCondition = use(a);
    for (int i = 0; i < 1000; ++i) {
        inFirst = conditional(use(b), std::move(inFirst), use(c));
        inCondition = conditional(std::move(inCondition), use(b), use(c));
    }
    ControlFlowGraphExpr graph;
    const auto whole = block(statement(assign(use(a), std::move(inFirst))));
    ControlFlowGraphExprBuilder(true).build(*whole, graph);
    EXPECT_EQ(graph.getBasicBlocks().size(), 2001U + 1U + 2U);
    const auto other = block(statement(assign(use(a), std::move(inCondition))));
    ControlFlowGraphExprBuilder(true).build(*other, graph);
    EXPECT_EQ(graph.getBasicBlocks().size(), 2001U + 1U + 2U);
}

TEST_F(ControlFlowGraphExprTest, TenThousandStatementsAndAThousandLevels) {
    auto many = block();
    for (int i = 0; i < 10'000; ++i)
        many->append(statement(use(a)));
    ControlFlowGraphExpr graph;
    ControlFlowGraphExprBuilder(true).build(*many, graph);
    ASSERT_EQ(graph.getBasicBlocks().size(), 3U);
    EXPECT_EQ(graph.getBasicBlocks()[1]->getExpressions().size(), 10'000U);
    auto deep = block(statement(use(a)));
    for (int i = 0; i < 1000; ++i)
        deep = block(std::make_unique<WhileStatement>(use(b), std::move(deep)));
    ControlFlowGraphExprBuilder(true).build(*deep, graph);
    EXPECT_EQ(graph.getBasicBlocks().size(), 1001U + 2U);
}

} // namespace
