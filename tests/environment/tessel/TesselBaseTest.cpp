// SPDX-License-Identifier: MIT
#include "environment/tessel/TesselBase.h"

#include "environment/tessel/SourceFile.h"
#include "tests/environment/support/EveryNode.h"

#include <gtest/gtest.h>

using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

/// Opens what nodes offer their subclasses, and counts what lives.
class Node final : public TesselBase {
public:
    explicit Node(int& alive) : m_alive(alive) { ++m_alive; }
    ~Node() override { --m_alive; }
    void accept(BaseVisitor& visitor) override { visitor.visit(static_cast<TesselBase&>(*this)); }

    using TesselBase::adopt;
    using TesselBase::appendChild;
    using TesselBase::exchangeChild;
    using TesselBase::insertChild;
    using TesselBase::takeChild;

private:
    int& m_alive;
};

class TesselBaseTest : public testing::Test {
protected:
    std::unique_ptr<Node> make() { return std::make_unique<Node>(alive); }

    int alive = 0;
};

TEST_F(TesselBaseTest, StandsAloneAtFirst) {
    const Node node(alive);
    EXPECT_EQ(node.getParent(), nullptr);
    EXPECT_EQ(node.getChildCount(), 0U);
    EXPECT_EQ(node.getChild(0), nullptr);
    EXPECT_EQ(node.getIndexInParent(), 0U);
    EXPECT_EQ(node.findProgramUnit(), nullptr);
    EXPECT_EQ(node.findTranslationUnit(), nullptr);
    EXPECT_FALSE(node.getSourceRange().isKnown());
}

TEST_F(TesselBaseTest, NumbersChildren) {
    Node root(alive);
    auto a = make();
    auto b = make();
    auto c = make();
    Node* const first = b.get();
    Node* const middle = c.get();
    Node* const last = a.get();
    root.appendChild(std::move(a));
    root.insertChild(0, std::move(b));
    root.insertChild(1, std::move(c));
    EXPECT_EQ(root.getChildCount(), 3U);
    std::size_t index = 0;
    for (Node* child : {first, middle, last}) {
        EXPECT_EQ(root.getChild(index), child);
        EXPECT_EQ(child->getIndexInParent(), index++);
        EXPECT_EQ(child->getParent(), &root);
    }
    EXPECT_EQ(root.getChild(3), nullptr);
    EXPECT_EQ(root.getChild(static_cast<std::size_t>(-1)), nullptr);
}

TEST_F(TesselBaseTest, KeepsPlacesWithoutAChild) {
    Node root(alive);
    root.appendChild(nullptr);
    root.appendChild(make());
    EXPECT_EQ(root.getChildCount(), 2U);
    EXPECT_EQ(root.getChild(0), nullptr);
    EXPECT_EQ(root.getChild(1)->getIndexInParent(), 1U);
    EXPECT_EQ(root.takeChild(0), nullptr);
    EXPECT_EQ(root.getChild(0)->getIndexInParent(), 0U);
}

TEST_F(TesselBaseTest, GivesChildrenBack) {
    Node root(alive);
    for (int i = 0; i < 3; ++i)
        root.appendChild(make());
    TesselBase* const last = root.getChild(2);
    {
        const std::unique_ptr<TesselBase> taken = root.takeChild(1);
        EXPECT_EQ(taken->getParent(), nullptr);
        EXPECT_EQ(taken->getIndexInParent(), 0U);
        EXPECT_EQ(alive, 4);
    }
    EXPECT_EQ(alive, 3);
    EXPECT_EQ(root.getChildCount(), 2U);
    EXPECT_EQ(root.getChild(1), last);
    EXPECT_EQ(last->getIndexInParent(), 1U);
}

