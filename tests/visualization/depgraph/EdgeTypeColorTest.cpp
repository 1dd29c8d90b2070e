// SPDX-License-Identifier: MIT
#include "visualization/depgraph/EdgeTypeColor.h"

#include <QtTest>

using namespace DepGraph;
using Kova::GUI::DepGraph::edgeTypeToColor;

class EdgeTypeColorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyKindHasItsColour() {
        QCOMPARE(edgeTypeToColor(DT_FLOW), QColor(0, 0, 255));
        QCOMPARE(edgeTypeToColor(DT_ANTI), QColor(255, 0, 0));
        QCOMPARE(edgeTypeToColor(DT_OUTPUT), QColor(0, 128, 0));
        QCOMPARE(edgeTypeToColor(DT_INPUT), QColor(255, 0, 255));
    }

    void anythingElseIsBlack() {
        for (const int number : {-1, 0, 3, 5, 6, 7, 9, 15, 16})
            QCOMPARE(edgeTypeToColor(static_cast<EN_DepType>(number)), QColor(0, 0, 0));
    }
};

QTEST_GUILESS_MAIN(EdgeTypeColorTest)
#include "EdgeTypeColorTest.moc"
