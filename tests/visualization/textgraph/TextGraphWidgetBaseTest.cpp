// SPDX-License-Identifier: MIT
#include "visualization/textgraph/TextGraphWidgetBase.h"

#include "TestTextGraph.h"

#include <QAction>
#include <QFontMetrics>
#include <QtTest>

#include <cmath>
#include <random>

using namespace Kova::GUI;
using namespace Kova::GUI::TextGraph;

namespace {

/// Counts its own destruction.
class CountedNode : public GraphNodeBase {
public:
    CountedNode(const QPoint& pos, int& destroyed)
        : GraphNodeBase(pos, QStringLiteral("node")),
          m_destroyed(destroyed) {}
    ~CountedNode() override { ++m_destroyed; }

private:
    int& m_destroyed;
};

/// Halves away from zero.
QPoint rounded(const QPointF& point) {
    return {static_cast<int>(std::round(point.x())), static_cast<int>(std::round(point.y()))};
}

/// Where on its curve an edge is hit for sure.
QPoint onEdge(const EdgeBase& edge) {
    return edge.getShape().toSubpathPolygons(QTransform()).at(0).at(0).toPoint();
}

} // namespace

class TextGraphWidgetBaseTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void startsEmpty() {
        TestTextGraph graph;
        QVERIFY(!graph.isBuilded());
        QVERIFY(graph.getLines().isEmpty());
        QVERIFY(graph.getEdges().isEmpty());
        QCOMPARE(graph.getSelectedEdge(), -1);
        QCOMPARE(graph.heldNode(), QPoint(-1, -1));
        QCOMPARE(graph.getFont(), QFont(QStringLiteral("Monospace"), 14));
        QVERIFY(graph.hasMouseScroll());
        QVERIFY(graph.viewport()->hasMouseTracking());
        QVERIFY(graph.menu().isEmpty());
        QVERIFY(!graph.imageAction()->isEnabled());
        QCOMPARE(graph.metaObject()->className(), "Kova::GUI::TextGraph::TextGraphWidgetBase");
    }

    void fontDecidesCellsAndSteps() {
        TestTextGraph graph;
        // A font of no fixed pitch tells the average from the largest width.
        for (const QFont& font : {QFont(QStringLiteral("Monospace"), 14), QFont(QStringLiteral("Monospace"), 30),
                                  QFont(QStringLiteral("Sans"), 20)}) {
            graph.setFont(font);
            const QFontMetrics metrics(font);
            QCOMPARE(graph.getFont(), font);
            QCOMPARE(graph.getCharWidth(), metrics.averageCharWidth());
            QCOMPARE(graph.getLineHeight(), metrics.height() - 1);
            QCOMPARE(graph.verticalScrollBar()->singleStep(), metrics.height() - 1);
            QCOMPARE(graph.horizontalScrollBar()->singleStep(), metrics.averageCharWidth());
        }
    }

    void menuGetsTheExportActions() {
        TestTextGraph graph;
        QAction own(QStringLiteral("own"), nullptr);
        graph.menu().addAction(&own);
        graph.createMenu();
        QCOMPARE(graph.menu().actions(), (QList<QAction*>{&own, graph.imageAction(), graph.svgAction()}));
    }

    void builtGraphsCanBeExported() {
        TestTextGraph graph;
        graph.addText({QStringLiteral("a b")});
        QVERIFY(graph.renderImage().isNull());
        graph.finish();
        QVERIFY(graph.isBuilded());
        QVERIFY(graph.imageAction()->isEnabled());
        QVERIFY(graph.svgAction()->isEnabled());
        QCOMPARE(graph.renderImage().size(), graph.getGraphSize());
    }

    void clearForgetsEverything() {
        int destroyed = 0;
        TestTextGraph graph;
        graph.lines().append(NodesLine());
        auto* a = new CountedNode(QPoint(0, 50), destroyed);
        auto* b = new CountedNode(QPoint(0, 150), destroyed);
        graph.lines()[0].nodes = {a, b};
        graph.join(a, b);
        graph.setGraphSize(500, 500);
        graph.finish();
        graph.selectEdge(0);
        graph.setScale(2.0);
        graph.clear();
        QCOMPARE(destroyed, 2);
        QVERIFY(!graph.isBuilded());
        QVERIFY(graph.getLines().isEmpty());
        QVERIFY(graph.getEdges().isEmpty());
        QCOMPARE(graph.getSelectedEdge(), -1);
        QCOMPARE(graph.getGraphSize(), QSize(0, 0));
        QCOMPARE(graph.getScale(), 1.0);
        QVERIFY(!graph.imageAction()->isEnabled());
        QVERIFY(!graph.svgAction()->isEnabled());
        graph.clear();
    }

    void destructionFreesTheNodes() {
        int destroyed = 0;
        {
            TestTextGraph graph;
            graph.lines().append(NodesLine());
            auto* node = new CountedNode(QPoint(0, 50), destroyed);
            graph.lines()[0].nodes = {node};
            graph.join(node, node);
        }
        QCOMPARE(destroyed, 1);
    }

    void linesAreFoundBetweenTheirBounds() {
        TestTextGraph graph;
        graph.addText({QStringLiteral("a"), QStringLiteral("b")});
        const int height = graph.getLineHeight();
        const int first = graph.getLines().at(0).y;
        const int second = graph.getLines().at(1).y;
        QCOMPARE(second - first, height + 2);
        QCOMPARE(graph.getLineByPoint(QPoint(0, first - height)), -1);
        QCOMPARE(graph.getLineByPoint(QPoint(0, first - height + 1)), 0);
        QCOMPARE(graph.getLineByPoint(QPoint(0, first - 1)), 0);
        QCOMPARE(graph.getLineByPoint(QPoint(0, first)), -1);
        QCOMPARE(graph.getLineByPoint(QPoint(0, second - height)), -1);
        QCOMPARE(graph.getLineByPoint(QPoint(9999, second - height + 1)), 1);
        QCOMPARE(graph.getLineByPoint(QPoint(0, second)), -1);
    }

    void theFirstOfOverlappingLinesIsFound() {
        TestTextGraph graph;
        graph.addText({QStringLiteral("a"), QStringLiteral("b")});
        graph.lines()[1].setY(graph.getLines().at(0).y + 1);
        QCOMPARE(graph.getLineByPoint(QPoint(0, graph.getLines().at(0).y - 3)), 0);
    }

    void nodesAreFoundBetweenTheirBounds() {
        TestTextGraph graph;
        graph.addText({QStringLiteral("first"), QStringLiteral("one two")});
        const int y = graph.getLines().at(1).y - 1;
        const NodeBase* two = graph.node(1, 1);
        const int left = two->getPos().x();
        const int right = two->getPos().x() + two->getRect().right();
        QCOMPARE(graph.getNodeByCurPos(QPoint(left, y)), QPoint(1, -1));
        QCOMPARE(graph.getNodeByCurPos(QPoint(left + 1, y)), QPoint(1, 1));
        QCOMPARE(graph.getNodeByCurPos(QPoint(right - 1, y)), QPoint(1, 1));
        QCOMPARE(graph.getNodeByCurPos(QPoint(right, y)), QPoint(1, -1));
        QCOMPARE(graph.getNodeByCurPos(QPoint(left + 1, y + 1)), QPoint(-1, -1));
        QCOMPARE(graph.getNodeByCurPos(QPoint(1, y)), QPoint(1, 0));
        QCOMPARE(graph.getNodeByCurPos(QPoint(0, y)), QPoint(1, -1));
    }

    void nodesKnowTheirPlace() {
        TestTextGraph graph;
        graph.addText({QStringLiteral("a b"), QStringLiteral("c d e")});
        QCOMPARE(graph.getNodeCoords(graph.node(0, 1)), QPoint(0, 1));
        QCOMPARE(graph.getNodeCoords(graph.node(1, 2)), QPoint(1, 2));
        // Where it stands does not matter.
        graph.node(1, 2)->setPos(QPoint(0, 7));
        QCOMPARE(graph.getNodeCoords(graph.node(1, 2)), QPoint(1, 2));
        const NodeBase stranger(QPoint(0, 0), QStringLiteral("a"));
        QCOMPARE(graph.getNodeCoords(&stranger), QPoint(-1, -1));
        QCOMPARE(graph.getNodeCoords(nullptr), QPoint(-1, -1));
    }

    void mapHoldsRectanglesAndPolygons() {
        TestTextGraph graph;
        graph.addText({QStringLiteral("a b"), QStringLiteral("c d")});
        const EdgeBase* straight = graph.join(graph.node(0, 0), graph.node(1, 1));
        graph.join(graph.node(0, 1), graph.node(1, 0));
        const EdgeBase* arc = graph.join(graph.node(0, 0), graph.node(0, 1));
        graph.filter = [&](const EdgeBase* edge) { return edge == straight || edge == arc; };
        graph.finish();
        QCOMPARE(graph.edgeRects().size(), 3);
        QCOMPARE(graph.edgePolygons().size(), 3);
        QCOMPARE(graph.edgeRects().at(0), straight->getShape().boundingRect());
        QCOMPARE(graph.edgePolygons().at(0), straight->getShape().toSubpathPolygons(QTransform()));
        QCOMPARE(graph.edgePolygons().at(0).size(), 2);
        QCOMPARE(graph.edgeRects().at(1), QRectF());
        QVERIFY(graph.edgePolygons().at(1).isEmpty());
        QCOMPARE(graph.edgePolygons().at(2), arc->getShape().toSubpathPolygons(QTransform()));
        // Shown again, it gets its own entry; what has moved too.
        graph.filter = nullptr;
        graph.shiftLines(1, 30);
        graph.updateEdgesVisibility();
        graph.updateMap();
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(graph.edgeRects().at(i), graph.getEdges().at(i)->getShape().boundingRect());
            QCOMPARE(graph.edgePolygons().at(i), graph.getEdges().at(i)->getShape().toSubpathPolygons(QTransform()));
        }
    }

    void mapStaysWhileNothingIsBuilt() {
        TestTextGraph graph;
        graph.updateMap();
        QVERIFY(graph.edgeRects().isEmpty());
        graph.addText({QStringLiteral("a b"), QStringLiteral("c d")});
        graph.join(graph.node(0, 0), graph.node(1, 1));
        graph.finish();
        const QPoint point = onEdge(*graph.getEdges().at(0));
        QCOMPARE(graph.getEdgeByPos(point), 0);
        graph.clear();
        graph.updateMap();
        QCOMPARE(graph.edgeRects().size(), 1);
        // But edges that are gone are not found.
        QCOMPARE(graph.getEdgeByPos(point), -1);
    }

    void mapIsMadeAnewOnResize() {
        TestTextGraph graph;
        graph.show();
        graph.addText({QStringLiteral("a b"), QStringLiteral("c d")});
        graph.join(graph.node(0, 0), graph.node(1, 1));
        graph.finish();
        graph.shiftLines(0, 100);
        const QRectF old = graph.edgeRects().at(0);
        graph.resize(500, 300);
        QCOMPARE(graph.edgeRects().at(0), old.translated(0, 100));
    }

    void theFirstEdgeUnderAPointIsFound() {
        TestTextGraph graph;
        graph.addText({QStringLiteral("a b"), QStringLiteral("c d")});
        graph.shiftLines(1, 100);
        graph.join(graph.node(0, 0), graph.node(0, 1));
        for (int i = 0; i < 2; ++i)
            graph.join(graph.node(0, 0), graph.node(1, 1));
        graph.finish();
        // Edges of one node to another run apart; made to meet.
        graph.node(0, 0)->setRect(QRect());
        graph.node(1, 1)->setRect(QRect());
        graph.updateMap();
        const QPoint point = (graph.node(0, 0)->getPos() + graph.node(1, 1)->getPos()) / 2;
        QVERIFY(graph.edgePolygons().at(1) == graph.edgePolygons().at(2));
        const auto found = [&] {
            for (int dx = -2; dx <= 2; ++dx) {
                if (graph.getEdgeByPos(point + QPoint(dx, 0)) != -1)
                    return graph.getEdgeByPos(point + QPoint(dx, 0));
            }
            return -1;
        };
        QCOMPARE(found(), 1);
        graph.edges().at(1)->setVisible(false);
        graph.updateMap();
        QCOMPARE(found(), 2);
    }

    /// Against a walk over all edges.
    void edgesAreFoundAsByAWalk() {
        std::mt19937 generator(5);
        TestTextGraph graph;
        graph.addRandom(generator, 30, 6, 150, 8);
        graph.filter = [&](const EdgeBase* edge) { return edge->getPen().color() != Qt::red; };
        graph.finish();
        const auto walk = [&](const QPoint& point) {
            for (int i = 0; i < graph.edgeRects().size(); ++i) {
                if (!graph.edgeRects().at(i).contains(point))
                    continue;
                for (const QPolygonF& polygon : graph.edgePolygons().at(i)) {
                    for (int k = 1; k < polygon.size(); ++k) {
                        const QPoint from = rounded(polygon.at(k - 1));
                        const QPoint along = rounded(polygon.at(k)) - from;
                        const QPoint off = point - from;
                        const int squaredLength = QPoint::dotProduct(along, along);
                        const qint64 cross = along.x() * off.y() - along.y() * off.x();
                        const int dot = QPoint::dotProduct(along, off);
                        // Half a unit beside the piece and not beyond its ends.
                        if (squaredLength == 0 ? off.isNull()
                                               : 4 * cross * cross <= squaredLength && dot >= 0 && dot <= squaredLength)
                            return i;
                    }
                }
            }
            return -1;
        };
        int hits = 0;
        for (int y = 0; y < graph.getGraphSize().height(); y += 3) {
            for (int x = 0; x < 700; ++x) {
                const QPoint point(x, y);
                const int expected = walk(point);
                QCOMPARE(graph.getEdgeByPos(point), expected);
                hits += expected != -1;
            }
        }
        QVERIFY(hits > 1000);
    }

    void edgesAreSelectedByIndex() {
        TestTextGraph graph;
        graph.addText({QStringLiteral("a b")});
        graph.join(graph.node(0, 0), graph.node(0, 1));
        graph.finish();
        graph.selectEdge(0);
        QCOMPARE(graph.getSelectedEdge(), 0);
        for (const int none : {1, -1, -7, 1000}) {
            graph.selectEdge(0);
            graph.selectEdge(none);
            QCOMPARE(graph.getSelectedEdge(), -1);
        }
    }

    void scrollsToEdges() {
        TestTextGraph graph(QSize(300, 200));
        graph.show();
        QStringList texts;
        for (int i = 0; i < 100; ++i)
            texts.append(QStringLiteral("a word and another and a very long line behind it"));
        graph.addText(texts);
        graph.join(graph.node(60, 8), graph.node(60, 9));
        graph.join(graph.node(10, 0), graph.node(90, 0));
        graph.join(graph.node(0, 0), graph.node(0, 1));
        graph.finish();
        const auto shows = [&](const QRectF& area) {
            return QRectF(graph.scrolled(), graph.viewport()->size()).contains(area);
        };
        graph.scrollToEdge(0);
        QVERIFY(shows(graph.edgeRects().at(0)));
        const QPoint there = graph.scrolled();
        QVERIFY(there.x() > 0 && there.y() > 0);
        // What can be seen stays.
        graph.scrollTo(there.x() - 2, there.y() - 3);
        graph.scrollToEdge(0);
        QCOMPARE(graph.scrolled(), there - QPoint(2, 3));
        // Too long for the viewport: its start.
        graph.scrollToEdge(1);
        QVERIFY(shows(QRectF(graph.getEdges().at(1)->getCurve().start, QSizeF(1, 1))));
        graph.scrollToEdge(2);
        QCOMPARE(graph.scrolled(), QPoint(0, 0));
        graph.setScale(3.0);
        graph.scrollToEdge(0);
        const QRectF scaled(graph.edgeRects().at(0).topLeft() * 3.0, graph.edgeRects().at(0).size() * 3.0);
        QVERIFY(shows(scaled));
        const QPoint before = graph.scrolled();
        graph.edges().at(1)->setVisible(false);
        for (const int none : {-1, 3, 1}) {
            graph.scrollToEdge(none);
            QCOMPARE(graph.scrolled(), before);
        }
    }
};

QTEST_MAIN(TextGraphWidgetBaseTest)
#include "TextGraphWidgetBaseTest.moc"
