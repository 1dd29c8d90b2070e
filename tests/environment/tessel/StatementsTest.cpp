// SPDX-License-Identifier: MIT
// The parts of the statement nodes and where they stand among the children.
#include "environment/tessel/StatementBase.h"
#include "tests/environment/support/EveryNode.h"

#include <gtest/gtest.h>

using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

/// The children of a node by number.
std::vector<const TesselBase*> childrenOf(const TesselBase& node) {
    std::vector<const TesselBase*> children;
    for (std::size_t i = 0; i < node.getChildCount(); ++i)
        children.push_back(node.getChild(i));
    return children;
}
using Children = std::vector<const TesselBase*>;

TEST(StatementsTest, BlocksHoldStatements) {
    BlockStatement statements;
    EXPECT_TRUE(statements.isEmpty());
    EXPECT_EQ(statements.getStatement(0), nullptr);
    statements.append(std::make_unique<NullStatement>());
    statements.insert(0, std::make_unique<BreakStatement>());
    statements.insert(2, std::make_unique<ContinueStatement>());
    EXPECT_FALSE(statements.isEmpty());
    EXPECT_NE(dynamic_cast<BreakStatement*>(statements.getStatement(0)), nullptr);
    EXPECT_NE(dynamic_cast<ContinueStatement*>(statements.getStatement(2)), nullptr);
    const StatementPtr taken = statements.take(0);
    EXPECT_NE(dynamic_cast<BreakStatement*>(taken.get()), nullptr);
    EXPECT_EQ(taken->getParent(), nullptr);
    EXPECT_EQ(statements.getChildCount(), 2U);
}

TEST(StatementsTest, LoopsHoldTheirPartsInProgramOrder) {
    const ForStatement full(statement(literal("0")), literal("1"), literal("2"), block());
    EXPECT_EQ(childrenOf(full),
              (Children{full.getInitialization(), full.getCondition(), full.getIncrement(), full.getBody()}));
    for (const TesselBase* part : childrenOf(full))
        EXPECT_NE(part, nullptr);
    const ForStatement empty(nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(childrenOf(empty), Children(4, nullptr));
    EXPECT_FALSE(empty.isCounted());
    const WhileStatement loop(literal("1"), block());
    EXPECT_EQ(childrenOf(loop), (Children{loop.getCondition(), loop.getBody()}));
    const DoWhileStatement late(block(), literal("1"));
    EXPECT_EQ(childrenOf(late), (Children{late.getBody(), late.getCondition()}));
    const LoopStatement& base = late;
    EXPECT_EQ(base.getBody(), late.getBody());
    ForStatement counted(nullptr, nullptr, nullptr, block());
    counted.setCounted(true);
    EXPECT_TRUE(counted.isCounted());
}

TEST(StatementsTest, BranchesHoldTheirPartsInProgramOrder) {
    const IfStatement branch(literal("1"), block(), block());
    EXPECT_EQ(childrenOf(branch), (Children{branch.getCondition(), branch.getThenBlock(), branch.getElseBlock()}));
    EXPECT_EQ(IfStatement(literal("1"), block(), nullptr).getElseBlock(), nullptr);
    const SwitchStatement choice(literal("1"), block());
    EXPECT_EQ(childrenOf(choice), (Children{choice.getSelector(), choice.getBody()}));
    const CaseStatement range(literal("1"), literal("2"));
    EXPECT_EQ(childrenOf(range), (Children{range.getValue(), range.getLastValue()}));
    EXPECT_FALSE(range.isDefault());
    EXPECT_TRUE(CaseStatement(nullptr, nullptr).isDefault());
}

TEST(StatementsTest, JumpsKnowTheirTargets) {
    GotoStatement jump("end");
    LabelStatement end("end");
    EXPECT_EQ(jump.getLabelName(), "end");
    EXPECT_EQ(jump.getAddress(), nullptr);
    EXPECT_EQ(jump.getLabel(), nullptr);
    jump.setLabel(&end);
    EXPECT_EQ(jump.getLabel(), &end);
    EXPECT_EQ(end.getName(), "end");
    const GotoStatement computed(literal("1"));
    EXPECT_EQ(computed.getAddress(), computed.getChild(0));
    EXPECT_EQ(computed.getLabelName(), "");
    const ReturnStatement result(literal("1"));
    EXPECT_EQ(result.getValue(), result.getChild(0));
    EXPECT_EQ(ReturnStatement(nullptr).getValue(), nullptr);
}

TEST(StatementsTest, OthersHoldExpressionsAndDeclarations) {
    const ExpressionStatement evaluation(literal("1"));
    EXPECT_EQ(evaluation.getExpression(), evaluation.getChild(0));
    DeclarationStatement declaration;
    declaration.append(std::make_unique<VariableDeclaration>("x", nullptr));
    EXPECT_EQ(declaration.getDeclaration(0)->getName(), "x");
    EXPECT_EQ(declaration.getDeclaration(1), nullptr);
    OpaqueStatement text("asm (\"\");");
    text.appendOperand(literal("1"));
    EXPECT_EQ(text.getText(), "asm (\"\");");
    EXPECT_EQ(text.getChildCount(), 1U);
}

} // namespace
