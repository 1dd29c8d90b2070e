// SPDX-License-Identifier: MIT
#include "visualization/graphcore/SourceSinkLayout.h"

#include "tests/visualization/graphcore/LayoutGraph.h"

#include <QtTest>

using namespace Kova::GUI::GenericGraph;

class SourceSinkLayoutTest : public QObject {
    Q_OBJECT

private:
    static std::vector<QPoint> laidOut(const LayoutGraph& graph) {
        SourceSinkLayout().layOut(graph.nodes());
        return graph.centers();
    }
    using Points = std::vector<QPoint>;

private Q_SLOTS:
    void chainIsOneColumn() {
        QCOMPARE(laidOut(LayoutGraph(3, {{0, 1}, {1, 2}})), (Points{{50, 50}, {50, 200}, {50, 350}}));
    }

    // Slots of 40 + 30 and 60 + 30: the parent sits at (160 - 90) / 2 from the left.
    void parentSitsMidwayBetweenItsOuterChildren() {
        LayoutGraph graph;
        NodeBase& parent = graph.add("p", 500);
        graph.join(parent, graph.add("a", 40));
        graph.join(parent, graph.add("b", 60));
        QCOMPARE(laidOut(graph), (Points{{85, 50}, {50, 200}, {120, 200}}));
    }

    // Children's slots 71, 70 and 73: (214 - 73) / 2 = 70, not 70.5.
    void halfUnitsAreDropped() {
        LayoutGraph graph;
        NodeBase& parent = graph.add("p");
        for (const int width : {41, 40, 43})
            graph.join(parent, graph.add("c", width));
        QCOMPARE(laidOut(graph), (Points{{120, 50}, {50, 200}, {121, 200}, {191, 200}}));
    }

    // The inner node's slot is its two leaves' (70 + 70); the next leaf of the root starts after it.
    void treesNest() {
        const LayoutGraph graph(5, {{0, 1}, {0, 4}, {1, 2}, {1, 3}});
        QCOMPARE(laidOut(graph), (Points{{120, 50}, {85, 200}, {50, 350}, {120, 350}, {190, 200}}));
    }

    void sourcesStandSideBySideInListOrder() {
        QCOMPARE(laidOut(LayoutGraph(4, {{0, 3}})), (Points{{50, 50}, {120, 50}, {190, 50}, {50, 200}}));
    }

    void mainComesFirst_data() {
        QTest::addColumn<QString>("name");
        for (const char* name : {"main", "__MAIN__", "Entry"})
            QTest::newRow(name) << QString(name);
    }
    void mainComesFirst() {
        QFETCH(QString, name);
        LayoutGraph graph;
        graph.add("a");
        NodeBase& main = graph.add(name);
        graph.join(main, graph.add("b"));
        QCOMPARE(SourceSinkLayout::findMainNode(graph.nodes()), &main);
        QCOMPARE(laidOut(graph), (Points{{120, 50}, {50, 50}, {50, 200}}));
    }

    void otherSpellingsAreNoMain_data() {
        QTest::addColumn<QString>("name");
        for (const char* name : {"Main", "MAIN", "entry", "__main__", "main ", ""})
            QTest::newRow(name) << QString(name);
    }
    void otherSpellingsAreNoMain() {
        QFETCH(QString, name);
        LayoutGraph graph;
        graph.add("a");
        graph.add(name);
        QVERIFY(SourceSinkLayout::findMainNode(graph.nodes()) == nullptr);
        QCOMPARE(laidOut(graph), (Points{{50, 50}, {120, 50}}));
    }

    void firstMainInTheListCounts() {
        LayoutGraph graph;
        graph.add("a");
        NodeBase& entry = graph.add("Entry");
        graph.add("main");
        QCOMPARE(SourceSinkLayout::findMainNode(graph.nodes()), &entry);
        QVERIFY(SourceSinkLayout::findMainNode({}) == nullptr);
    }

    void mainThatIsCalledStillComesFirst() {
        LayoutGraph graph;
        NodeBase& caller = graph.add("caller");
        NodeBase& main = graph.add("main");
        graph.join(caller, main);
        graph.join(main, caller);
        QCOMPARE(laidOut(graph), (Points{{50, 200}, {50, 50}}));
    }

