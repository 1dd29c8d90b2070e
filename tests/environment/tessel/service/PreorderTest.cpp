// SPDX-License-Identifier: MIT
#include "environment/tessel/service/Preorder.h"

#include "environment/tessel/ForStatement.h"
#include "environment/tessel/IfStatement.h"
#include "tests/environment/support/Build.h"

#include <gtest/gtest.h>

using namespace Kova::Tessel;
using namespace Kova::Tests;
using Service::Preorder;

namespace {

using Nodes = std::vector<const TesselBase*>;

Nodes walk(TesselBase& root) {
    Nodes nodes;
    for (const TesselBase& node : Preorder(root))
        nodes.push_back(&node);
    return nodes;
}

TEST(PreorderTest, MeetsALoneNode) {
    BlockStatement root;
    EXPECT_EQ(walk(root), Nodes{&root});
}

TEST(PreorderTest, MeetsParentsFirstAndLeavesOutWhatIsMissing) {
    // for (; b; ) { c; }: the first and third parts are missing.
    ForStatement root(nullptr, literal("b"), nullptr, block(statement(literal("c"))));
    StatementBase* evaluation = root.getBody()->getStatement(0);
    EXPECT_EQ(walk(root), (Nodes{&root, root.getCondition(), root.getBody(), evaluation, evaluation->getChild(0)}));
    const IfStatement branch(nullptr, nullptr, nullptr);
    EXPECT_EQ(walk(const_cast<IfStatement&>(branch)), Nodes{&branch});
}

TEST(PreorderTest, StaysInsideItsRoot) {
    const auto root = block(block(statement(literal("1"))), block());
    StatementBase& inner = *root->getStatement(0);
    EXPECT_EQ(walk(inner), (Nodes{&inner, inner.getChild(0), inner.getChild(0)->getChild(0)}));
}

TEST(PreorderTest, SkipsChildren) {
    const auto root = block(block(statement(literal("1")), block()), block());
    const Preorder nodes(*root);
    Preorder::Iterator node = nodes.begin();
    ++node;
    EXPECT_EQ(&*node, root->getStatement(0));
    node.skipChildren();
    EXPECT_EQ(&*node, root->getStatement(1));
    EXPECT_EQ(node->getParent(), root.get());
    node.skipChildren();
    EXPECT_TRUE(node == nodes.end());
    node = nodes.begin();
    node.skipChildren();
    EXPECT_FALSE(node != nodes.end());
}

TEST(PreorderTest, TakesTreesOfAnyDepth) {
    ExpressionPtr root = literal("1");
    for (int i = 0; i < 1000000; ++i)
        root = unary(UnaryOperator::Minus, std::move(root));
    std::size_t count = 0;
    for (const TesselBase& node : Preorder(*root))
        count += node.getChildCount() <= 1 ? 1U : 0U;
    EXPECT_EQ(count, 1000001U);
}

} // namespace
