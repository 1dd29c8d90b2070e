// SPDX-License-Identifier: MIT
#include "visualization/textgraph/PortSorter.h"

#include "PlainPorts.h"
#include "visualization/textgraph/EdgeBase.h"
#include "visualization/textgraph/EdgesList.h"
#include "visualization/textgraph/GraphNodeBase.h"

#include <QtTest>

#include <memory>
#include <random>

using namespace Kova::GUI::TextGraph;

namespace {

/// The same graph twice: as the library has it and step by step.
class TwinGraph {
public:
    std::size_t addNode(const QPoint& pos, const QRect& rect) {
        nodes.push_back(std::make_unique<GraphNodeBase>(pos, QStringLiteral("node")));
        nodes.back()->setRect(rect);
        plain.nodes.push_back({pos, rect, {}, {}});
        return nodes.size() - 1;
    }
    void addEdge(std::size_t from, std::size_t to) {
        edges.push_back(std::make_unique<EdgeBase>(nodes[from].get(), nodes[to].get()));
        plain.addEdge(from, to);
    }
    void setVisible(std::size_t edge, bool visible) {
        edges[edge]->setVisible(visible);
        if (visible)
            plain.show(edge);
        else
            plain.hide(edge);
    }
    void reorder(std::size_t node, int mode) {
        nodes[node]->reorder(mode);
        nodes[node]->setPorts();
        plain.reorder(node, mode);
    }
    void reorderAll(int mode) {
        for (std::size_t n = 0; n < nodes.size(); ++n)
            reorder(n, mode);
    }
    [[nodiscard]] bool agree() const {
        for (std::size_t e = 0; e < edges.size(); ++e) {
            if (edges[e]->getPort(EdgeSide::From) != plain.edges[e].numbers[0] ||
                edges[e]->getPort(EdgeSide::To) != plain.edges[e].numbers[1])
                return false;
        }
        return true;
    }
    [[nodiscard]] std::vector<int> numbers(EdgeSide side) const {
        std::vector<int> result;
        for (const auto& edge : edges)
            result.push_back(edge->getPort(side));
        return result;
    }

    std::vector<std::unique_ptr<GraphNodeBase>> nodes;
    std::vector<std::unique_ptr<EdgeBase>> edges;
    PlainPorts plain;
};

QRect textRect(int width) {
    return {0, -15, width, 20};
}

/// The arrangement of a random graph of words on lines.
struct Kind {
    int lines;
    int words;
    int edges;
    int narrowest;
    int widest;
    int lineDistance;
};

} // namespace

Q_DECLARE_METATYPE(Kind)

namespace {

void addRandom(TwinGraph& graph, std::mt19937& generator, const Kind& kind) {
    const auto any = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(generator); };
    for (int line = 1; line <= kind.lines; ++line) {
        int x = any(0, 60);
        for (int word = 0; word < kind.words; ++word) {
            const int width = any(kind.narrowest, kind.widest);
            graph.addNode(QPoint(x, line * kind.lineDistance), QRect(any(-2, 3), any(-18, -8), width, any(10, 24)));
            x += std::max(width, 0) + any(5, 60);
        }
    }
    const int last = static_cast<int>(graph.nodes.size()) - 1;
    for (int i = 0; i < kind.edges; ++i) {
        const auto from = static_cast<std::size_t>(any(0, last));
        // Some loops and repeated pairs, more than chance would give.
        const auto to =
            any(0, 9) == 0 ? from : static_cast<std::size_t>(any(0, 3) == 0 ? any(0, std::min(last, 2)) : any(0, last));
        graph.addEdge(from, to);
    }
}

} // namespace

class PortSorterTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    /// From the left: two straight edges that cross because the right one leads further left.
    void crossingEdgesAreSwapped() {
        TwinGraph graph;
        const auto top = graph.addNode(QPoint(200, 20), textRect(90));
        const auto left = graph.addNode(QPoint(0, 100), textRect(50));
        const auto right = graph.addNode(QPoint(400, 100), textRect(50));
        graph.addEdge(top, right);
        graph.addEdge(top, left);
        QCOMPARE(graph.numbers(EdgeSide::From), (std::vector<int>{1, 2}));
        graph.nodes[top]->reorder(1);
        QCOMPARE(graph.numbers(EdgeSide::From), (std::vector<int>{2, 1}));
        // Now that they do not cross they stay.
        graph.nodes[top]->reorder(1);
        QCOMPARE(graph.numbers(EdgeSide::From), (std::vector<int>{2, 1}));
    }

    /// Ports of a node of no width are all at its start, where edges touch.
    void touchingEdgesAreSwapped() {
        TwinGraph graph;
        const auto top = graph.addNode(QPoint(200, 20), textRect(0));
        const auto right = graph.addNode(QPoint(400, 100), textRect(0));
        const auto left = graph.addNode(QPoint(0, 100), textRect(0));
        graph.addEdge(top, right);
        graph.addEdge(top, left);
        graph.nodes[top]->reorder(1);
        QCOMPARE(graph.numbers(EdgeSide::From), (std::vector<int>{2, 1}));
    }

    void edgesOnOneLineAreNotSwapped() {
        TwinGraph graph;
        const auto start = graph.addNode(QPoint(200, 20), QRect(0, -15, 0, 16));
        const auto near = graph.addNode(QPoint(300, 100), QRect(0, 0, 0, 20));
        const auto far = graph.addNode(QPoint(400, 180), QRect(0, 0, 0, 20));
        graph.addEdge(start, near);
        graph.addEdge(start, far);
        QCOMPARE(graph.edges[0]->getCurve().start, QPoint(200, 20));
        QCOMPARE(graph.edges[0]->getCurve().end, QPoint(300, 100));
        QCOMPARE(graph.edges[1]->getCurve().end, QPoint(400, 180));
        graph.nodes[start]->reorder(1);
        QCOMPARE(graph.numbers(EdgeSide::From), (std::vector<int>{1, 2}));
    }

    /// Edges to the same node follow the order of their ports there.
    void twistedEdgesToOneNodeAreUntwisted() {
        TwinGraph graph;
        const auto top = graph.addNode(QPoint(0, 20), textRect(90));
        const auto bottom = graph.addNode(QPoint(0, 100), textRect(90));
        graph.addEdge(top, bottom);
        graph.addEdge(bottom, top);
        graph.addEdge(top, bottom);
        QCOMPARE(graph.numbers(EdgeSide::From), (std::vector<int>{1, -2, 3}));
        // Twisted by hand: as if the ports at the bottom had been sorted for other edges meanwhile.
        graph.edges[0]->setPort(EdgeSide::To, -3);
        graph.edges[2]->setPort(EdgeSide::To, -1);
        graph.nodes[top]->reorder(1);
        QCOMPARE(graph.edges[0]->getPort(EdgeSide::From), 3);
        QCOMPARE(graph.edges[1]->getPort(EdgeSide::To), 2);
        QCOMPARE(graph.edges[2]->getPort(EdgeSide::From), 1);
    }

    void edgesToOnePortStay() {
        TwinGraph graph;
        const auto top = graph.addNode(QPoint(0, 20), textRect(90));
        const auto bottom = graph.addNode(QPoint(0, 100), textRect(90));
        graph.addEdge(top, bottom);
        graph.addEdge(top, bottom);
        graph.edges[1]->setPort(EdgeSide::To, -1);
        graph.nodes[top]->reorder(1);
        QCOMPARE(graph.numbers(EdgeSide::From), (std::vector<int>{1, 2}));
    }

    /// Products of such distances do not fit 64 bits.
    void crossingsAreFoundAtAnyDistance() {
        TwinGraph graph;
        const auto top = graph.addNode(QPoint(0, -2000000000), textRect(90));
        const auto right = graph.addNode(QPoint(2000000000, 2000000000), textRect(90));
        const auto left = graph.addNode(QPoint(-2000000000, 2000000000), textRect(90));
        graph.addEdge(top, right);
        graph.addEdge(top, left);
        graph.nodes[top]->reorder(1);
        QCOMPARE(graph.numbers(EdgeSide::From), (std::vector<int>{2, 1}));
    }

    void loopsGoToTheLeft() {
        TwinGraph graph;
        const auto node = graph.addNode(QPoint(0, 100), textRect(90));
        const auto below = graph.addNode(QPoint(0, 200), textRect(90));
        graph.addEdge(node, below);
        graph.addEdge(node, node);
        graph.addEdge(node, below);
        graph.addEdge(node, node);
        QCOMPARE(graph.numbers(EdgeSide::From), (std::vector<int>{1, -1, 3, -2}));
        QCOMPARE(graph.numbers(EdgeSide::To), (std::vector<int>{-1, 2, -2, 4}));
        graph.nodes[node]->reorder(3);
        // Loops keep their order, the others theirs.
        QCOMPARE(graph.numbers(EdgeSide::From), (std::vector<int>{3, -1, 4, -2}));
        QCOMPARE(graph.numbers(EdgeSide::To), (std::vector<int>{-1, 1, -2, 2}));
    }

    void arcsToTheLeftGoLeftOfStraightEdges() {
        TwinGraph graph;
        const auto above = graph.addNode(QPoint(200, 20), textRect(60));
        const auto left = graph.addNode(QPoint(0, 100), textRect(60));
        const auto node = graph.addNode(QPoint(200, 100), textRect(60));
        const auto right = graph.addNode(QPoint(400, 100), textRect(60));
        graph.addEdge(node, right);
        graph.addEdge(node, above);
        graph.addEdge(node, left);
        QCOMPARE(graph.numbers(EdgeSide::From), (std::vector<int>{-1, -2, -3}));
        // The straight edge passes the arc to the right; the arc to the left passes the straight edge at the front.
        graph.nodes[node]->reorder(2);
        QCOMPARE(graph.numbers(EdgeSide::From), (std::vector<int>{-3, -2, -1}));
    }

    /// Of arcs that run the same way the one to the nearer node is the inner one.
    void arcsOfTheSameDirectionAreNested() {
        TwinGraph graph;
        const auto node = graph.addNode(QPoint(0, 100), textRect(60));
        const auto near = graph.addNode(QPoint(200, 100), textRect(60));
        const auto far = graph.addNode(QPoint(400, 100), textRect(60));
        graph.addEdge(node, near);
        graph.addEdge(node, far);
        graph.nodes[node]->reorder(2);
        // The outer arc starts farther left.
        QCOMPARE(graph.numbers(EdgeSide::From), (std::vector<int>{-2, -1}));
        graph.nodes[node]->reorder(2);
        QCOMPARE(graph.numbers(EdgeSide::From), (std::vector<int>{-2, -1}));
    }

    void otherModesChangeNothing() {
        std::mt19937 generator(7);
        for (const int mode : {0, 5, -1, 100}) {
            TwinGraph graph;
            addRandom(graph, generator, {3, 3, 40, 20, 80, 60});
            const std::vector<int> from = graph.numbers(EdgeSide::From);
            const std::vector<int> to = graph.numbers(EdgeSide::To);
            for (const auto& node : graph.nodes) {
                node->reorder(mode);
                node->setPorts();
            }
            QCOMPARE(graph.numbers(EdgeSide::From), from);
            QCOMPARE(graph.numbers(EdgeSide::To), to);
        }
    }

    void sortsAsWrittenDown_data() {
        QTest::addColumn<Kind>("kind");
        QTest::newRow("few edges") << Kind{4, 4, 20, 20, 90, 50};
        QTest::newRow("crowded nodes") << Kind{3, 3, 120, 40, 300, 50};
        QTest::newRow("one line") << Kind{1, 6, 60, 30, 200, 50};
        QTest::newRow("two lines") << Kind{2, 4, 80, 30, 200, 21};
        QTest::newRow("narrow nodes") << Kind{4, 3, 60, 0, 12, 40};
        QTest::newRow("nodes turned inside out") << Kind{3, 3, 60, -200, 60, 40};
        QTest::newRow("lines that overlap") << Kind{6, 3, 60, 20, 90, 5};
        QTest::newRow("lines far apart") << Kind{3, 3, 40, 20, 90, 600000000};
    }
    void sortsAsWrittenDown() {
        QFETCH(Kind, kind);
        for (unsigned seed = 0; seed < 60; ++seed) {
            std::mt19937 generator(seed);
            const auto any = [&](int low, int high) {
                return std::uniform_int_distribution<int>(low, high)(generator);
            };
            TwinGraph graph;
            addRandom(graph, generator, kind);
            QVERIFY(graph.agree());
            for (int step = 0; step < 12; ++step) {
                for (int i = any(0, 6); i > 0; --i)
                    graph.setVisible(static_cast<std::size_t>(any(0, kind.edges - 1)), any(0, 1) == 1);
                QVERIFY2(graph.agree(), qPrintable(QStringLiteral("seed %1 step %2").arg(seed).arg(step)));
                graph.reorderAll(any(1, 4));
                QVERIFY2(graph.agree(), qPrintable(QStringLiteral("seed %1 step %2").arg(seed).arg(step)));
            }
        }
    }

    /// Thousands of edges at one node, wide enough that each has a place of its own.
    void crowdedNodeIsSortedAsWrittenDown_data() {
        QTest::addColumn<int>("width");
        QTest::newRow("usual width") << 66;
        QTest::newRow("a place for each") << 20000;
    }
    void crowdedNodeIsSortedAsWrittenDown() {
        QFETCH(int, width);
        std::mt19937 generator(11);
        const auto any = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(generator); };
        TwinGraph graph;
        const auto hub = graph.addNode(QPoint(1000, 2000), textRect(width));
        for (int i = 0; i < 200; ++i)
            graph.addNode(QPoint(any(0, 25000), any(0, 3) == 0 ? 2000 : any(0, 100) * 40), textRect(any(5, 90)));
        for (int i = 0; i < 1500; ++i)
            graph.addEdge(hub, static_cast<std::size_t>(any(0, 200)));
        for (const int mode : {4, 1, 4})
            graph.reorderAll(mode);
        QVERIFY(graph.agree());
    }

    void thousandsOfPortsComeAndGo_data() {
        QTest::addColumn<int>("width");
        QTest::newRow("usual width") << 66;
        QTest::newRow("a place for each") << 20000;
    }
    void thousandsOfPortsComeAndGo() {
        QFETCH(int, width);
        TwinGraph graph;
        const auto hub = graph.addNode(QPoint(0, 20), textRect(width));
        for (int i = 0; i < 500; ++i)
            graph.addNode(QPoint(20000 - 40 * i, 60 + 30 * i), textRect(60));
        for (std::size_t i = 0; i < 5000; ++i)
            graph.addEdge(hub, 1 + i * 7 % 500);
        graph.reorder(hub, 4);
        for (std::size_t i = 0; i < 5000; i += 2)
            graph.setVisible(i, false);
        graph.reorder(hub, 1);
        QVERIFY(graph.agree());
        for (std::size_t i = 0; i < 5000; ++i)
            graph.setVisible(i, i % 3 != 0);
        graph.reorder(hub, 4);
        QVERIFY(graph.agree());
        QCOMPARE(graph.nodes[hub]->getDownPorts().size(), std::size_t{3333});
    }
};

QTEST_GUILESS_MAIN(PortSorterTest)
#include "PortSorterTest.moc"
