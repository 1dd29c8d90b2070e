// SPDX-License-Identifier: MIT
#include "visualization/graphcore/Rounding.h"

#include <QtTest>

#include <limits>

using namespace Kova::GUI;

class RoundingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void halvesGoAwayFromZero() {
        QCOMPARE(roundHalfAway(0.5), 1);
        QCOMPARE(roundHalfAway(1.5), 2);
        QCOMPARE(roundHalfAway(-0.5), -1);
        QCOMPARE(roundHalfAway(-1.5), -2);
        QCOMPARE(roundHalfAway(-2.5), -3);
        QCOMPARE(roundHalfAway(2.4999), 2);
        QCOMPARE(roundHalfAway(-2.4999), -2);
    }

    void truncationGoesTowardsZero() {
        QCOMPARE(truncated(56.9), 56);
        QCOMPARE(truncated(-56.9), -56);
        QCOMPARE(truncated(-0.9), 0);
    }

    void valuesOutsideIntAreClamped() {
        QCOMPARE(truncated(1e300), std::numeric_limits<int>::max());
        QCOMPARE(truncated(-1e300), std::numeric_limits<int>::min());
        QCOMPARE(roundHalfAway(1e300), std::numeric_limits<int>::max());
        QCOMPARE(roundHalfAway(-std::numeric_limits<double>::infinity()), std::numeric_limits<int>::min());
        QCOMPARE(truncated(std::numeric_limits<double>::quiet_NaN()), 0);
        QCOMPARE(roundHalfAway(std::numeric_limits<double>::quiet_NaN()), 0);
    }
};

QTEST_APPLESS_MAIN(RoundingTest)
#include "RoundingTest.moc"
