// SPDX-License-Identifier: MIT
#include "visualization/graphcore/CorridorMap.h"

#include "PlainGraph.h"
#include "RandomGraph.h"

#include <QtTest>

using namespace Kova::GUI::GenericGraph;

namespace {

/// An edge from (0, 0) to (300, 400), 500 units long, and a third node.
struct Slanted {
    NodeBase source{QString()};
    NodeBase target{QString()};
    NodeBase third{QString()};
    EdgeBase edge{&source, &target};
    CorridorMap map;

    Slanted() { target.moveTo(300, 400); }

    /// Whether the third node blocks the edge when its centre is there.
    bool isBlockedFrom(const QPoint& center) {
        third.moveTo(center.x(), center.y());
        map.update({&source, &target, &third}, {&edge});
        return map.isBlocked(0);
    }
};

} // namespace

class CorridorMapTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothingIsInTheWayOfNothing() {
        CorridorMap map;
        map.update({}, {});
        NodeBase a{QString()};
        NodeBase b{QString()};
        EdgeBase outside(&a, &b);
        // Of nodes that are not in the list.
        map.update({}, {&outside});
        QVERIFY(!map.isBlocked(0));
    }

    void ownNodesAreNotInTheWay() {
        Slanted graph;
        graph.map.update({&graph.source, &graph.target}, {&graph.edge});
        QVERIFY(!graph.map.isBlocked(0));
    }

    // (4, -3) / 5 is across the line: (-8, 6) and (8, -6) are 10 units away, (-12, 9) and (12, -9) are 15. 12 units are
    // reached by cross products up to 6000: (150, 200) + (-9, 8) has 300 * 8 + 400 * 9 = 6000, one more step has 6300.
    void blocksWithinTwelveUnitsOfTheLine() {
        Slanted graph;
        for (const QPoint& near : {QPoint(150, 200), QPoint(142, 206), QPoint(158, 194), QPoint(141, 208)})
            QVERIFY(graph.isBlockedFrom(near));
        for (const QPoint& far : {QPoint(138, 209), QPoint(162, 191), QPoint(141, 209), QPoint(140, 208)})
            QVERIFY(!graph.isBlockedFrom(far));
    }

    // On the line, 5 units before it starts and 6.
    void blocksWithinTheRectangle() {
        Slanted graph;
        QVERIFY(graph.isBlockedFrom(QPoint(-3, -5)));
        QVERIFY(!graph.isBlockedFrom(QPoint(-3, -6)));
        QVERIFY(graph.isBlockedFrom(QPoint(304, 405)));
        QVERIFY(!graph.isBlockedFrom(QPoint(304, 406)));
    }

    void invisibleNodesAreNotInTheWay() {
        Slanted graph;
        QVERIFY(graph.isBlockedFrom(QPoint(150, 200)));
        graph.third.setVisible(false);
        QVERIFY(!graph.isBlockedFrom(QPoint(150, 200)));
        graph.third.setVisible(true);
        QVERIFY(graph.isBlockedFrom(QPoint(150, 200)));
    }

    // A node is in the way of others' edges, wherever it stands, and never of its own.
    void nodesInOnePlaceAreToldApart() {
        NodeBase source{QString()};
        NodeBase target{QString()};
        NodeBase besideSource{QString()};
        NodeBase besideTarget{QString()};
        target.moveTo(300, 400);
        besideTarget.moveTo(300, 400);
        EdgeBase edge(&source, &target);
        EdgeBase otherSource(&besideSource, &target);
        EdgeBase otherTarget(&source, &besideTarget);
        CorridorMap map;
        const auto isBlocked = [&map](const std::vector<NodeBase*>& nodes, EdgeBase& shown) {
            map.update(nodes, {&shown});
            return map.isBlocked(0);
        };
        QVERIFY(!isBlocked({&source, &target}, edge));
        QVERIFY(isBlocked({&source, &target}, otherSource));
        QVERIFY(!isBlocked({&source, &target}, edge));
        QVERIFY(isBlocked({&source, &target}, otherTarget));
        QVERIFY(!isBlocked({&source, &target}, edge));
        QVERIFY(isBlocked({&besideSource, &target}, edge));
    }

    void loopsAreNeverBlocked() {
        NodeBase node{QString()};
        NodeBase other{QString()};
        EdgeBase loop(&node, &node);
        CorridorMap map;
        map.update({&node, &other}, {&loop});
        QVERIFY(!map.isBlocked(0));
    }

    void answersAreThoseOfLookingAtEverything_data() {
        QTest::addColumn<int>("nodes");
        QTest::addColumn<int>("edges");
        QTest::addColumn<int>("extent");
        QTest::newRow("crowded") << 60 << 120 << 200;
        QTest::newRow("sparse") << 60 << 120 << 3000;
        QTest::newRow("long edges") << 300 << 200 << 9000;
        QTest::newRow("two nodes") << 2 << 3 << 30;
    }

    // Between the questions few or many nodes move, and both lists change in every way.
    void answersAreThoseOfLookingAtEverything() {
        QFETCH(int, nodes);
        QFETCH(int, edges);
        QFETCH(int, extent);
        RandomGraph graph(5, nodes, edges, extent);
        CorridorMap map;
        int blocked = 0;
        for (int round = 0; round < 600; ++round) {
            graph.changeNodes();
            graph.changeEdges();
            if (round % 9 == 0) {
                for (int i = 0; i < 40; ++i)
                    graph.anyNode()->move(graph.any(-9, 9), graph.any(-9, 9));
            }
            map.update(graph.nodes, graph.edges);
            for (std::size_t i = 0; i < graph.edges.size(); ++i) {
                const bool expected = plainIsBlocked(graph.nodes, *graph.edges[i]);
                QCOMPARE(map.isBlocked(i), expected);
                blocked += expected ? 1 : 0;
            }
        }
        QVERIFY(blocked > 100);
    }
};

QTEST_APPLESS_MAIN(CorridorMapTest)
#include "CorridorMapTest.moc"
