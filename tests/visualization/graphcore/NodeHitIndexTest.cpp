// SPDX-License-Identifier: MIT
#include "visualization/graphcore/NodeHitIndex.h"

#include "PlainGraph.h"
#include "RandomGraph.h"

#include <QtTest>

using namespace Kova::GUI::GenericGraph;

class NodeHitIndexTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void emptyListHasNoNode() {
        NodeHitIndex index;
        QCOMPARE(index.findFirst({}, QPoint(0, 0)), nullptr);
        NodeBase node{QString()};
        node.setSize(10, 10);
        QCOMPARE(index.findFirst({&node}, QPoint(0, 0)), &node);
        QCOMPARE(index.findFirst({}, QPoint(0, 0)), nullptr);
    }

    void boxHoldsItsCorners() {
        NodeBase node{QString()};
        node.setSize(30, 40);
        node.move(10, 20);
        NodeHitIndex index;
        for (const QPoint& inside : {QPoint(10, 20), QPoint(39, 20), QPoint(10, 59), QPoint(39, 59)})
            QCOMPARE(index.findFirst({&node}, inside), &node);
        for (const QPoint& outside : {QPoint(9, 20), QPoint(10, 19), QPoint(40, 59), QPoint(39, 60)})
            QCOMPARE(index.findFirst({&node}, outside), nullptr);
    }

    void nodeWithoutASizeIsNowhere() {
        NodeBase node{QString()};
        NodeHitIndex index;
        for (const QPoint& point : {QPoint(0, 0), QPoint(-1, -1), QPoint(-2, -2)})
            QCOMPARE(index.findFirst({&node}, point), nullptr);
        node.setSize(1, 1);
        QCOMPARE(index.findFirst({&node}, QPoint(0, 0)), &node);
    }

    void firstVisibleNodeOfTheListWins() {
        NodeBase first{QString()};
        NodeBase second{QString()};
        first.setSize(10, 10);
        second.setSize(10, 10);
        NodeHitIndex index;
        QCOMPARE(index.findFirst({&first, &second}, QPoint(5, 5)), &first);
        QCOMPARE(index.findFirst({&second, &first}, QPoint(5, 5)), &second);
        second.setVisible(false);
        QCOMPARE(index.findFirst({&second, &first}, QPoint(5, 5)), &first);
        first.setVisible(false);
        QCOMPARE(index.findFirst({&second, &first}, QPoint(5, 5)), nullptr);
    }

    void answersAreThoseOfAWalk_data() {
        QTest::addColumn<int>("nodes");
        QTest::addColumn<int>("extent");
        QTest::newRow("on top of each other") << 40 << 60;
        QTest::newRow("crowded") << 60 << 300;
        QTest::newRow("sparse") << 60 << 20000;
        QTest::newRow("many") << 900 << 2000;
        QTest::newRow("one") << 1 << 50;
    }

    // Between the questions nodes and the list change in every way.
    void answersAreThoseOfAWalk() {
        QFETCH(int, nodes);
        QFETCH(int, extent);
        RandomGraph graph(3, nodes, 0, extent);
        NodeHitIndex index;
        int hits = 0;
        for (int round = 0; round < 800; ++round) {
            if (round % 3 != 0)
                graph.changeNodes();
            const QRect box = graph.anyNode()->getRect();
            for (const QPoint& point : {graph.anyPoint(), box.topLeft(), box.bottomRight(), box.topRight(),
                                        box.bottomLeft() - QPoint(1, 0), box.center()}) {
                NodeBase* expected = plainFindNode(graph.nodes, point);
                QCOMPARE(index.findFirst(graph.nodes, point), expected);
                hits += expected ? 1 : 0;
            }
        }
        QVERIFY(hits > 500);
    }
};

QTEST_APPLESS_MAIN(NodeHitIndexTest)
#include "NodeHitIndexTest.moc"
