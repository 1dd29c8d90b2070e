// SPDX-License-Identifier: MIT
#include "environment/tessel/StatementBase.h"

#include "environment/tessel/ForStatement.h"
#include "environment/tessel/NullStatement.h"
#include "environment/tessel/StatementExpression.h"
#include "tests/environment/support/Build.h"

#include <gtest/gtest.h>

using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

TEST(StatementBaseTest, FindsTheOutermostBlock) {
    SubroutineDeclaration main("main", nullptr);
    auto inner = block(std::make_unique<NullStatement>());
    StatementBase& deep = *inner->getStatement(0);
    auto loop = std::make_unique<ForStatement>(nullptr, nullptr, nullptr, std::move(inner));
    StatementBase& loopRaw = *loop;
    main.setBody(block(std::move(loop)));
    EXPECT_EQ(deep.getRootBlock(), main.getBody());
    EXPECT_EQ(loopRaw.getRootBlock(), main.getBody());
    EXPECT_EQ(main.getBody()->getRootBlock(), main.getBody());
}

TEST(StatementBaseTest, GoesThroughStatementExpressions) {
    auto inside = block(std::make_unique<NullStatement>());
    StatementBase& deep = *inside->getStatement(0);
    const auto root = block(statement(std::make_unique<StatementExpression>(std::move(inside))));
    EXPECT_EQ(deep.getRootBlock(), root.get());
}

TEST(StatementBaseTest, HasNoRootBlockOutsideBlocks) {
    const NullStatement alone;
    EXPECT_EQ(alone.getRootBlock(), nullptr);
    const BlockStatement root;
    EXPECT_EQ(root.getRootBlock(), &root);
}

TEST(StatementBaseTest, IsWhatAnExpressionStandsIn) {
    VariableDeclaration x("x", nullptr);
    const auto root = block(statement(binary(use(x), BinaryOperator::Add, use(x))));
    StatementBase& holder = *root->getStatement(0);
    const auto* sum = static_cast<const BinaryExpression*>(holder.getChild(0));
    EXPECT_EQ(sum->obtainParentStatement(), &holder);
    EXPECT_EQ(sum->getLeft()->obtainParentStatement(), &holder);
    VariableDeclaration global("g", nullptr, literal("1"));
    EXPECT_EQ(global.getInitializer()->obtainParentStatement(), nullptr);
    EXPECT_EQ(literal("1")->obtainParentStatement(), nullptr);
}

TEST(StatementBaseTest, HoldsAnExpressionInsideAStatementExpression) {
    auto inside = block(statement(literal("1")));
    StatementBase& inner = *inside->getStatement(0);
    const auto root = block(statement(std::make_unique<StatementExpression>(std::move(inside))));
    EXPECT_EQ(static_cast<ExpressionBase*>(inner.getChild(0))->obtainParentStatement(), &inner);
}

} // namespace
