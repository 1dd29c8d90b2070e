// SPDX-License-Identifier: MIT
#include "visualization/graphcore/CurveGeometry.h"

#include <QtTest>

#include <cmath>

using namespace Kova::GUI;

namespace {

/// Truncation of a coordinate that is a whole number but for the last bits may go either way.
bool isNear(const QPoint& point, int x, int y) {
    return std::abs(point.x() - x) <= 1 && std::abs(point.y() - y) <= 1;
}

} // namespace

class CurveGeometryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void directionIsNegativeUpwardsAndLevel() {
        const Direction2D down = directionBetween(QPoint(0, 0), QPoint(3, 4));
        QCOMPARE(down.length, 5.0);
        QCOMPARE(down.angle, std::acos(0.6));
        QCOMPARE(directionBetween(QPoint(7, 7), QPoint(10, 3)).angle, -std::acos(0.6));
        QCOMPARE(directionBetween(QPoint(0, 0), QPoint(5, 0)).angle, 0.0);
        QCOMPARE(directionBetween(QPoint(0, 0), QPoint(-5, 0)).angle, -std::acos(-1.0));
    }

    void coincidingPointsHaveNoDirection() {
        const Direction2D none = directionBetween(QPoint(4, 4), QPoint(4, 4));
        QCOMPARE(none.length, 0.0);
        QCOMPARE(none.angle, 0.0);
    }

    void directionOfFarPointsIsExact() {
        const Direction2D far = directionBetween(QPoint(-2000000000, 0), QPoint(2000000000, 0));
        QCOMPARE(far.length, 4.0e9);
        QCOMPARE(far.angle, 0.0);
    }

    void wholeCoordinateIsTruncated() {
        // 100 + 43.9 * cos(180°) is 56.1: the sum is truncated, not the offset.
        QCOMPARE(pointAtAngle(QPoint(100, 0), 43.9, std::acos(-1.0)).x(), 56);
        QCOMPARE(pointAtAngle(QPoint(-100, 0), 43.9, 0.0).x(), -56);
    }

    void midpointRoundsHalvesAwayFromZero() {
        QCOMPARE(midpoint(QPoint(0, 0), QPoint(3, 5)), QPoint(2, 3));
        QCOMPARE(midpoint(QPoint(-1, -3), QPoint(0, 0)), QPoint(-1, -2));
        QCOMPARE(midpoint(QPoint(2000000000, 0), QPoint(2000000000, 0)), QPoint(2000000000, 0));
    }

    void negativeBendTurnsALeftToRightArcDown() {
        const CurveControls controls = bentControls(QPoint(0, 0), QPoint(300, 0), -30.0);
        // 100 units from each end at 30°: (86.6, 50) and (213.4, 50).
        QVERIFY(isNear(controls.first, 86, 50));
        QVERIFY(isNear(controls.second, 213, 50));
    }

    void arcBetweenCoincidingPointsStaysThere() {
        const CurveControls controls = bentControls(QPoint(7, 8), QPoint(7, 8), -30.0);
        QCOMPARE(controls.first, QPoint(7, 8));
        QCOMPARE(controls.second, QPoint(7, 8));
    }

    void wingsAreTruncated() {
        // 15 * cos 10° = 14.77, 15 * sin 10° = 2.60; the two sides differ by the truncation.
        const ArrowWings right = arrowWings(QPoint(100, 33), QPoint(200, 33));
        QCOMPARE(right.first, QPoint(185, 30));
        QCOMPARE(right.second, QPoint(185, 35));
        const ArrowWings down = arrowWings(QPoint(0, 0), QPoint(0, 100));
        QCOMPARE(down.first, QPoint(2, 85));
        QCOMPARE(down.second, QPoint(-2, 85));
        const ArrowWings up = arrowWings(QPoint(0, 100), QPoint(0, 0));
        QCOMPARE(up.first, QPoint(-2, 14));
        QCOMPARE(up.second, QPoint(2, 14));
    }

    void wingsOfNoDirectionAreTheTip() {
        const ArrowWings none = arrowWings(QPoint(5, 6), QPoint(5, 6));
        QCOMPARE(none.first, QPoint(5, 6));
        QCOMPARE(none.second, QPoint(5, 6));
    }

    void pathIsCurveThenOpenHead() {
        const ArrowCurve curve{{0, 0}, {10, 40}, {20, 40}, {30, 0}, {{25, 9}, {28, 9}}};
        const QPainterPath path = arrowCurvePath(curve);
        QPainterPath expected(QPointF(0, 0));
        expected.cubicTo(10, 40, 20, 40, 30, 0);
        expected.moveTo(25, 9);
        expected.lineTo(30, 0);
        expected.lineTo(28, 9);
        QCOMPARE(path.elementCount(), 7);
        QCOMPARE(path, expected);
    }

    void curvesCompareByAllPoints() {
        const ArrowCurve curve{{1, 2}, {3, 4}, {5, 6}, {7, 8}, {{9, 10}, {11, 12}}};
        QVERIFY(curve == curve);
        ArrowCurve other = curve;
        other.wings.second = QPoint(11, 13);
        QVERIFY(curve != other);
    }

    void stripLeavesOutAreasBesideASlantedLine() {
        const ArrowCurve line{{0, 0}, {500, 500}, {500, 500}, {1000, 1000}, {{985, 995}, {995, 985}}};
        QVERIFY(stripTouches(line, QRectF(400, 400, 50, 50), 1.0));
        QVERIFY(stripTouches(line, QRectF(440, 400, 50, 50), 1.0));
        QVERIFY(!stripTouches(line, QRectF(700, 100, 100, 100), 1.0));
        QVERIFY(!stripTouches(line, QRectF(100, 700, 100, 100), 1.0));
        QVERIFY(stripTouches(line, QRectF(700, 100, 100, 100), 600.0));
    }

    void controlRectHoldsAllSixPoints() {
        const ArrowCurve curve{{0, 10}, {-30, 300}, {600, 20}, {90, 0}, {{80, 9}, {80, -9}}};
        QCOMPARE(controlRect(curve), QRectF(QPointF(-30, -9), QPointF(600, 300)));
        QCOMPARE(controlRect(ArrowCurve()), QRectF(0, 0, 0, 0));
    }

    void stripHoldsTheBulgeOfACurve() {
        // A curve at a quarter of its length is at 3/4 of its greatest height, here 0.75 * 300.
        const ArrowCurve bulge{{0, 0}, {300, 300}, {600, 300}, {900, 0}, {{890, 9}, {890, -9}}};
        QVERIFY(stripTouches(bulge, QRectF(440, 220, 10, 10), 1.0));
        QVERIFY(!stripTouches(bulge, QRectF(440, -100, 10, 10), 1.0));
    }
};

QTEST_APPLESS_MAIN(CurveGeometryTest)
#include "CurveGeometryTest.moc"
