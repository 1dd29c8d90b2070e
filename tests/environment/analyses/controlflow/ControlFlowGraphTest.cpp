// SPDX-License-Identifier: MIT
#include "environment/analyses/controlflow/ControlFlowGraph.h"

#include "environment/tessel/BreakStatement.h"
#include "environment/tessel/CaseStatement.h"
#include "environment/tessel/ContinueStatement.h"
#include "environment/tessel/DoWhileStatement.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/GotoStatement.h"
#include "environment/tessel/IfStatement.h"
#include "environment/tessel/LabelStatement.h"
#include "environment/tessel/NullStatement.h"
#include "environment/tessel/ReturnStatement.h"
#include "environment/tessel/SwitchStatement.h"
#include "environment/tessel/WhileStatement.h"
#include "tests/environment/analyses/controlflow/FlowText.h"
#include "tests/environment/support/Build.h"
#include "tests/environment/support/EveryNode.h"

#include <gtest/gtest.h>

using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

class ControlFlowGraphTest : public testing::Test {
protected:
    StatementPtr does(VariableDeclaration& variable) { return statement(use(variable)); }
    static ExpressionPtr number(int value) {
        auto node = std::make_unique<LiteralExpression>(LiteralExpression::Kind::Integer, std::to_string(value));
        node->setIntegerValue(value);
        return node;
    }
    static StatementPtr jumpTo(StatementBase* label) {
        auto jump = std::make_unique<GotoStatement>(static_cast<LabelStatement*>(label)->getName());
        jump->setLabel(static_cast<LabelStatement*>(label));
        return jump;
    }
    static std::string textOf(const std::unique_ptr<BlockStatement>& block) {
        return Kova::Tests::textOf(ControlFlowGraph(*block));
    }

    VariableDeclaration a{"a", nullptr};
    VariableDeclaration b{"b", nullptr};
    VariableDeclaration c{"c", nullptr};
    VariableDeclaration x{"x", nullptr};
    VariableDeclaration y{"y", nullptr};
};

TEST_F(ControlFlowGraphTest, AnEmptyBlockHasNothingToTransferControl) {
    const auto empty = block();
    const ControlFlowGraph graph(*empty);
    EXPECT_EQ(graph.getStatements(), std::vector<const StatementBase*>{empty.get()});
    EXPECT_TRUE(graph.getSuccessors(empty.get()).empty());
    EXPECT_TRUE(graph.getTransfers(empty.get()).empty());
}

TEST_F(ControlFlowGraphTest, NullAndStatementsOfOthersLeadNowhere) {
    const auto own = block(does(a));
    const auto other = block(does(b));
    const ControlFlowGraph graph(*own);
    for (const StatementBase* one : std::vector<const StatementBase*>{nullptr, other.get(), other->getStatement(0)}) {
        EXPECT_TRUE(graph.getSuccessors(one).empty());
        EXPECT_TRUE(graph.getTransfers(one).empty());
    }
}

TEST_F(ControlFlowGraphTest, StatementsFollowEachOther) {
    EXPECT_EQ(textOf(block(does(a), std::make_unique<NullStatement>(), does(b))), "{}: a, END\n"
                                                                                  "a: ;\n"
                                                                                  ";: b\n"
                                                                                  "b: {}\n");
}

TEST_F(ControlFlowGraphTest, BlocksArePassedTwiceAndEmptyOnesOnce) {
    EXPECT_EQ(textOf(block(block(does(a)), block(), does(b))), "{}: {}#2, END\n"
                                                               "{}#2: a, {}#3\n"
                                                               "a: {}#2\n"
                                                               "{}#3: b\n"
                                                               "b: {}\n");
}

