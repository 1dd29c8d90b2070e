// SPDX-License-Identifier: MIT
#include "visualization/textgraph/GraphNodeBase.h"

#include "visualization/textgraph/EdgeBase.h"
#include "visualization/textgraph/EdgesList.h"

#include <QtTest>

#include <limits>
#include <type_traits>

using namespace Kova::GUI::TextGraph;

namespace {

/// A node on an upper line with others below it.
struct Fan {
    GraphNodeBase top{QPoint(100, 50), QStringLiteral("top")};
    GraphNodeBase below{QPoint(10, 150), QStringLiteral("below")};
    EdgesList edges;

    Fan() {
        top.setRect(QRect(2, -15, 80, 20));
        below.setRect(QRect(0, -15, 80, 20));
    }
    EdgeBase* add() {
        edges.add(new EdgeBase(&top, &below));
        return edges.at(edges.size() - 1);
    }
};

} // namespace

class GraphNodeBaseTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void numbersGoFromLeftToRight() {
        Fan fan;
        for (int i = 1; i <= 3; ++i) {
            const EdgeBase* edge = fan.add();
            QCOMPARE(edge->getPort(EdgeSide::From), i);
            QCOMPARE(edge->getPort(EdgeSide::To), -i);
        }
        QCOMPARE(fan.top.getDownPorts().size(), std::size_t{3});
        QVERIFY(fan.top.getUpPorts().empty());
        QCOMPARE(fan.below.getUpPorts().size(), std::size_t{3});
        QCOMPARE(fan.below.getUpPorts()[1].edge, fan.edges.at(1));
        QVERIFY(fan.below.getUpPorts()[1].side == EdgeSide::To);
    }

    void threePortsAreAtQuarters() {
        Fan fan;
        for (int i = 0; i < 3; ++i)
            fan.add();
        // 80 / 4 from the node's start, whatever the rectangle's left is.
        for (int i = 1; i <= 3; ++i) {
            QCOMPARE(fan.top.getPortCoords(i), QPoint(100 + 20 * i, 50 + 4));
            QCOMPARE(fan.below.getPortCoords(-i), QPoint(10 + 20 * i, 150 - 15));
        }
    }

    void stepsAreWhole() {
        Fan fan;
        fan.top.setRect(QRect(2, -15, 83, 20));
        fan.add();
        QCOMPARE(fan.top.getPortCoords(1), QPoint(100 + 41, 54));
        fan.add();
        QCOMPARE(fan.top.getPortCoords(1), QPoint(100 + 27, 54));
        QCOMPARE(fan.top.getPortCoords(2), QPoint(100 + 54, 54));
    }

    void allPortsOfNoWidthAreAtTheStart() {
        Fan fan;
        fan.top.setRect(QRect(0, -15, 0, 20));
        fan.add();
        fan.add();
        QCOMPARE(fan.top.getPortCoords(1), QPoint(100, 54));
        QCOMPARE(fan.top.getPortCoords(2), QPoint(100, 54));
        // Too narrow for one step a port.
        fan.top.setRect(QRect(0, -15, 2, 20));
        QCOMPARE(fan.top.getPortCoords(2), QPoint(100, 54));
        // Truncated towards zero, not down.
        fan.top.setRect(QRect(0, -15, -2, 20));
        QCOMPARE(fan.top.getPortCoords(2), QPoint(100, 54));
    }

    void numbersOfNoPortAreAtTheNode() {
        Fan fan;
        fan.add();
        for (const int number : {0, 2, -1, 1000, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
            QCOMPARE(fan.top.getPortCoords(number), QPoint(100, 50));
    }

    void farAwayNodesHavePortsThatFitAnInt() {
        Fan fan;
        fan.add();
        fan.top.setRect(
            QRect(QPoint(std::numeric_limits<int>::min(), -15), QPoint(std::numeric_limits<int>::max(), 4)));
        fan.top.setPos(QPoint(2000000000, std::numeric_limits<int>::max()));
        QCOMPARE(fan.top.getPortCoords(1), QPoint(std::numeric_limits<int>::max(), std::numeric_limits<int>::max()));
    }

    void hidingTheMiddleOneRenumbersTheRightOne() {
        Fan fan;
        for (int i = 0; i < 3; ++i)
            fan.add();
        fan.edges.at(1)->setVisible(false);
        QCOMPARE(fan.edges.at(0)->getPort(EdgeSide::To), -1);
        QCOMPARE(fan.edges.at(1)->getPort(EdgeSide::To), 0);
        QCOMPARE(fan.edges.at(2)->getPort(EdgeSide::To), -2);
        QCOMPARE(fan.edges.at(2)->getPort(EdgeSide::From), 2);
        // And gives its room to the others.
        QCOMPARE(fan.below.getPortCoords(-2), QPoint(10 + 2 * 26, 135));
        QCOMPARE(fan.below.getUpPorts().size(), std::size_t{2});
    }

    void shownAgainAnEdgeIsAtTheRightEnd() {
        Fan fan;
        for (int i = 0; i < 3; ++i)
            fan.add();
        fan.edges.at(0)->setVisible(false);
        fan.edges.at(0)->setVisible(true);
        QCOMPARE(fan.edges.at(0)->getPort(EdgeSide::From), 3);
        QCOMPARE(fan.edges.at(1)->getPort(EdgeSide::From), 1);
        QCOMPARE(fan.edges.at(2)->getPort(EdgeSide::From), 2);
    }

    void hidingAllInAnyOrderLeavesNoPorts() {
        Fan fan;
        for (int i = 0; i < 5; ++i)
            fan.add();
        for (const int i : {2, 4, 0, 1, 3})
            fan.edges.at(i)->setVisible(false);
        QVERIFY(fan.top.getDownPorts().empty());
        QVERIFY(fan.below.getUpPorts().empty());
        for (const int i : {3, 1})
            fan.edges.at(i)->setVisible(true);
        QCOMPARE(fan.edges.at(3)->getPort(EdgeSide::From), 1);
        QCOMPARE(fan.edges.at(1)->getPort(EdgeSide::From), 2);
    }

    void removedPortsAreErasedByTheirNumber() {
        Fan fan;
        for (int i = 0; i < 3; ++i)
            fan.add();
        fan.below.removeUpPort(-2);
        QCOMPARE(fan.edges.at(2)->getPort(EdgeSide::To), -2);
        QCOMPARE(fan.edges.at(2)->getPort(EdgeSide::From), 3);
        fan.top.removeDownPort(1);
        QCOMPARE(fan.edges.at(1)->getPort(EdgeSide::From), 1);
        QCOMPARE(fan.edges.at(2)->getPort(EdgeSide::From), 2);
        // The sign does not matter.
        fan.top.removeDownPort(-1);
        QCOMPARE(fan.edges.at(2)->getPort(EdgeSide::From), 1);
    }

    void numbersOfNoPortAreNotRemoved() {
        Fan fan;
        fan.add();
        for (const int number : {0, 2, -2, std::numeric_limits<int>::min()}) {
            fan.top.removeDownPort(number);
            fan.below.removeUpPort(number);
        }
        fan.top.removeUpPort(-1);
        QCOMPARE(fan.top.getDownPorts().size(), std::size_t{1});
        QCOMPARE(fan.below.getUpPorts().size(), std::size_t{1});
    }

    void setPortsRewritesAllNumbers() {
        Fan fan;
        fan.add();
        fan.add();
        fan.edges.at(0)->setPort(EdgeSide::From, 17);
        fan.edges.at(1)->setPort(EdgeSide::To, 0);
        fan.top.setPorts();
        fan.below.setPorts();
        QCOMPARE(fan.edges.at(0)->getPort(EdgeSide::From), 1);
        QCOMPARE(fan.edges.at(1)->getPort(EdgeSide::To), -2);
    }

    void portsCanBeAddedByHand() {
        Fan fan;
        EdgeBase* edge = fan.add();
        fan.top.addUpPort(edge, EdgeSide::From);
        QCOMPARE(edge->getPort(EdgeSide::From), -1);
        fan.top.addUpPort(edge, EdgeSide::To);
        QCOMPARE(edge->getPort(EdgeSide::To), -2);
        fan.top.addDownPort(edge, EdgeSide::To);
        QCOMPARE(edge->getPort(EdgeSide::To), 2);
    }

    void nodesAreNotCopied() {
        QVERIFY(!std::is_copy_constructible_v<GraphNodeBase>);
        QVERIFY(!std::is_copy_assignable_v<GraphNodeBase>);
        QVERIFY(!std::is_move_constructible_v<GraphNodeBase>);
    }
};

QTEST_GUILESS_MAIN(GraphNodeBaseTest)
#include "GraphNodeBaseTest.moc"
