// SPDX-License-Identifier: MIT
#include "visualization/graphcore/GenericGraphWidgetBase.h"

#include "PlainGraph.h"
#include "TestGraph.h"

#include <QFontMetrics>
#include <QSignalSpy>
#include <QtTest>

using namespace Kova::GUI::GenericGraph;

namespace {

std::vector<ShapeKind> shapes(const TestGraph& graph) {
    std::vector<ShapeKind> kinds;
    for (const EdgeBase* edge : graph.getEdges())
        kinds.push_back(edge->getShapeKind());
    return kinds;
}

QSize plainGraphSize(const TestGraph& graph) {
    int x = -1;
    int y = -1;
    for (const NodeBase* node : graph.getNodes()) {
        x = std::max(x, node->getCenter().x());
        y = std::max(y, node->getCenter().y());
    }
    return {x + 50, y + 50};
}

/// A subclass that owns more than its base and is freed as the base.
class LargeNode : public NodeBase {
public:
    LargeNode() : NodeBase(QStringLiteral("large")) {}
    int payload[50] = {};
};

} // namespace

class GenericGraphWidgetBaseTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void startsEmpty() {
        TestGraph graph;
        QVERIFY(graph.getNodes().empty());
        QVERIFY(graph.getEdges().empty());
        QVERIFY(graph.contextMenu().isEmpty());
        QCOMPARE(graph.contextMenu().parent(), nullptr);
        QVERIFY(graph.edgeBounds().isEmpty());
        QVERIFY(graph.edgePolygons().isEmpty());
        QCOMPARE(graph.labelFont(), QFont(QStringLiteral("Arial"), 12));
        QCOMPARE(graph.grabbedNode(), nullptr);
        QCOMPARE(graph.hoveredNode(), nullptr);
        QCOMPARE(graph.hoveredEdge(), nullptr);
        QVERIFY(!graph.isBuilded());
        QCOMPARE(graph.metaObject()->className(), "Kova::GUI::GraphWidgetBase");
    }

    void builtWithNodes() {
        TestGraph graph;
        graph.addNode(QString(), QPoint(50, 50));
        QVERIFY(graph.isBuilded());
        graph.clear();
        QVERIFY(!graph.isBuilded());
    }

    void clearFreesEverything() {
        TestGraph graph;
        graph.nodes().push_back(new LargeNode);
        NodeBase* node = graph.addNode(QString(), QPoint(100, 100));
        graph.addEdge(node, graph.nodes()[0]);
        graph.addEdge(node, node);
        graph.updateMap();
        graph.moveMouse(QPoint(100, 100));
        graph.press(QPoint(100, 100));
        QCOMPARE(graph.grabbedNode(), node);
        graph.setScale(2.0);
        QSignalSpy scales(&graph, &TestGraph::scaleChanged);
        graph.clear();
        QCOMPARE(scales.size(), 1);
        QVERIFY(graph.getNodes().empty());
        QVERIFY(graph.getEdges().empty());
        QCOMPARE(graph.grabbedNode(), nullptr);
        QCOMPARE(graph.hoveredNode(), nullptr);
        QCOMPARE(graph.hoveredEdge(), nullptr);
        QCOMPARE(graph.getGraphSize(), QSize(0, 0));
        QCOMPARE(graph.getScale(), 1.0);
        // The map stays until it is made anew.
        QCOMPARE(graph.edgeBounds().size(), 2);
        QCOMPARE(graph.findEdgeByPosition(QPoint(100, 70)), nullptr);
        QCOMPARE(graph.findNodeByPosition(QPoint(100, 100)), nullptr);
        graph.updateMap();
        QVERIFY(graph.edgeBounds().isEmpty());
    }

    void destructionEmitsNothing() {
        auto* graph = new TestGraph;
        graph->addEdge(graph->addNode(QString(), QPoint(10, 10)), graph->addNode(QString(), QPoint(90, 10)));
        graph->setScale(2.0);
        QSignalSpy scales(graph, &TestGraph::scaleChanged);
        delete graph;
        QVERIFY(scales.isEmpty());
    }

    void nodeSizesUseTheLabelFont() {
        TestGraph graph;
        NodeBase* node = graph.addNode(QStringLiteral("procedure"), QPoint(100, 100));
        const auto expected = [&](const QFont& font) {
            return QFontMetrics(font).size(0, QStringLiteral("procedure")) + QSize(10, 10);
        };
        graph.updateNodeSizes();
        QCOMPARE(node->getRect().size(), expected(QFont(QStringLiteral("Arial"), 12)));
        graph.setLabelFont(QFont(QStringLiteral("Arial"), 30));
        graph.updateNodeSizes();
        QCOMPARE(node->getRect().size(), expected(QFont(QStringLiteral("Arial"), 30)));
    }

    void firstVisibleNodeIsFound() {
        TestGraph graph;
        NodeBase* first = graph.addNode(QString(), QPoint(100, 100));
        NodeBase* second = graph.addNode(QString(), QPoint(110, 105));
        QCOMPARE(graph.findNodeByPosition(QPoint(105, 102)), first);
        // Corners: the box is (80, 90) to (120, 110).
        QCOMPARE(graph.findNodeByPosition(QPoint(80, 90)), first);
        QCOMPARE(graph.findNodeByPosition(QPoint(79, 90)), nullptr);
        QCOMPARE(graph.findNodeByPosition(QPoint(121, 110)), second);
        first->setVisible(false);
        QCOMPARE(graph.findNodeByPosition(QPoint(105, 102)), second);
        first->setVisible(true);
        std::swap(graph.nodes()[0], graph.nodes()[1]);
        QCOMPARE(graph.findNodeByPosition(QPoint(105, 102)), second);
        second->moveTo(300, 300);
        QCOMPARE(graph.findNodeByPosition(QPoint(105, 102)), first);
        QCOMPARE(graph.findNodeByPosition(QPoint(300, 300)), second);
        first->setSize(1, 1);
        QCOMPARE(graph.findNodeByPosition(QPoint(105, 102)), nullptr);
    }

    void nodeWithoutSizeIsNeverHit() {
        TestGraph graph;
        graph.addNode(QString(), QPoint(100, 100), QSize(-1, -1));
        for (int x = 97; x <= 103; ++x) {
            for (int y = 97; y <= 103; ++y)
                QCOMPARE(graph.findNodeByPosition(QPoint(x, y)), nullptr);
        }
    }

    void nodesAreFoundAsByAWalk() {
        for (unsigned seed = 0; seed < 10; ++seed) {
            std::mt19937 generator(seed);
            const auto any = [&](int low, int high) {
                return std::uniform_int_distribution<int>(low, high)(generator);
            };
            TestGraph graph;
            graph.addRandom(generator, 150, 0, seed % 2 == 0 ? 600 : 5000);
            for (int round = 0; round < 2000; ++round) {
                NodeBase* node = graph.nodes()[static_cast<std::size_t>(any(0, 149))];
                if (round % 20 == 0)
                    node->moveTo(any(-100, 700), any(-100, 700));
                if (round % 50 == 0)
                    node->setVisible(any(0, 1) == 0);
                const QPoint point = round % 2 == 0 ? node->getCenter() + QPoint(any(-50, 50), any(-25, 25))
                                                    : QPoint(any(-200, 6000), any(-200, 6000));
                QCOMPARE(graph.findNodeByPosition(point), plainFindNode(graph.getNodes(), point));
            }
        }
    }

    void mapIsThatOfTheEdges() {
        std::mt19937 generator(1);
        const auto any = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(generator); };
        TestGraph graph;
        graph.addRandom(generator, 40, 80, 1000);
        const auto isThatOfTheEdges = [&] {
            const PlainHitMap plain = plainHitMap(graph.getEdges());
            return graph.edgeBounds() == plain.first && graph.edgePolygons() == plain.second;
        };
        QVERIFY(isThatOfTheEdges());
        for (int round = 0; round < 200; ++round) {
            switch (round % 6) {
            case 0:
                graph.nodes()[static_cast<std::size_t>(any(0, 39))]->move(any(-50, 50), any(-50, 50));
                break;
            case 1:
                graph.addEdge(graph.nodes()[static_cast<std::size_t>(any(0, 39))], graph.nodes()[0]);
                break;
            case 2:
                std::swap(graph.edges().front(), graph.edges()[static_cast<std::size_t>(any(1, 70))]);
                break;
            case 3:
                delete graph.edges().back();
                graph.edges().pop_back();
                break;
            case 4: {
                // The new edge may get the old one's address.
                EdgeBase*& edge = graph.edges()[static_cast<std::size_t>(any(0, 70))];
                delete edge;
                edge = new EdgeBase(graph.nodes()[static_cast<std::size_t>(any(0, 39))], graph.nodes()[1]);
                edge->updatePos();
                break;
            }
            default:
                graph.edges()[static_cast<std::size_t>(any(0, 70))]->setShapeKind(ShapeKind(any(0, 2)));
            }
            if (round % 3 == 0)
                continue;
            graph.updateMap();
            QVERIFY(isThatOfTheEdges());
            const QPoint point(any(-100, 1100), any(-100, 1100));
            QCOMPARE(graph.findEdgeByPosition(point),
                     plainFindEdge(graph.getEdges(), graph.edgeBounds(), graph.edgePolygons(), point));
        }
    }

    void mapStaysUntilItIsUpdated() {
        TestGraph graph;
        NodeBase* a = graph.addNode(QString(), QPoint(50, 100));
        NodeBase* b = graph.addNode(QString(), QPoint(250, 100));
        EdgeBase* edge = graph.addEdge(a, b);
        graph.updateMap();
        QCOMPARE(graph.findEdgeByPosition(QPoint(150, 100)), edge);
        a->moveTo(50, 200);
        b->moveTo(250, 200);
        QCOMPARE(graph.findEdgeByPosition(QPoint(150, 100)), edge);
        QCOMPARE(graph.findEdgeByPosition(QPoint(150, 200)), nullptr);
        // Fewer edges than the map knows.
        delete graph.edges().back();
        graph.edges().pop_back();
        QCOMPARE(graph.findEdgeByPosition(QPoint(150, 100)), nullptr);
        // Another edge at the old one's index answers for it.
        EdgeBase* other = graph.addEdge(b, a);
        QCOMPARE(graph.findEdgeByPosition(QPoint(150, 100)), other);
        graph.updateMap();
        QCOMPARE(graph.findEdgeByPosition(QPoint(150, 100)), nullptr);
        QCOMPARE(graph.findEdgeByPosition(QPoint(150, 200)), other);
    }

    void scaleAndResizeUpdateTheMap() {
        TestGraph graph;
        NodeBase* a = graph.addNode(QString(), QPoint(50, 100));
        NodeBase* b = graph.addNode(QString(), QPoint(250, 100));
        EdgeBase* edge = graph.addEdge(a, b);
        QCOMPARE(graph.findEdgeByPosition(QPoint(150, 100)), nullptr);
        graph.setScale(2.0);
        QCOMPARE(graph.findEdgeByPosition(QPoint(150, 100)), edge);
        a->move(0, 100);
        b->move(0, 100);
        graph.resize(500, 400);
        QCOMPARE(graph.findEdgeByPosition(QPoint(150, 200)), edge);
    }

    void lastEdgeIsFound() {
        TestGraph graph;
        NodeBase* a = graph.addNode(QString(), QPoint(50, 100));
        NodeBase* b = graph.addNode(QString(), QPoint(250, 100));
        graph.addEdge(a, b);
        EdgeBase* last = graph.addEdge(b, a);
        graph.updateMap();
        QCOMPARE(graph.findEdgeByPosition(QPoint(150, 100)), last);
    }

    void thirdNodeOnTheLineMakesAnArc() {
        TestGraph graph;
        NodeBase* a = graph.addNode(QString(), QPoint(100, 100));
        NodeBase* b = graph.addNode(QString(), QPoint(500, 500));
        NodeBase* c = graph.addNode(QString(), QPoint(300, 300));
        EdgeBase* edge = graph.addEdge(a, b);
        graph.updateCollisions();
        QCOMPARE(edge->getShapeKind(), EdgeBase::Arc);
        // (316, 299) is 17 / √2 = 12.02 from the line, (316, 300) is 11.3.
        c->moveTo(316, 299);
        graph.updateCollisions();
        QCOMPARE(edge->getShapeKind(), EdgeBase::Straight);
        c->moveTo(316, 300);
        graph.updateCollisions();
        QCOMPARE(edge->getShapeKind(), EdgeBase::Arc);
        c->setVisible(false);
        graph.updateCollisions();
        QCOMPARE(edge->getShapeKind(), EdgeBase::Straight);
        edge->setBendIndex(1);
        graph.updateCollisions();
        QCOMPARE(edge->getShapeKind(), EdgeBase::Arc);
        edge->setBendIndex(0);
        c->setVisible(true);
        graph.updateCollisions();
        QCOMPARE(edge->getShapeKind(), EdgeBase::Arc);
        c->moveTo(313 + 13, 313 - 13);
        graph.updateCollisions();
        QCOMPARE(edge->getShapeKind(), EdgeBase::Straight);
    }

    void levelEdgeIsFreeSixUnitsAside() {
        TestGraph graph;
        NodeBase* a = graph.addNode(QString(), QPoint(100, 100));
        NodeBase* b = graph.addNode(QString(), QPoint(500, 100));
        NodeBase* c = graph.addNode(QString(), QPoint(300, 105));
        EdgeBase* edge = graph.addEdge(a, b);
        graph.updateCollisions();
        QCOMPARE(edge->getShapeKind(), EdgeBase::Arc);
        c->moveTo(300, 106);
        graph.updateCollisions();
        QCOMPARE(edge->getShapeKind(), EdgeBase::Straight);
    }

    void loopsAreLeftAlone() {
        TestGraph graph;
        NodeBase* a = graph.addNode(QString(), QPoint(100, 100));
        graph.addNode(QString(), QPoint(100, 100));
        EdgeBase* loop = graph.addEdge(a, a);
        graph.updateCollisions();
        QCOMPARE(loop->getShapeKind(), EdgeBase::Loop);
        loop->setShapeKind(EdgeBase::Straight);
        graph.updateCollisions();
        QCOMPARE(loop->getShapeKind(), EdgeBase::Straight);
    }

    void shapesSetByOthersAreSetAgain() {
        TestGraph graph;
        EdgeBase* edge = graph.addEdge(graph.addNode(QString(), QPoint(0, 0)), graph.addNode(QString(), QPoint(99, 9)));
        graph.updateCollisions();
        edge->setShapeKind(EdgeBase::Arc);
        graph.updateCollisions();
        QCOMPARE(edge->getShapeKind(), EdgeBase::Straight);
    }

    void graphSizeIsMeasuredFromCentres() {
        TestGraph graph;
        graph.updateCollisions();
        QCOMPARE(graph.getGraphSize(), QSize(49, 49));
        graph.addNode(QString(), QPoint(300, 40), QSize(900, 900));
        NodeBase* low = graph.addNode(QString(), QPoint(20, 700));
        low->setVisible(false);
        graph.updateCollisions();
        QCOMPARE(graph.getGraphSize(), QSize(350, 750));
        graph.nodes()[0]->moveTo(-300, -300);
        low->moveTo(-10, -20);
        graph.updateCollisions();
        QCOMPARE(graph.getGraphSize(), QSize(49, 49));
    }

    void shapesAreThoseOfLookingAtEverything_data() {
        QTest::addColumn<int>("nodes");
        QTest::addColumn<int>("edges");
        QTest::addColumn<int>("extent");
        QTest::newRow("crowded") << 60 << 120 << 400;
        QTest::newRow("sparse") << 60 << 120 << 4000;
        QTest::newRow("long") << 300 << 300 << 9000;
        QTest::newRow("two") << 2 << 3 << 50;
    }

    void shapesAreThoseOfLookingAtEverything() {
        QFETCH(int, nodes);
        QFETCH(int, edges);
        QFETCH(int, extent);
        int arcs = 0;
        for (unsigned seed = 0; seed < 4; ++seed) {
            std::mt19937 generator(seed);
            const auto any = [&](int low, int high) {
                return std::uniform_int_distribution<int>(low, high)(generator);
            };
            TestGraph graph;
            graph.addRandom(generator, nodes, edges, extent);
            // An edge's end may be a node that the widget does not show.
            NodeBase outside{QString()};
            graph.addEdge(&outside, graph.nodes()[0]);
            const auto anyNode = [&] { return graph.nodes()[static_cast<std::size_t>(any(0, nodes - 1))]; };
            for (int round = 0; round < 150; ++round) {
                anyNode()->moveTo(any(0, extent), any(0, extent));
                if (round % 3 == 0)
                    anyNode()->setVisible(any(0, 2) != 0);
                if (round % 7 == 0)
                    graph.edges()[static_cast<std::size_t>(any(0, edges - 1))]->setBendIndex(any(0, 1));
                if (round % 11 == 0)
                    graph.addNode(QString(), QPoint(any(0, extent), any(0, extent)));
                if (round % 13 == 0)
                    graph.addEdge(anyNode(), anyNode());
                if (round % 17 == 0)
                    std::swap(graph.nodes()[0], graph.nodes()[static_cast<std::size_t>(any(0, nodes - 1))]);
                if (round % 19 == 0)
                    outside.moveTo(any(0, extent), any(0, extent));
                if (round % 23 == 0) {
                    for (int i = 0; i < nodes; ++i)
                        anyNode()->move(any(-9, 9), any(-9, 9));
                }
                const std::vector<ShapeKind> expected = plainShapes(graph.getNodes(), graph.getEdges());
                graph.updateCollisions();
                QCOMPARE(shapes(graph), expected);
                QCOMPARE(graph.getGraphSize(), plainGraphSize(graph));
                arcs += static_cast<int>(std::count(expected.begin(), expected.end(), EdgeBase::Arc));
            }
            graph.clear();
        }
        QVERIFY(arcs > 0);
    }
};

QTEST_MAIN(GenericGraphWidgetBaseTest)
#include "GenericGraphWidgetBaseTest.moc"
