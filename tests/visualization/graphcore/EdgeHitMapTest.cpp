// SPDX-License-Identifier: MIT
#include "visualization/graphcore/EdgeHitMap.h"

#include "PlainGraph.h"
#include "RandomGraph.h"

#include <QtTest>

#include <random>

using namespace Kova::GUI;
using namespace Kova::GUI::GenericGraph;

namespace {

void fill(EdgeHitMap& map, const std::vector<EdgeBase*>& edges) {
    map.resize(edges.size());
    for (std::size_t i = 0; i < edges.size(); ++i)
        map.setPath(i, edges[i]->getShape());
    map.buildIndex();
}

} // namespace

class EdgeHitMapTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void emptyMapHitsNothing() {
        EdgeHitMap map;
        QCOMPARE(map.findLast(QPoint(0, 0), 10), -1);
        map.buildIndex();
        QCOMPARE(map.findLast(QPoint(0, 0), 10), -1);
        map.resize(3);
        map.buildIndex();
        QCOMPARE(map.findLast(QPoint(0, 0), 10), -1);
        QCOMPARE(map.getBounds().size(), 3);
        QCOMPARE(map.getPolygons().size(), 3);
    }

    void lastEdgeWinsBelowTheLimit() {
        QPainterPath line(QPointF(0, 0));
        line.lineTo(100, 50);
        EdgeHitMap map;
        map.resize(3);
        for (std::size_t i = 0; i < 3; ++i)
            map.setPath(i, line);
        map.buildIndex();
        QCOMPARE(map.findLast(QPoint(50, 25), 3), 2);
        QCOMPARE(map.findLast(QPoint(50, 25), 2), 1);
        QCOMPARE(map.findLast(QPoint(50, 25), 0), -1);
        QCOMPARE(map.findLast(QPoint(50, 27), 3), -1);
    }

    void firstEdgeWinsBelowTheLimit() {
        QPainterPath line(QPointF(0, 0));
        line.lineTo(100, 50);
        EdgeHitMap map;
        QCOMPARE(map.findFirst(QPoint(50, 25), 3), -1);
        map.resize(4);
        // The first one is empty: nothing to hit.
        for (std::size_t i = 1; i < 4; ++i)
            map.setPath(i, line);
        map.buildIndex();
        QCOMPARE(map.findFirst(QPoint(50, 25), 4), 1);
        QCOMPARE(map.findFirst(QPoint(50, 25), 1), -1);
        QCOMPARE(map.findFirst(QPoint(50, 27), 4), -1);
        map.setPath(1, QPainterPath());
        map.buildIndex();
        QCOMPARE(map.findFirst(QPoint(50, 25), 4), 2);
    }

    void boundsOfNoWidthHoldNothing() {
        // A rectangle without an inside contains no point, so a bare vertical line is never met.
        QPainterPath line(QPointF(10, 0));
        line.lineTo(10, 50);
        EdgeHitMap map;
        map.resize(1);
        map.setPath(0, line);
        map.buildIndex();
        QCOMPARE(map.findLast(QPoint(10, 25), 1), -1);
    }

    void changedPathReplacesTheOldOne() {
        QPainterPath slanted(QPointF(0, 0));
        slanted.lineTo(100, 50);
        EdgeHitMap map;
        map.resize(1);
        map.setPath(0, slanted);
        map.buildIndex();
        map.setPath(0, slanted.translated(1000, 0));
        map.buildIndex();
        QCOMPARE(map.findLast(QPoint(50, 25), 1), -1);
        QCOMPARE(map.findLast(QPoint(1050, 25), 1), 0);
        map.resize(0);
        map.buildIndex();
        QCOMPARE(map.findLast(QPoint(1050, 25), 1), -1);
        QVERIFY(map.getBounds().isEmpty());
    }

    void holdsBoundsAndPolygonsOfThePaths() {
        const RandomGraph graph(1, 20, 60, 500);
        EdgeHitMap map;
        fill(map, graph.edges);
        const PlainHitMap plain = plainHitMap(graph.edges);
        QCOMPARE(map.getBounds(), plain.first);
        QCOMPARE(map.getPolygons(), plain.second);
    }

    void answersAreThoseOfAWalk_data() {
        QTest::addColumn<int>("nodes");
        QTest::addColumn<int>("edges");
        QTest::addColumn<int>("extent");
        QTest::newRow("dense") << 20 << 60 << 150;
        QTest::newRow("short edges on top of each other") << 30 << 300 << 40;
        QTest::newRow("wide") << 60 << 120 << 1000;
        QTest::newRow("long edges") << 60 << 400 << 20000;
        QTest::newRow("one") << 2 << 1 << 80;
    }

    void answersAreThoseOfAWalk() {
        QFETCH(int, nodes);
        QFETCH(int, edges);
        QFETCH(int, extent);
        int hits = 0;
        for (unsigned seed = 0; seed < 5; ++seed) {
            const RandomGraph graph(seed, nodes, edges, extent);
            EdgeHitMap map;
            fill(map, graph.edges);
            std::mt19937 generator(seed);
            std::uniform_int_distribution<int> anywhere(-extent - 100, extent + 100);
            std::uniform_int_distribution<int> aside(-2, 2);
            std::uniform_int_distribution<std::size_t> anyEdge(0, graph.edges.size() - 1);
            for (int round = 0; round < 3000; ++round) {
                QPoint point(anywhere(generator), anywhere(generator));
                if (round % 2 == 0) {
                    const QPointF on = graph.edges[anyEdge(generator)]->getShape().pointAtPercent(round % 100 * 0.01);
                    point = on.toPoint() + QPoint(aside(generator), aside(generator));
                }
                const std::size_t limit = round % 3 == 0 ? graph.edges.size() / 2 : graph.edges.size();
                const std::vector<EdgeBase*> limited(graph.edges.begin(), graph.edges.begin() + std::ptrdiff_t(limit));
                const EdgeBase* plain = plainFindEdge(limited, map.getBounds(), map.getPolygons(), point);
                const int index = map.findLast(point, limit);
                QCOMPARE(index < 0 ? nullptr : graph.edges[static_cast<std::size_t>(index)], plain);
                hits += plain ? 1 : 0;
            }
        }
        QVERIFY(hits > 500);
    }
};

QTEST_MAIN(EdgeHitMapTest)
#include "EdgeHitMapTest.moc"