TEST_F(TesselBaseTest, ExchangesChildren) {
    Node root(alive);
    root.appendChild(make());
    root.appendChild(nullptr);
    auto replacement = make();
    Node* const raw = replacement.get();
    EXPECT_EQ(root.exchangeChild(1, std::move(replacement)), nullptr);
    EXPECT_EQ(raw->getParent(), &root);
    EXPECT_EQ(raw->getIndexInParent(), 1U);
    const std::unique_ptr<TesselBase> old = root.exchangeChild(1, nullptr);
    EXPECT_EQ(old.get(), raw);
    EXPECT_EQ(raw->getParent(), nullptr);
    EXPECT_EQ(raw->getIndexInParent(), 0U);
    EXPECT_EQ(root.getChildCount(), 2U);
}

TEST_F(TesselBaseTest, OwnsItsSubtree) {
    {
        Node root(alive);
        auto child = make();
        child->appendChild(make());
        root.appendChild(std::move(child));
        EXPECT_EQ(alive, 3);
    }
    EXPECT_EQ(alive, 0);
}

TEST_F(TesselBaseTest, FreesTreesOfAnyDepth) {
    std::unique_ptr<Node> root = make();
    for (int i = 1; i < 1000000; ++i) {
        auto parent = make();
        parent->appendChild(std::move(root));
        root = std::move(parent);
    }
    EXPECT_EQ(alive, 1000000);
    root.reset();
    EXPECT_EQ(alive, 0);
}

TEST_F(TesselBaseTest, FreesDeepTreesOfRealNodes) {
    VariableDeclaration x("x", nullptr);
    ExpressionPtr expression = use(x);
    for (int i = 0; i < 1000000; ++i)
        expression = unary(UnaryOperator::Minus, std::move(expression));
    expression.reset();
    StatementPtr nested = block();
    for (int i = 0; i < 1000000; ++i)
        nested = block(std::move(nested));
    nested.reset();
}

TEST_F(TesselBaseTest, AdoptsWhatStandsApart) {
    Node root(alive);
    Node apart(alive);
    root.adopt(apart);
    EXPECT_EQ(apart.getParent(), &root);
    EXPECT_EQ(root.getChildCount(), 0U);
}

TEST_F(TesselBaseTest, FindsItsUnits) {
    ProgramUnit program;
    auto& unit = addUnit(program, "a.c");
    auto& main = define(unit, "main");
    StatementBase& deep = perform(main, literal("1"));
    EXPECT_EQ(deep.getChild(0)->findTranslationUnit(), &unit);
    EXPECT_EQ(deep.getChild(0)->findProgramUnit(), &program);
    EXPECT_EQ(unit.findTranslationUnit(), &unit);
    EXPECT_EQ(program.findProgramUnit(), &program);
    EXPECT_EQ(program.findTranslationUnit(), nullptr);
    auto external = std::make_unique<SubroutineDeclaration>("printf", nullptr);
    const SubroutineDeclaration& print = *external;
    unit.appendExternal(std::move(external));
    EXPECT_EQ(print.findTranslationUnit(), &unit);
}

TEST_F(TesselBaseTest, KeepsItsSourceRange) {
    const SourceFile file("a.c");
    Node node(alive);
    node.setSourceRange({&file, 3, 4, 5, 6});
    EXPECT_TRUE(node.getSourceRange().isKnown());
    EXPECT_EQ(toString(node.getSourceRange()), "a.c:3:4");
    for (const auto& [line, inside] :
         std::vector<std::pair<std::uint32_t, bool>>{{2, false}, {3, true}, {5, true}, {6, false}})
        EXPECT_EQ(node.getSourceRange().containsLine(line), inside);
    EXPECT_EQ(toString(SourceRange{}), "");
    EXPECT_EQ(toString(SourceRange{&file}), "a.c");
    EXPECT_EQ(toString(SourceRange{&file, 7}), "a.c:7");
    EXPECT_EQ(toString(SourceRange{&file, 0, 3}), "a.c");
    EXPECT_FALSE((SourceRange{&file}.isKnown()));
}

} // namespace
