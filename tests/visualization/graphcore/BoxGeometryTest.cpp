// SPDX-License-Identifier: MIT
#include "visualization/graphcore/BoxGeometry.h"

#include <QtTest>

#include <cmath>
#include <random>

using namespace Kova::GUI;

class BoxGeometryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void boxHoldsItsCorners() {
        const QRect box(10, 20, 101, 51);
        QVERIFY(boxContains(box, QPoint(10, 20)));
        QVERIFY(boxContains(box, QPoint(110, 70)));
        QVERIFY(!boxContains(box, QPoint(111, 70)));
        QVERIFY(!boxContains(box, QPoint(110, 71)));
        QVERIFY(!boxContains(box, QPoint(9, 20)));
    }

    void boxWithoutSizeHoldsNothing() {
        for (int x = -3; x <= 3; ++x) {
            for (int y = -3; y <= 3; ++y) {
                QVERIFY(!boxContains(QRect(0, 0, -1, -1), QPoint(x, y)));
                QVERIFY(!boxContains(QRect(0, 0, 0, 5), QPoint(x, y)));
            }
        }
    }

    void cutsAtEachSide() {
        const QRect box(10, 20, 101, 51);
        const QPoint center(60, 45);
        QCOMPARE(cutAtBox(box, center, QPoint(260, 45)), QPoint(110, 45));
        QCOMPARE(cutAtBox(box, center, QPoint(-140, 45)), QPoint(10, 45));
        QCOMPARE(cutAtBox(box, center, QPoint(60, 145)), QPoint(60, 70));
        QCOMPARE(cutAtBox(box, center, QPoint(60, -55)), QPoint(60, 20));
        QCOMPARE(cutAtBox(box, center, QPoint(160, 145)), QPoint(85, 70));
    }

    void cutsFromOutsideToo() {
        QCOMPARE(cutAtBox(QRect(10, 20, 101, 51), QPoint(260, 45), QPoint(60, 45)), QPoint(110, 45));
    }

    void crossingIsTruncatedTowardsZero() {
        // 45 + 33 * 50 / 200 = 53.25
        QCOMPARE(cutAtBox(QRect(10, 20, 101, 51), QPoint(60, 45), QPoint(260, 78)), QPoint(110, 53));
        // -45 - 33 * 50 / 200 = -53.25
        QCOMPARE(cutAtBox(QRect(-110, -70, 101, 51), QPoint(-60, -45), QPoint(-260, -78)), QPoint(-110, -53));
    }

    void steepSegmentBesideACornerLeavesThroughTheSide() {
        // Passes y = 100 half a unit to the right of the box, so that it has left through the right side long before.
        const QRect box(0, 0, 11, 101);
        const QPoint cut = cutAtBox(box, QPoint(5, 50), QPoint(16, 150));
        QCOMPARE(cut, QPoint(10, 95));
    }

    void bothEndsInsideOrOutsideChangeNothing() {
        const QRect box(10, 20, 101, 51);
        QCOMPARE(cutAtBox(box, QPoint(20, 30), QPoint(110, 70)), QPoint(20, 30));
        QCOMPARE(cutAtBox(box, QPoint(0, 45), QPoint(200, 45)), QPoint(0, 45));
        QCOMPARE(cutAtBox(QRect(0, 0, -1, -1), QPoint(0, 0), QPoint(200, 45)), QPoint(0, 0));
    }

    void farCoordinatesDoNotOverflow() {
        const QRect box(-1000000000, -1000000000, 2000000001, 2000000001);
        QCOMPARE(cutAtBox(box, QPoint(0, 0), QPoint(2000000000, 2000000000)), QPoint(1000000000, 1000000000));
    }

    void everyCutIsOnTheBorderAndOnTheSegment() {
        std::mt19937 generator(3);
        const auto any = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(generator); };
        for (int round = 0; round < 20000; ++round) {
            const QRect box(any(-300, 300), any(-300, 300), any(1, 200), any(1, 60));
            const QPoint in(any(box.left(), box.right()), any(box.top(), box.bottom()));
            const QPoint out(any(-900, 900), any(-900, 900));
            if (boxContains(box, out))
                continue;
            const QPoint cut = cutAtBox(box, in, out);
            QVERIFY(boxContains(box, cut));
            QVERIFY(cut.x() == box.left() || cut.x() == box.right() || cut.y() == box.top() || cut.y() == box.bottom());
            const double dx = out.x() - in.x();
            const double dy = out.y() - in.y();
            const double distance = std::abs(dx * (cut.y() - in.y()) - dy * (cut.x() - in.x())) / std::hypot(dx, dy);
            QVERIFY(distance <= 1.0);
        }
    }
};

QTEST_APPLESS_MAIN(BoxGeometryTest)
#include "BoxGeometryTest.moc"
