// SPDX-License-Identifier: MIT
// What is true of the graphs of every function, and that functions that are executed go the graphs' ways.
#include "environment/analyses/controlflow/ControlFlowGraph.h"
#include "environment/analyses/controlflow/ControlFlowGraphExpr.h"
#include "environment/analyses/controlflow/ControlFlowGraphExprBuilder.h"
#include "tests/controlflow/ExpectedEvaluations.h"
#include "tests/controlflow/FunctionGenerator.h"
#include "tests/controlflow/RandomWalk.h"
#include "tests/environment/analyses/controlflow/FlowText.h"
#include "tests/frontends/c/FirstBody.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <map>
#include <optional>
#include <set>

namespace Kova::Test {

using namespace Tessel;

namespace {

void forEachFunction(const std::function<void(BlockStatement&, unsigned)>& look) {
    const char* wanted = std::getenv("KOVA_GENERATED_FUNCTIONS");
    const unsigned count = wanted != nullptr ? static_cast<unsigned>(std::atol(wanted)) : 100;
    for (unsigned seed = 1; seed <= count && !testing::Test::HasFailure(); ++seed) {
        const std::string text = FunctionGenerator(seed).write();
        SCOPED_TRACE("seed " + std::to_string(seed) + "\n" + text);
        const FirstBody body(text);
        look(body.get(), seed);
    }
}

template <class T>
bool holds(const std::vector<T>& all, const T& one) {
    return std::find(all.begin(), all.end(), one) != all.end();
}

TEST(GeneratedFlowTest, aBlockInsideHasTheGraphOfTheWholeRestricted) {
    forEachFunction([](const BlockStatement& body, unsigned) {
        const ControlFlowGraph whole(body);
        const Tests::StatementNames names(body);
        for (const StatementBase* inside : whole.getStatements()) {
            const auto* block = dynamic_cast<const BlockStatement*>(inside);
            if (block == nullptr || block->isEmpty())
                continue;
            const ControlFlowGraph part(*block);
            ASSERT_EQ(part.getStatements().front(), block);
            for (const StatementBase* statement : part.getStatements()) {
                ASSERT_TRUE(holds(whole.getStatements(), statement));
                EXPECT_EQ(part.getSuccessors(statement), whole.getSuccessors(statement)) << names.of(statement);
                EXPECT_EQ(part.getTransfers(statement), whole.getTransfers(statement)) << names.of(statement);
            }
        }
    });
}

TEST(GeneratedFlowTest, successorsAreOrderedAndOfTheFunction) {
    forEachFunction([](const BlockStatement& body, unsigned) {
        const ControlFlowGraph graph(body);
        for (const StatementBase* statement : graph.getStatements()) {
            const auto& successors = graph.getSuccessors(statement);
            const auto& transfers = graph.getTransfers(statement);
            ASSERT_EQ(successors.size(), transfers.size());
            EXPECT_EQ(std::set<const StatementBase*>(successors.begin(), successors.end()).size(), successors.size());
            const auto isJump = [](ControlTransfer transfer) { return transfer == ControlTransfer::Jump; };
            EXPECT_TRUE(std::is_partitioned(transfers.begin(), transfers.end(),
                                            [&](ControlTransfer transfer) { return !isJump(transfer); }));
            for (const StatementBase* successor : successors)
                EXPECT_TRUE(successor == nullptr || holds(graph.getStatements(), successor));
        }
    });
}

TEST(GeneratedFlowTest, everyExpressionIsInOneBlockInOrder) {
    forEachFunction([](BlockStatement& body, unsigned) {
        for (const bool splits : {false, true}) {
            ControlFlowGraphExpr graph;
            ControlFlowGraphExprBuilder(splits).build(body, graph);
            std::map<const ExpressionBase*, std::size_t> place;
            for (const ExpressionBase* expression : ExpectedEvaluations(splits).of(body))
                place.emplace(expression, place.size());
            std::size_t listed = 0;
            std::optional<std::size_t> firstBefore;
            for (const ControlFlowGraphExpr::BasicBlock* block : graph.getBasicBlocks()) {
                const bool isEnd = block == graph.getEntry() || block == graph.getExit();
                EXPECT_EQ(block->getExpressions().empty(), isEnd);
                std::optional<std::size_t> before;
                for (const ExpressionBase* expression : block->getExpressions()) {
                    ASSERT_EQ(place.count(expression), 1U);
                    EXPECT_TRUE(!before || *before < place.at(expression)) << Tests::textOf(graph);
                    before = place.at(expression);
                    ++listed;
                }
                if (isEnd)
                    continue;
                const std::size_t first = place.at(block->getExpressions().front());
                EXPECT_TRUE(!firstBefore || *firstBefore < first) << Tests::textOf(graph);
                firstBefore = first;
            }
            // Ordered as they are, none is there twice.
            EXPECT_EQ(listed, place.size());
        }
    });
}

TEST(GeneratedFlowTest, blocksHangTogether) {
    using BasicBlock = ControlFlowGraphExpr::BasicBlock;
    forEachFunction([](BlockStatement& body, unsigned) {
        for (const bool splits : {false, true}) {
            ControlFlowGraphExpr graph;
            ControlFlowGraphExprBuilder(splits).build(body, graph);
            std::set<BasicBlock*> reached;
            std::vector<BasicBlock*> open = {graph.getEntry()};
            while (!open.empty()) {
                BasicBlock* block = open.back();
                open.pop_back();
                if (reached.insert(block).second)
                    open.insert(open.end(), block->getSuccessors().begin(), block->getSuccessors().end());
            }
            for (BasicBlock* block : graph.getBasicBlocks()) {
                EXPECT_EQ(block->isReachable(), reached.count(block) == 1);
                EXPECT_EQ(block->getSuccessors().size(), block->getTransfers().size());
                for (BasicBlock* next : block->getSuccessors())
                    EXPECT_TRUE(holds(graph.getBasicBlocks(), next) && next != graph.getEntry());
            }
            EXPECT_TRUE(graph.getExit()->getSuccessors().empty());
        }
    });
}

/// The pairs of expressions of which one is evaluated right after the other; null before the first and after the last.
std::set<std::pair<const ExpressionBase*, const ExpressionBase*>> stepsOf(const ControlFlowGraphExpr& graph) {
    std::set<std::pair<const ExpressionBase*, const ExpressionBase*>> steps;
    for (const ControlFlowGraphExpr::BasicBlock* block : graph.getBasicBlocks()) {
        const ExpressionBase* last = nullptr;
        for (const ExpressionBase* expression : block->getExpressions()) {
            if (last != nullptr)
                steps.emplace(last, expression);
            last = expression;
        }
        for (const ControlFlowGraphExpr::BasicBlock* next : block->getSuccessors())
            steps.emplace(last, next->getExpressions().empty() ? nullptr : next->getExpressions().front());
    }
    return steps;
}

TEST(GeneratedFlowTest, executionsGoTheWaysOfTheGraphs) {
    std::size_t passed = 0;
    forEachFunction([&](BlockStatement& body, unsigned seed) {
        const ControlFlowGraph statements(body);
        ControlFlowGraphExpr expressions;
        ControlFlowGraphExprBuilder(true).build(body, expressions);
        const auto steps = stepsOf(expressions);
        const Tests::StatementNames names(body);
        for (unsigned i = 0; i < 20 && !testing::Test::HasFailure(); ++i) {
            RandomWalk walk(seed * 100 + i, 400);
            walk.run(body);
            const auto& visited = walk.getStatements();
            for (std::size_t k = 0; k + 1 < visited.size(); ++k)
                EXPECT_TRUE(holds(statements.getSuccessors(visited[k]), visited[k + 1]))
                    << names.of(visited[k]) << " -> " << names.of(visited[k + 1]);
            const auto& evaluated = walk.getExpressions();
            for (std::size_t k = 0; k + 1 < evaluated.size(); ++k)
                EXPECT_EQ(steps.count({evaluated[k], evaluated[k + 1]}), 1U) << k << "\n" << Tests::textOf(expressions);
            passed += visited.size();
        }
    });
    EXPECT_GE(passed, 5000U);
}

} // namespace

} // namespace Kova::Test