TEST_F(ControlFlowGraphTest, BranchesMeetBehindTheIf) {
    EXPECT_EQ(textOf(block(std::make_unique<IfStatement>(use(a), block(does(x)), block(does(y))), does(b))),
              "{}: if a, END\n"
              "if a: +{if a}, -{else of a}\n"
              "{if a}: x, b\n"
              "x: {if a}\n"
              "{else of a}: y, b\n"
              "y: {else of a}\n"
              "b: {}\n");
    EXPECT_EQ(textOf(block(std::make_unique<IfStatement>(use(a), block(), nullptr))), "{}: if a, END\n"
                                                                                      "if a: +{if a}, -{}\n"
                                                                                      "{if a}: {}\n");
}

TEST_F(ControlFlowGraphTest, OneBranchLeadsToTheNextOfAChain) {
    auto second = std::make_unique<IfStatement>(use(b), block(does(y)), nullptr);
    EXPECT_EQ(textOf(block(std::make_unique<IfStatement>(use(a), block(does(x)), block(std::move(second))), does(c))),
              "{}: if a, END\n"
              "if a: +{if a}, -if b\n"
              "{if a}: x, c\n"
              "x: {if a}\n"
              "if b: +{if b}, -c\n"
              "{if b}: y, c\n"
              "y: {if b}\n"
              "c: {}\n");
}

TEST_F(ControlFlowGraphTest, LoopsRepeatAndEnd) {
    EXPECT_EQ(textOf(block(std::make_unique<WhileStatement>(use(a), block(does(x))), does(b))),
              "{}: while a, END\n"
              "while a: +{while a}, -b\n"
              "{while a}: x, ^while a\n"
              "x: {while a}\n"
              "b: {}\n");
    // The loop comes into its body without its condition at first.
    EXPECT_EQ(textOf(block(std::make_unique<DoWhileStatement>(block(does(x)), use(a)), does(b))), "{}: do a, END\n"
                                                                                                  "do a: ^{do a}, -b\n"
                                                                                                  "{do a}: x, do a\n"
                                                                                                  "x: {do a}\n"
                                                                                                  "b: {}\n");
    EXPECT_EQ(textOf(block(std::make_unique<DoWhileStatement>(block(does(x)), number(0)), does(b))),
              "{}: do 0, END\n"
              "do 0: {do 0}, -b\n"
              "{do 0}: x, do 0\n"
              "x: {do 0}\n"
              "b: {}\n");
}

TEST_F(ControlFlowGraphTest, TheHeaderOfALoopBelongsToTheLoop) {
    EXPECT_EQ(textOf(block(std::make_unique<ForStatement>(does(a), use(b), use(c), block(does(x))), does(y))),
              "{}: for b, END\n"
              "for b: +{for b}, -y\n"
              "{for b}: x, ^for b\n"
              "x: {for b}\n"
              "y: {}\n");
    EXPECT_EQ(textOf(block(std::make_unique<ForStatement>(nullptr, nullptr, nullptr, block()), does(y))),
              "{}: for , END\n"
              "for : +{for }\n"
              "{for }: ^for \n"
              "y: {}\n");
}

TEST_F(ControlFlowGraphTest, JumpsLeaveAndRepeatTheInnermostLoop) {
    auto inner = std::make_unique<WhileStatement>(
        use(b), block(std::make_unique<IfStatement>(use(x), block(std::make_unique<BreakStatement>()), nullptr),
                      std::make_unique<ContinueStatement>()));
    EXPECT_EQ(textOf(block(std::make_unique<WhileStatement>(
                  use(a), block(std::move(inner), std::make_unique<BreakStatement>())))),
              "{}: while a, END\n"
              "while a: +{while a}, -{}\n"
              "{while a}: while b, ^while a\n"
              "while b: +{while b}, -break#2\n"
              "{while b}: if x, ^while b\n"
              "if x: +{if x}, -continue\n"
              "{if x}: break, continue\n"
              "break: @break#2\n"
              "continue: ^while b\n"
              "break#2: @{}\n");
}

