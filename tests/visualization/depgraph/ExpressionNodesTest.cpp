// SPDX-License-Identifier: MIT
#include "visualization/depgraph/ExpressionNodes.h"

#include "tests/environment/support/Build.h"
#include "visualization/textgraph/GraphNodeBase.h"
#include "visualization/textgraph/NodeAlreadyExist.h"
#include "visualization/textgraph/NodeNotFound.h"

#include <QtTest>

#include <functional>

using namespace Kova;
using namespace Kova::Tests;
using Kova::GUI::DepGraph::ExpressionNodes;
using Kova::GUI::TextGraph::GraphNodeBase;
using Kova::GUI::TextGraph::NodeAlreadyExist;
using Kova::GUI::TextGraph::NodeBase;
using Kova::GUI::TextGraph::NodeNotFound;

namespace {

/// What is thrown says, or "" when nothing is.
template <class Thrown>
QString messageOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Thrown& thrown) {
        return QString::fromUtf8(thrown.what());
    }
    return {};
}

} // namespace

class ExpressionNodesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void announcedObjectsGetNodesForEdges();
    void otherObjectsGetPlainText();
    void nothingGetsPlainText();
    void announcingTwiceKeepsTheNode();
    void anObjectHasOneNode();
    void findsBothEnds();
    void endsThatAreNotAnnounced();
    void endsWithoutNodes();

private:
    /// Makes a node and keeps it.
    NodeBase* make(ExpressionNodes& nodes, const Tessel::TesselBase* object, const QString& text = "a") {
        m_made.emplace_back(nodes.createNode(QPoint(3, 4), text, object));
        return m_made.back().get();
    }

    Tessel::VariableDeclaration m_variable{"a", nullptr};
    Tessel::ExpressionPtr m_first = use(m_variable);
    Tessel::ExpressionPtr m_second = use(m_variable);
    std::vector<std::unique_ptr<NodeBase>> m_made;
};

void ExpressionNodesTest::announcedObjectsGetNodesForEdges() {
    ExpressionNodes nodes;
    nodes.registerExpr(m_first.get());
    const NodeBase* node = make(nodes, m_first.get(), "text");
    QVERIFY(dynamic_cast<const GraphNodeBase*>(node) != nullptr);
    QCOMPARE(node->getPos(), QPoint(3, 4));
    QCOMPARE(node->getText(), QString("text"));
    QVERIFY(node->getRect().isNull());
}

void ExpressionNodesTest::otherObjectsGetPlainText() {
    ExpressionNodes nodes;
    nodes.registerExpr(m_first.get());
    for (const Tessel::TesselBase* object :
         {static_cast<const Tessel::TesselBase*>(m_second.get()), static_cast<const Tessel::TesselBase*>(nullptr)}) {
        const NodeBase* node = make(nodes, object, "for");
        QVERIFY(dynamic_cast<const GraphNodeBase*>(node) == nullptr);
        QCOMPARE(node->getPos(), QPoint(3, 4));
        QCOMPARE(node->getText(), QString("for"));
        QVERIFY(make(nodes, object) != node);
    }
}

// Keywords are printed for no expression, even if that was announced.
void ExpressionNodesTest::nothingGetsPlainText() {
    ExpressionNodes nodes;
    nodes.registerExpr(nullptr);
    for (int i = 0; i < 2; ++i)
        QVERIFY(dynamic_cast<const GraphNodeBase*>(make(nodes, nullptr, "for")) == nullptr);
}

void ExpressionNodesTest::announcingTwiceKeepsTheNode() {
    ExpressionNodes nodes;
    nodes.registerExpr(m_first.get());
    const NodeBase* node = make(nodes, m_first.get());
    nodes.registerExpr(m_first.get());
    QCOMPARE(nodes.find(m_first.get(), m_first.get()).from, node);
}

void ExpressionNodesTest::anObjectHasOneNode() {
    ExpressionNodes nodes;
    nodes.registerExpr(m_first.get());
    const NodeBase* node = make(nodes, m_first.get());
    QCOMPARE(messageOf<NodeAlreadyExist>([&] { make(nodes, m_first.get(), "b\u00e9"); }),
             QString("Node: \"b\u00e9\" already exist."));
    QCOMPARE(messageOf<Exception>([&] { make(nodes, m_first.get(), ""); }), QString("Node: \"\" already exist."));
    QCOMPARE(nodes.find(m_first.get(), m_first.get()).to, node);
}

void ExpressionNodesTest::findsBothEnds() {
    ExpressionNodes nodes;
    nodes.registerExpr(m_first.get());
    nodes.registerExpr(m_second.get());
    const NodeBase* first = make(nodes, m_first.get());
    const NodeBase* second = make(nodes, m_second.get());
    const ExpressionNodes::Ends ends = nodes.find(m_first.get(), m_second.get());
    QCOMPARE(ends.from, first);
    QCOMPARE(ends.to, second);
}

void ExpressionNodesTest::endsThatAreNotAnnounced() {
    ExpressionNodes nodes;
    nodes.registerExpr(m_first.get());
    const QString expected = "ExprData is not registered";
    QCOMPARE(messageOf<NodeNotFound>([&] { (void)nodes.find(m_second.get(), m_second.get()); }), expected);
    QCOMPARE(messageOf<NodeNotFound>([&] { (void)nodes.find(m_second.get(), m_first.get()); }), expected);
    QCOMPARE(messageOf<Exception>([&] { (void)nodes.find(m_first.get(), m_second.get()); }), expected);
    make(nodes, m_first.get());
    QCOMPARE(messageOf<NodeNotFound>([&] { (void)nodes.find(m_first.get(), m_second.get()); }), expected);
    QCOMPARE(messageOf<NodeNotFound>([&] { (void)nodes.find(m_first.get(), nullptr); }), expected);
}

void ExpressionNodesTest::endsWithoutNodes() {
    ExpressionNodes nodes;
    nodes.registerExpr(m_first.get());
    nodes.registerExpr(m_second.get());
    const QString expected = "Node with this exprdata not exist";
    QCOMPARE(messageOf<NodeNotFound>([&] { (void)nodes.find(m_first.get(), m_second.get()); }), expected);
    make(nodes, m_first.get());
    QCOMPARE(messageOf<NodeNotFound>([&] { (void)nodes.find(m_first.get(), m_second.get()); }), expected);
    QCOMPARE(messageOf<Exception>([&] { (void)nodes.find(m_second.get(), m_first.get()); }), expected);
}

QTEST_GUILESS_MAIN(ExpressionNodesTest)
#include "ExpressionNodesTest.moc"
