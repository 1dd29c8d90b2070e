// SPDX-License-Identifier: MIT
#include "visualization/graphcore/LayoutManager.h"

#include "tests/visualization/graphcore/LayoutGraph.h"
#include "visualization/graphcore/ForceLayout.h"
#include "visualization/graphcore/RandomLayout.h"
#include "visualization/graphcore/SourceSinkLayout.h"

#include <QtTest>

#include <functional>

using namespace Kova::GUI::GenericGraph;

using MakeLayout = std::function<std::unique_ptr<LayoutManager>()>;
Q_DECLARE_METATYPE(MakeLayout)

namespace {

LayoutGraph mixedGraph() {
    // A tree with a cross edge, a cycle, recursion, parallel edges and isolated nodes.
    return LayoutGraph(12, {{0, 1}, {0, 2}, {1, 3}, {2, 3}, {4, 5}, {5, 6}, {6, 4}, {7, 7}, {0, 8}, {0, 8}});
}

} // namespace

/// What every layout owes its callers.
class LayoutManagerTest : public QObject {
    Q_OBJECT

private:
    static void addLayoutRows() {
        QTest::addColumn<MakeLayout>("make");
        QTest::newRow("random") << MakeLayout([] { return std::make_unique<RandomLayout>(); });
        QTest::newRow("source-sink") << MakeLayout([] { return std::make_unique<SourceSinkLayout>(); });
        QTest::newRow("force") << MakeLayout([] { return std::make_unique<ForceLayout>(new RandomLayout); });
    }

private Q_SLOTS:
    void emptyListChangesNothing_data() { addLayoutRows(); }
    void emptyListChangesNothing() {
        QFETCH(MakeLayout, make);
        make()->layOut({});
    }

    void sameGraphGivesTheSamePicture_data() { addLayoutRows(); }
    void sameGraphGivesTheSamePicture() {
        QFETCH(MakeLayout, make);
        const LayoutGraph first = mixedGraph();
        const std::unique_ptr<LayoutManager> layout = make();
        layout->layOut(first.nodes());
        const std::vector<QPoint> expected = first.centers();
        layout->layOut(first.nodes());
        QCOMPARE(first.centers(), expected);
        // Another object, and nodes at other addresses.
        const LayoutGraph padding = mixedGraph();
        const LayoutGraph second = mixedGraph();
        make()->layOut(second.nodes());
        QCOMPARE(second.centers(), expected);
    }

    void earlierRunsLeaveNoTrace_data() { addLayoutRows(); }
    void earlierRunsLeaveNoTrace() {
        QFETCH(MakeLayout, make);
        const LayoutGraph fresh = mixedGraph();
        make()->layOut(fresh.nodes());
        const LayoutGraph other(30, {{3, 4}, {4, 5}, {5, 3}, {9, 8}, {29, 0}});
        const LayoutGraph again = mixedGraph();
        const std::unique_ptr<LayoutManager> layout = make();
        layout->layOut(other.nodes());
        layout->layOut(again.nodes());
        QCOMPARE(again.centers(), fresh.centers());
    }

    void allVisibleNodesGetPlacesOfTheirOwn_data() { addLayoutRows(); }
    void allVisibleNodesGetPlacesOfTheirOwn() {
        QFETCH(MakeLayout, make);
        const LayoutGraph graph = mixedGraph();
        make()->layOut(graph.nodes());
        const std::vector<QPoint> centers = graph.centers();
        for (std::size_t i = 0; i < centers.size(); ++i)
            for (std::size_t j = 0; j < i; ++j)
                QVERIFY2(centers[i] != centers[j], qPrintable(QString("%1 and %2").arg(i).arg(j)));
    }

    void sizesAndEdgesAreLeftAlone_data() { addLayoutRows(); }
    void sizesAndEdgesAreLeftAlone() {
        QFETCH(MakeLayout, make);
        const LayoutGraph graph = mixedGraph();
        make()->layOut(graph.nodes());
        for (NodeBase* node : graph.nodes())
            QCOMPARE(node->getRect().size(), QSize(40, 20));
        QCOMPARE(graph.node(0).getOutgoingEdges().size(), std::size_t{4});
        QCOMPARE(graph.node(8).getIncomingEdges().size(), std::size_t{2});
        QVERIFY(graph.node(11).isVisible());
    }

    void edgesFollowTheirNodes_data() { addLayoutRows(); }
    void edgesFollowTheirNodes() {
        QFETCH(MakeLayout, make);
        const LayoutGraph graph = mixedGraph();
        make()->layOut(graph.nodes());
        for (NodeBase* node : graph.nodes()) {
            for (EdgeBase* edge : node->getOutgoingEdges()) {
                const QPoint start = edge->getStart();
                const QPoint end = edge->getEnd();
                edge->updatePos();
                QCOMPARE(edge->getStart(), start);
                QCOMPARE(edge->getEnd(), end);
            }
        }
    }

    void entriesOfDeletedEdgesAreSkipped_data() { addLayoutRows(); }
    void entriesOfDeletedEdgesAreSkipped() {
        QFETCH(MakeLayout, make);
        LayoutGraph graph = mixedGraph();
        graph.removeEdge(0);
        graph.removeEdge(4);
        make()->layOut(graph.nodes());
        QVERIFY(graph.node(0).getOutgoingEdges().front() == nullptr);
    }
};

QTEST_APPLESS_MAIN(LayoutManagerTest)
#include "LayoutManagerTest.moc"