TEST_F(ControlFlowGraphTest, ASwitchLeadsToItsLabels) {
    EXPECT_EQ(textOf(block(std::make_unique<SwitchStatement>(
                               use(a), block(does(c), std::make_unique<CaseStatement>(number(1), nullptr), does(x),
                                             std::make_unique<CaseStatement>(number(2), number(9)),
                                             std::make_unique<BreakStatement>(),
                                             std::make_unique<CaseStatement>(nullptr, nullptr), does(y))),
                           does(b))),
              "{}: switch a, END\n"
              "switch a: @case 1, @case 2, @default\n"
              "{switch a}: b\n"
              "c: case 1\n"
              "case 1: x\n"
              "x: case 2\n"
              "case 2: break\n"
              "break: @b\n"
              "default: y\n"
              "y: {switch a}\n"
              "b: {}\n");
    EXPECT_EQ(textOf(block(std::make_unique<SwitchStatement>(
                               use(a), block(std::make_unique<CaseStatement>(number(1), nullptr), does(x))),
                           does(b))),
              "{}: switch a, END\n"
              "switch a: b, @case 1\n"
              "{switch a}: b\n"
              "case 1: x\n"
              "x: {switch a}\n"
              "b: {}\n");
}

TEST_F(ControlFlowGraphTest, ASwitchWithoutLabelsLeadsBehindIt) {
    EXPECT_EQ(textOf(block(std::make_unique<SwitchStatement>(use(a), block(does(x))), does(b))), "{}: switch a, END\n"
                                                                                                 "switch a: b\n"
                                                                                                 "{switch a}: b\n"
                                                                                                 "x: {switch a}\n"
                                                                                                 "b: {}\n");
    EXPECT_EQ(textOf(block(std::make_unique<SwitchStatement>(use(a), block()), does(b))), "{}: switch a, END\n"
                                                                                          "switch a: b\n"
                                                                                          "{switch a}: b\n"
                                                                                          "b: {}\n");
}

TEST_F(ControlFlowGraphTest, ALabelIsJumpedTo) {
    auto body = block(std::make_unique<LabelStatement>("L"), does(a));
    body->append(jumpTo(body->getStatement(0)));
    body->append(does(b));
    EXPECT_EQ(textOf(body), "{}: L:, END\n"
                            "L:: a\n"
                            "a: goto L\n"
                            "goto L: @L:\n"
                            "b: {}\n");
    auto alone = block(std::make_unique<LabelStatement>("L"));
    alone->append(jumpTo(alone->getStatement(0)));
    EXPECT_EQ(textOf(alone), "{}: L:, END\n"
                             "L:: goto L\n"
                             "goto L: @L:\n");
}

TEST_F(ControlFlowGraphTest, ReturnEndsTheSubroutineAndSomeCallsEndAll) {
    SubroutineDeclaration stop("stop", nullptr);
    stop.setNoReturn(true);
    EXPECT_EQ(textOf(block(std::make_unique<ReturnStatement>(use(a)), statement(call(stop)), does(b))),
              "{}: return a, END\n"
              "return a: @END\n"
              "stop():\n"
              "b: {}\n");
}

TEST_F(ControlFlowGraphTest, StatementsComeInProgramOrder) {
    const auto body =
        block(std::make_unique<IfStatement>(use(a), block(does(x)), block(block(), does(y))),
              std::make_unique<ForStatement>(does(a), use(b), use(c), block(std::make_unique<ContinueStatement>())),
              std::make_unique<DoWhileStatement>(block(does(b)), use(c)));
    const StatementNames names(*body);
    std::string order;
    const ControlFlowGraph graph(*body);
    for (const StatementBase* one : graph.getStatements())
        order += names.of(one) + " | ";
    EXPECT_EQ(order, "{} | if a | {if a} | x | {else of a} | {}#2 | y | for b | {for b} | continue | do c | {do c} | "
                     "b | ");
}

