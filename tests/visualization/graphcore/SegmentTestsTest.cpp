// SPDX-License-Identifier: MIT
#include "visualization/graphcore/SegmentTests.h"

#include "PlainGraph.h"

#include <QtTest>

#include <random>

using namespace Kova::GUI;
using namespace Kova::GUI::GenericGraph;

class SegmentTestsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void levelCorridorEndsAtItsRectangle() {
        const QPoint a(0, 0);
        const QPoint b(500, 0);
        QVERIFY(isInCorridor(a, b, QPoint(250, 0)));
        QVERIFY(isInCorridor(a, b, QPoint(250, 5)));
        QVERIFY(!isInCorridor(a, b, QPoint(250, 6)));
        QVERIFY(isInCorridor(a, b, QPoint(-5, -5)));
        QVERIFY(!isInCorridor(a, b, QPoint(-6, 0)));
        QVERIFY(isInCorridor(b, a, QPoint(505, 5)));
        QVERIFY(!isInCorridor(b, a, QPoint(506, 0)));
    }

    void slantedCorridorIsTwelveUnitsWideOnEachSide() {
        // A 3-4-5 line: 15 units aside horizontally are 12 across.
        const QPoint a(0, 0);
        const QPoint b(300, 400);
        QVERIFY(isInCorridor(a, b, QPoint(165, 200)));
        QVERIFY(!isInCorridor(a, b, QPoint(166, 200)));
        QVERIFY(isInCorridor(b, a, QPoint(135, 200)));
        QVERIFY(!isInCorridor(b, a, QPoint(134, 200)));
    }

    void productsDoNotWrapAround() {
        // The cross product is 65536, whose square is 0 in 32 bits; the point is 181 units away.
        QVERIFY(!isInCorridor(QPoint(0, 0), QPoint(256, 256), QPoint(0, 256)));
        QVERIFY(!isInCorridor(QPoint(-2000000000, -2000000000), QPoint(2000000000, 2000000000), QPoint(0, 1000)));
        QVERIFY(isInCorridor(QPoint(-2000000000, -2000000000), QPoint(2000000000, 2000000000), QPoint(0, 16)));
        QVERIFY(!isInCorridor(QPoint(-2000000000, -2000000000), QPoint(2000000000, 2000000000), QPoint(0, 17)));
        QVERIFY(!isOnSegment(QPoint(-2000000000, -2000000000), QPoint(2000000000, 2000000000), QPoint(0, 1)));
        QVERIFY(isOnSegment(QPoint(-2000000000, -2000000000), QPoint(2000000000, 2000000000), QPoint(7, 7)));
    }

    void corridorOfNoLengthIsASquare() {
        const QPoint a(10, 10);
        QVERIFY(isInCorridor(a, a, QPoint(15, 5)));
        QVERIFY(!isInCorridor(a, a, QPoint(16, 10)));
    }

    void segmentEndsAtItsEnds() {
        const QPoint from(0, 0);
        const QPoint to(10, 0);
        QVERIFY(isOnSegment(from, to, QPoint(0, 0)));
        QVERIFY(isOnSegment(from, to, QPoint(10, 0)));
        QVERIFY(!isOnSegment(from, to, QPoint(11, 0)));
        QVERIFY(!isOnSegment(from, to, QPoint(-1, 0)));
        QVERIFY(!isOnSegment(from, to, QPoint(5, 1)));
    }

    void slantedSegmentIsHalfAUnitWide() {
        // Length √5, so products up to 1 count.
        const QPoint from(0, 0);
        const QPoint to(2, 1);
        QVERIFY(isOnSegment(from, to, QPoint(1, 0)));
        QVERIFY(isOnSegment(from, to, QPoint(1, 1)));
        QVERIFY(!isOnSegment(from, to, QPoint(1, -1)));
        QVERIFY(!isOnSegment(from, to, QPoint(0, 1)));
        QVERIFY(!isOnSegment(QPoint(0, 0), QPoint(1, 1), QPoint(1, 0)));
    }

    void segmentOfNoLengthIsMetByItsPointOnly() {
        QVERIFY(isOnSegment(QPoint(3, 4), QPoint(3, 4), QPoint(3, 4)));
        QVERIFY(!isOnSegment(QPoint(3, 4), QPoint(3, 4), QPoint(3, 5)));
    }

    void agreesWithFloatingPointRoots() {
        std::mt19937 generator(4);
        std::uniform_int_distribution<int> near(-30, 30);
        for (int round = 0; round < 200000; ++round) {
            const QPoint from(near(generator), near(generator));
            const QPoint to(near(generator), near(generator));
            const QPoint point(near(generator), near(generator));
            QCOMPARE(isOnSegment(from, to, point), plainMeets(from, to, point));
        }
    }
};

QTEST_APPLESS_MAIN(SegmentTestsTest)
#include "SegmentTestsTest.moc"
