// SPDX-License-Identifier: MIT
#include "environment/tessel/service/DeepWalker.h"

#include "tests/environment/support/EveryNode.h"

#include <gtest/gtest.h>

using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

/// Notes names on its way and goes on.
class NameWalker : public Service::DeepWalker {
public:
    using DeepWalker::visit;
    void visit(DeclarationBase& node) override {
        m_names += node.getName() + " ";
        DeepWalker::visit(node);
    }
    void visit(VariableReference& node) override { m_names += "use-" + node.getVariable().getName() + " "; }

    std::string m_names;
};

/// Stops at subroutines.
class SubroutineWalker : public NameWalker {
public:
    using NameWalker::visit;
    void visit(SubroutineDeclaration& node) override { m_names += "(" + node.getName() + ") "; }
};

class DeepWalkerTest : public testing::Test {
protected:
    DeepWalkerTest() {
        auto& unit = addUnit(program, "a.c");
        unit.append(std::make_unique<VariableDeclaration>("global", nullptr, use(x)));
        auto& main = define(unit, "main");
        main.appendParameter(std::make_unique<VariableDeclaration>("argc", nullptr));
        perform(main, assign(use(x), use(y)));
        main.getBody()->append(std::make_unique<ForStatement>(nullptr, use(y), nullptr, block(statement(use(x)))));
        declare(unit, "late");
    }

    VariableDeclaration x{"x", nullptr};
    VariableDeclaration y{"y", nullptr};
    ProgramUnit program;
};

TEST_F(DeepWalkerTest, VisitsEverythingInProgramOrder) {
    NameWalker walker;
    program.accept(walker);
    EXPECT_EQ(walker.m_names, "global use-x main argc use-x use-y use-y use-x late ");
}

TEST_F(DeepWalkerTest, StopsWhereAnOverrideDoesNotGoOn) {
    SubroutineWalker walker;
    program.accept(walker);
    EXPECT_EQ(walker.m_names, "global use-x (main) (late) ");
}

TEST_F(DeepWalkerTest, WalksBelowEveryClass) {
    // Each node that can hold an expression is given one: a walker must come by.
    class Counter : public Service::DeepWalker {
    public:
        using DeepWalker::visit;
        void visit(LiteralExpression& /*node*/) override { ++m_literals; }
        int m_literals = 0;
    } counter;
    const auto all = block(
        std::make_unique<IfStatement>(literal("1"), block(), nullptr),
        std::make_unique<SwitchStatement>(literal("1"), block()),
        std::make_unique<CaseStatement>(literal("1"), literal("2")), std::make_unique<ReturnStatement>(literal("1")),
        std::make_unique<DoWhileStatement>(block(), literal("1")), std::make_unique<GotoStatement>(literal("1")),
        statement(std::make_unique<StatementExpression>(block(statement(literal("1"))))),
        statement(conditional(literal("1"), nullptr, call(literal("2"), literal("3")))));
    all->accept(counter);
    EXPECT_EQ(counter.m_literals, 11);
}

} // namespace