TEST_F(ControlFlowGraphTest, SuccessorsWithoutJumpsComeFirst) {
    // Both ways of the if come to the same place: the true one counts.
    EXPECT_EQ(textOf(block(std::make_unique<WhileStatement>(
                  use(a), block(std::make_unique<SwitchStatement>(
                              use(b), block(std::make_unique<CaseStatement>(nullptr, nullptr))))))),
              "{}: while a, END\n"
              "while a: +{while a}, -{}\n"
              "{while a}: switch b, ^while a\n"
              "switch b: @default\n"
              "{switch b}: {while a}\n"
              "default: {switch b}\n");
    auto body = block(
        std::make_unique<SwitchStatement>(use(a), block(std::make_unique<CaseStatement>(number(7), nullptr), does(x))),
        does(y));
    const ControlFlowGraph graph(*body);
    EXPECT_EQ(
        graph.getSuccessors(body->getStatement(0)),
        (std::vector<const StatementBase*>{
            body->getStatement(1), static_cast<SwitchStatement*>(body->getStatement(0))->getBody()->getStatement(0)}));
    EXPECT_EQ(graph.getTransfers(body->getStatement(0)),
              (std::vector<ControlTransfer>{ControlTransfer::Next, ControlTransfer::Jump}));
}

TEST_F(ControlFlowGraphTest, ABlockInsideHasItsSurroundings) {
    const auto body = block(
        std::make_unique<WhileStatement>(
            use(a), block(std::make_unique<IfStatement>(use(b), block(std::make_unique<BreakStatement>()), nullptr),
                          std::make_unique<ReturnStatement>(nullptr))),
        does(y));
    const auto& loop = static_cast<const WhileStatement&>(*body->getStatement(0));
    EXPECT_EQ(Kova::Tests::textOf(ControlFlowGraph(*loop.getBody())), "{while a}: if b, ^<while a>\n"
                                                                      "if b: +{if b}, -return\n"
                                                                      "{if b}: break, return\n"
                                                                      "break: @<y>\n"
                                                                      "return: @END\n");
    const auto& branch = static_cast<const IfStatement&>(*loop.getBody()->getStatement(0));
    EXPECT_EQ(Kova::Tests::textOf(ControlFlowGraph(*branch.getThenBlock())), "{if b}: break, <return>\n"
                                                                             "break: @<y>\n");
}

TEST_F(ControlFlowGraphTest, FortranLoopsAndLabels) {
    auto loop = std::make_unique<ForStatement>(statement(assign(use(a), number(1))),
                                               binary(use(a), BinaryOperator::LessEqual, use(b)), use(a),
                                               block(std::make_unique<IfStatement>(use(c), block(), nullptr),
                                                     std::make_unique<LabelStatement>("10"), does(x)));
    loop->setCounted(true);
    BlockStatement& inside = *loop->getBody();
    static_cast<IfStatement*>(inside.getStatement(0))->getThenBlock()->append(jumpTo(inside.getStatement(1)));
    EXPECT_EQ(textOf(block(std::move(loop), does(y))), "{}: for a <= b, END\n"
                                                       "for a <= b: +{for a <= b}, -y\n"
                                                       "{for a <= b}: if c, ^for a <= b\n"
                                                       "if c: +{if c}, -10:\n"
                                                       "{if c}: goto 10, 10:\n"
                                                       "goto 10: @10:\n"
                                                       "10:: x\n"
                                                       "x: {for a <= b}\n"
                                                       "y: {}\n");
}

TEST_F(ControlFlowGraphTest, WhatTreesLeaveOutIsNoMatter) {
    EveryNode every;
    auto body = block();
    for (auto& node : every.nodes) {
        if (dynamic_cast<StatementBase*>(node.get()) != nullptr)
            body->append(StatementPtr(static_cast<StatementBase*>(node.release())));
        else if (dynamic_cast<ExpressionBase*>(node.get()) != nullptr)
            body->append(statement(ExpressionPtr(static_cast<ExpressionBase*>(node.release()))));
    }
    const ControlFlowGraph graph(*body);
    EXPECT_GE(graph.getStatements().size(), body->getChildCount());
    for (const StatementBase* one : graph.getStatements())
        EXPECT_EQ(graph.getSuccessors(one).size(), graph.getTransfers(one).size());
}