    // main is hidden: it starts no tree, and is no obstacle.
    void hiddenMainIsPlacedOnlyWhereATreeReachesIt() {
        LayoutGraph graph;
        NodeBase& main = graph.add("main");
        main.setVisible(false);
        main.moveTo(7, 8);
        NodeBase& caller = graph.add("caller");
        QCOMPARE(laidOut(graph), (Points{{7, 8}, {50, 50}}));
        graph.join(caller, main);
        QCOMPARE(laidOut(graph), (Points{{50, 200}, {50, 50}}));
    }

    void hiddenNodesStartNoTree() {
        const LayoutGraph graph(4, {{1, 2}, {3, 3}});
        graph.node(0).setVisible(false);
        graph.node(0).moveTo(-5, -6);
        graph.node(2).setVisible(false);
        graph.node(3).setVisible(false);
        graph.node(3).moveTo(-7, -8);
        QCOMPARE(laidOut(graph), (Points{{-5, -6}, {50, 50}, {50, 200}, {-7, -8}}));
    }

    void cycleIsLaidOutFromItsFirstNode() {
        QCOMPARE(laidOut(LayoutGraph(3, {{1, 2}, {2, 0}, {0, 1}})), (Points{{50, 50}, {50, 200}, {50, 350}}));
    }

    // Recursion is an incoming edge: node 0 waits until the source, node 1, is placed.
    void recursiveNodeIsNoSource() { QCOMPARE(laidOut(LayoutGraph(2, {{0, 0}})), (Points{{120, 50}, {50, 50}})); }

    // Nodes 1 and 2 are both children of 0; the edge 1 -> 2 does not take 2 to the third row.
    void childrenAreClaimedBeforeAnyOfThemIsLookedInto() {
        QCOMPARE(laidOut(LayoutGraph(3, {{0, 1}, {0, 2}, {1, 2}})), (Points{{85, 50}, {50, 200}, {120, 200}}));
    }

    void sharedChildGoesToTheParentThatComesFirst() {
        QCOMPARE(laidOut(LayoutGraph(4, {{0, 1}, {0, 2}, {1, 3}, {2, 3}})),
                 (Points{{85, 50}, {50, 200}, {120, 200}, {50, 350}}));
    }

    void parallelEdgesMakeOneChild() {
        QCOMPARE(laidOut(LayoutGraph(2, {{0, 1}, {0, 1}})), (Points{{50, 50}, {50, 200}}));
    }

    // A deleted edge still counts as an incoming entry, so node 1 is no source, but leads nowhere.
    void entryOfADeletedEdgeKeepsItsTargetFromBeingASource() {
        LayoutGraph graph(3, {{0, 1}, {0, 2}});
        graph.removeEdge(0);
        QCOMPARE(laidOut(graph), (Points{{50, 50}, {120, 50}, {50, 200}}));
    }

    void locateNodesTellsTheWidthAndWhatItPlaced() {
        const LayoutGraph graph(4, {{0, 1}, {0, 2}});
        std::set<NodeBase*> placed{&graph.node(0)};
        int width = 0;
        SourceSinkLayout::locateNodes(graph.node(0), placed, 2, 1000, width);
        QCOMPARE(width, 140);
        QCOMPARE(placed, (std::set<NodeBase*>{&graph.node(0), &graph.node(1), &graph.node(2)}));
        QCOMPARE(graph.centers(), (Points{{1035, 350}, {1000, 500}, {1070, 500}, {20, 10}}));
        SourceSinkLayout::locateNodes(graph.node(3), placed, 0, 0, width);
        QCOMPARE(width, 70);
    }

    void longChainNeedsNoDeepStack() {
        const int count = 100000;
        std::vector<std::pair<int, int>> edges;
        for (int i = 1; i < count; ++i)
            edges.push_back({i - 1, i});
        const LayoutGraph graph(count, edges);
        SourceSinkLayout().layOut(graph.nodes());
        QCOMPARE(graph.node(count - 1).getCenter(), QPoint(50, (count - 1) * 150 + 50));
    }
};

QTEST_APPLESS_MAIN(SourceSinkLayoutTest)
#include "SourceSinkLayoutTest.moc"
