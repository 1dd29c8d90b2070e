// SPDX-License-Identifier: MIT
#include "environment/tessel/BaseVisitor.h"

#include "environment/printing/OutToC.h"
#include "environment/printing/OutToFortran.h"
#include "tests/environment/support/EveryNode.h"

#include <gtest/gtest.h>

#include <set>
#include <typeinfo>

using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

/// Cares for one class alone.
template <class T>
class OnlyVisitor : public BaseVisitor {
public:
    using BaseVisitor::visit;
    void visit(T& node) override {
        m_seen = &node;
        ++m_visits;
    }

    TesselBase* m_seen = nullptr;
    int m_visits = 0;
};

/// A visitor of one class meets exactly the nodes that are of it, each once.
template <class T>
void checkClass(const EveryNode& every) {
    for (const auto& node : every.nodes) {
        OnlyVisitor<T> visitor;
        node->accept(visitor);
        const bool isOne = dynamic_cast<T*>(node.get()) != nullptr;
        EXPECT_EQ(visitor.m_seen, isOne ? node.get() : nullptr) << typeid(*node).name() << " " << typeid(T).name();
        EXPECT_EQ(visitor.m_visits, isOne ? 1 : 0);
    }
}

template <class... Classes>
struct ClassList {
    static constexpr std::size_t size = sizeof...(Classes);
    static void check(const EveryNode& every) { (checkClass<Classes>(every), ...); }
};

using Declarations =
    ClassList<ProgramUnit, TranslationUnit, DeclarationBase, SubroutineDeclaration, VariableDeclaration,
              FieldDeclaration, EnumeratorDeclaration, ModuleDeclaration, OpaqueDeclaration, TypeDeclaration,
              RecordDeclaration, EnumDeclaration, TypedefDeclaration, TesselBase>;
using Statements =
    ClassList<StatementBase, BlockStatement, ExpressionStatement, DeclarationStatement, IfStatement, SwitchStatement,
              CaseStatement, LabelStatement, GotoStatement, BreakStatement, ContinueStatement, ReturnStatement,
              NullStatement, OpaqueStatement, LoopStatement, ForStatement, WhileStatement, DoWhileStatement>;
using Expressions =
    ClassList<ExpressionBase, VariableReference, SubroutineReference, EnumeratorReference, LiteralExpression,
              UnaryExpression, BinaryExpression, AssignmentExpression, ConditionalExpression, CastExpression,
              SubscriptExpression, SectionExpression, MemberExpression, SubroutineCallExpression, TypeQueryExpression,
              InitializerListExpression, DesignatedInitializerExpression, CompoundLiteralExpression,
              GenericSelectionExpression, StatementExpression, VariadicArgumentExpression, LabelAddressExpression,
              OpaqueExpression>;

TEST(BaseVisitorTest, TriesEveryClassOnce) {
    const EveryNode every;
    std::set<std::string> classes;
    for (const auto& node : every.nodes)
        classes.insert(typeid(*node).name());
    EXPECT_EQ(classes.size(), every.nodes.size());
    // Those without nodes of their own: TesselBase, DeclarationBase, TypeDeclaration, StatementBase, LoopStatement,
    // ExpressionBase.
    EXPECT_EQ(every.nodes.size() + 6, Declarations::size + Statements::size + Expressions::size);
}

TEST(BaseVisitorTest, FallsBackToTheBasesOfDeclarations) {
    Declarations::check(EveryNode());
}

TEST(BaseVisitorTest, FallsBackToTheBasesOfStatements) {
    Statements::check(EveryNode());
}

TEST(BaseVisitorTest, FallsBackToTheBasesOfExpressions) {
    Expressions::check(EveryNode());
}

TEST(BaseVisitorTest, PrefersTheMostSpecialVisit) {
    class Visitor : public BaseVisitor {
    public:
        using BaseVisitor::visit;
        void visit(LoopStatement& /*node*/) override { m_text += "loop "; }
        void visit(ForStatement& /*node*/) override { m_text += "for "; }
        void visit(StatementBase& /*node*/) override { m_text += "statement "; }
        std::string m_text;
    } visitor;
    ForStatement counted(nullptr, nullptr, nullptr, nullptr);
    WhileStatement loop(nullptr, nullptr);
    NullStatement null;
    counted.accept(visitor);
    loop.accept(visitor);
    null.accept(visitor);
    EXPECT_EQ(visitor.m_text, "for loop statement ");
}

TEST(BaseVisitorTest, ReachesEveryExpressionClassOfThePrinters) {
    for (const auto& node : EveryNode().nodes)
        if (const auto* expression = dynamic_cast<const ExpressionBase*>(node.get())) {
            EXPECT_FALSE(Kova::Backends::OutToC::expressionToString(*expression).empty()) << typeid(*node).name();
            EXPECT_FALSE(Kova::Backends::OutToFortran::expressionToString(*expression).empty());
        }
}

} // namespace