TEST_F(ControlFlowGraphTest, JumpsWithoutATargetAreKept) {
    EXPECT_EQ(textOf(block(std::make_unique<GotoStatement>("nowhere"), does(a))), "{}: goto nowhere, END\n"
                                                                                  "goto nowhere: @END\n"
                                                                                  "a: {}\n");
    // Neither has anything to leave or to repeat.
    const auto body = block(std::make_unique<BreakStatement>(), std::make_unique<ContinueStatement>());
    const ControlFlowGraph graph(*body);
    EXPECT_EQ(graph.getStatements().size(), 3U);
}

TEST_F(ControlFlowGraphTest, TenThousandStatements) {
    auto body = block();
    for (int i = 0; i < 10'000; ++i)
        body->append(does(a));
    const ControlFlowGraph graph(*body);
    ASSERT_EQ(graph.getStatements().size(), 10'001U);
    for (std::size_t i = 0; i < 9'999; ++i)
        ASSERT_EQ(graph.getSuccessors(body->getStatement(i)),
                  std::vector<const StatementBase*>{body->getStatement(i + 1)});
    EXPECT_EQ(graph.getSuccessors(body->getStatement(9'999)), std::vector<const StatementBase*>{body.get()});
}

TEST_F(ControlFlowGraphTest, AThousandLevels) {
    auto body = block(does(x));
    for (int i = 0; i < 1000; ++i) {
        StatementPtr around;
        switch (i % 4) {
        case 0:
            around = std::move(body);
            break;
        case 1:
            around = std::make_unique<IfStatement>(use(a), std::move(body), nullptr);
            break;
        case 2:
            around = std::make_unique<WhileStatement>(use(b), std::move(body));
            break;
        default:
            around = std::make_unique<SwitchStatement>(use(c), std::move(body));
        }
        body = block(std::move(around));
    }
    const ControlFlowGraph graph(*body);
    // The outermost block; with every level a block, and for three of four a statement.
    EXPECT_EQ(graph.getStatements().size(), 1U + 1000U + 750U + 1U);
    const StatementBase* last = graph.getStatements().back();
    EXPECT_EQ(graph.getSuccessors(last),
              std::vector<const StatementBase*>{dynamic_cast<const StatementBase*>(last->getParent())});
}

TEST_F(ControlFlowGraphTest, FiveThousandLabels) {
    auto labels = block();
    for (int i = 0; i < 5000; ++i) {
        labels->append(std::make_unique<CaseStatement>(number(i), nullptr));
        labels->append(std::make_unique<BreakStatement>());
    }
    const auto body = block(std::make_unique<SwitchStatement>(use(a), std::move(labels)), does(b));
    const ControlFlowGraph graph(*body);
    const auto& successors = graph.getSuccessors(body->getStatement(0));
    const BlockStatement& inside = *static_cast<SwitchStatement*>(body->getStatement(0))->getBody();
    ASSERT_EQ(successors.size(), 5001U);
    EXPECT_EQ(successors.front(), body->getStatement(1));
    for (std::size_t i = 0; i < 5000; ++i)
        ASSERT_EQ(successors[i + 1], inside.getStatement(2 * i));
}

TEST_F(ControlFlowGraphTest, AChainOfTwoThousandBranches) {
    std::unique_ptr<BlockStatement> otherwise;
    for (int i = 0; i < 2000; ++i)
        otherwise = block(std::make_unique<IfStatement>(use(a), block(does(x)), std::move(otherwise)));
    const ControlFlowGraph graph(*otherwise);
    // The block around all, and the if, its block and what is in it of each.
    EXPECT_EQ(graph.getStatements().size(), 1U + 2000U * 3U);
    const auto& outermost = static_cast<const IfStatement&>(*otherwise->getStatement(0));
    EXPECT_EQ(graph.getSuccessors(&outermost),
              (std::vector<const StatementBase*>{outermost.getThenBlock(), outermost.getElseIf()}));
}

} // namespace
