// SPDX-License-Identifier: MIT
#include "visualization/controlflow/RowLayout.h"

#include "tests/visualization/graphcore/LayoutGraph.h"
#include "visualization/graphcore/SourceSinkLayout.h"

#include <QtTest>

#include <random>

using Kova::GUI::ControlFlowGraphExpr::RowLayout;
using Kova::GUI::GenericGraph::NodeBase;
using Kova::GUI::GenericGraph::SourceSinkLayout;

namespace {

using Edges = std::vector<std::pair<int, int>>;

std::vector<QPoint> laidOut(const LayoutGraph& graph) {
    RowLayout().layOut(graph.nodes());
    return graph.centers();
}

Edges randomEdges(int nodes, std::mt19937& random) {
    Edges edges;
    for (int target = 1; target < nodes; ++target)
        edges.emplace_back(static_cast<int>(random() % static_cast<unsigned>(target)), target);
    return edges;
}

} // namespace

class RowLayoutTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void smallBoxesAreInTheRowsOfTheTree();
    void wideBoxesMoveRight();
    void tallBoxesMoveRowsDown();
    void nothingOverlaps();
    void noNodes();
};

void RowLayoutTest::smallBoxesAreInTheRowsOfTheTree() {
    std::mt19937 random(1);
    for (int round = 0; round < 20; ++round) {
        const LayoutGraph graph(30, randomEdges(30, random));
        SourceSinkLayout().layOut(graph.nodes());
        const std::vector<QPoint> expected = graph.centers();
        QCOMPARE(laidOut(graph), expected);
    }
}

// The tree puts the root's centre at 50 and those of its two leaves at 50 and 260: 200 and 30 beside the first.
void RowLayoutTest::wideBoxesMoveRight() {
    LayoutGraph graph;
    NodeBase& root = graph.add("root", 400);
    NodeBase& first = graph.add("first", 200);
    NodeBase& second = graph.add("second", 100);
    graph.join(root, first);
    graph.join(root, second);
    // Boxes start at 10 and are 30 apart.
    QCOMPARE(laidOut(graph), (std::vector<QPoint>{{210, 50}, {110, 200}, {290, 200}}));
    second.setSize(140, 20);
    QCOMPARE(laidOut(graph), (std::vector<QPoint>{{210, 50}, {110, 200}, {310, 200}}));
}

// Rows would have their centres at 50, 200, 350 and 500.
void RowLayoutTest::tallBoxesMoveRowsDown() {
    LayoutGraph graph(4, {{0, 1}, {1, 2}, {2, 3}});
    graph.node(0).setSize(40, 120);
    graph.node(1).setSize(40, 180);
    graph.node(2).setSize(40, 30);
    // From 10 to 130, 50 below from 180 to 360, then from 410; the last row is where it was.
    QCOMPARE(laidOut(graph), (std::vector<QPoint>{{50, 70}, {50, 270}, {50, 425}, {50, 500}}));
}

void RowLayoutTest::nothingOverlaps() {
    std::mt19937 random(2);
    for (int round = 0; round < 20; ++round) {
        const LayoutGraph graph(60, randomEdges(60, random));
        for (NodeBase* node : graph.nodes())
            node->setSize(1 + static_cast<int>(random() % 700), 1 + static_cast<int>(random() % 400));
        laidOut(graph);
        const std::vector<NodeBase*> nodes = graph.nodes();
        for (std::size_t i = 0; i < nodes.size(); ++i) {
            QVERIFY(nodes[i]->getX() >= 10);
            QVERIFY(nodes[i]->getY() >= 10);
            for (std::size_t j = i + 1; j < nodes.size(); ++j)
                QVERIFY(!nodes[i]->getRect().adjusted(-14, -14, 14, 14).intersects(nodes[j]->getRect()));
        }
    }
}

void RowLayoutTest::noNodes() {
    RowLayout().layOut({});
    const LayoutGraph alone(1, {});
    QCOMPARE(laidOut(alone), std::vector<QPoint>{QPoint(50, 50)});
}

QTEST_APPLESS_MAIN(RowLayoutTest)
#include "RowLayoutTest.moc"
