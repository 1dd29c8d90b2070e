// SPDX-License-Identifier: MIT
#include "visualization/graphcore/RandomLayout.h"

#include "tests/visualization/graphcore/LayoutGraph.h"

#include <QtTest>

#include <cmath>
#include <cstdlib>
#include <set>

using namespace Kova::GUI::GenericGraph;

class RandomLayoutTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void rrandIsAShareOfTheLargestRandomNumber() {
        std::srand(7);
        const int drawn = std::rand();
        std::srand(7);
        QCOMPARE(rrand(), drawn / 2147483647.0);
        for (int i = 0; i < 1000; ++i) {
            const double number = rrand();
            QVERIFY(number >= 0.0 && number <= 1.0);
        }
    }

    // After srand(0) this C library gives 1804289383, 846930886, 1681692777, 1714636915, ...: shares of 0.84019,
    // 0.39438, 0.78310, 0.79844 of a side of sqrt(3) * 150 = 259.81.
    void xIsDrawnBeforeY() {
        const LayoutGraph graph(3, {});
        RandomLayout().layOut(graph.nodes());
        QCOMPARE(graph.node(0).getCenter(), QPoint(218, 102));
        QCOMPARE(graph.node(1).getCenter(), QPoint(203, 207));
    }

    void everyRunReseedsTheGenerator() {
        const LayoutGraph graph(1, {});
        std::srand(99);
        RandomLayout().layOut(graph.nodes());
        const int afterwards = std::rand();
        std::srand(0);
        static_cast<void>(std::rand());
        static_cast<void>(std::rand());
        QCOMPARE(afterwards, std::rand());
    }

    void emptyRunReseedsToo() {
        std::srand(99);
        RandomLayout().layOut({});
        const int afterwards = std::rand();
        std::srand(0);
        QCOMPARE(afterwards, std::rand());
    }

    void noTwoNodesShareACentre() {
        const LayoutGraph graph(3000, {});
        RandomLayout().layOut(graph.nodes());
        const double side = std::sqrt(3000.0) * 150;
        std::set<std::pair<int, int>> taken;
        for (const QPoint& center : graph.centers()) {
            QVERIFY(taken.insert({center.x(), center.y()}).second);
            QVERIFY(center.x() >= 0 && center.x() <= side && center.y() >= 0 && center.y() <= side);
        }
    }

    // 100,000 nodes on a side of 47,434: some key, x * 10000 + y, comes twice and is drawn again.
    void takenPlacesAreDrawnAgain() {
        const int count = 100000;
        const LayoutGraph graph(count, {});
        RandomLayout().layOut(graph.nodes());
        const double side = std::sqrt(static_cast<double>(count)) * 150;
        std::srand(0);
        std::set<qint64> keys;
        int repeated = 0;
        for (const QPoint& center : graph.centers()) {
            QPoint expected;
            while (true) {
                expected.setX(static_cast<int>(std::rand() / 2147483647.0 * side));
                expected.setY(static_cast<int>(std::rand() / 2147483647.0 * side));
                if (keys.insert(qint64{expected.x()} * 10000 + expected.y()).second)
                    break;
                ++repeated;
            }
            QCOMPARE(center, expected);
        }
        QVERIFY(repeated > 0);
    }

    void invisibleNodesArePlacedToo() {
        const LayoutGraph graph(3, {});
        graph.node(0).setVisible(false);
        RandomLayout().layOut(graph.nodes());
        QCOMPARE(graph.node(0).getCenter(), QPoint(218, 102));
        QCOMPARE(graph.node(1).getCenter(), QPoint(203, 207));
    }
};

QTEST_APPLESS_MAIN(RandomLayoutTest)
#include "RandomLayoutTest.moc"
