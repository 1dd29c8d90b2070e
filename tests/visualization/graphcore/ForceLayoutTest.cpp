// SPDX-License-Identifier: MIT
#include "visualization/graphcore/ForceLayout.h"

#include "tests/visualization/graphcore/LayoutGraph.h"
#include "tests/visualization/graphcore/PlainParticles.h"
#include "visualization/graphcore/RandomLayout.h"

#include <QtTest>

#include <algorithm>
#include <random>

using namespace Kova::GUI::GenericGraph;

namespace {

/// Puts the nodes at given centres.
class FixedLayout : public LayoutManager {
public:
    explicit FixedLayout(std::vector<QPoint> centers) : m_centers(std::move(centers)) {}
    void layOut(const std::vector<NodeBase*>& nodes) override {
        for (std::size_t i = 0; i < nodes.size(); ++i)
            nodes[i]->moveTo(m_centers[i].x(), m_centers[i].y());
    }

private:
    std::vector<QPoint> m_centers;
};

class CountedLayout : public LayoutManager {
public:
    CountedLayout(int& runs, int& deletions) : m_runs(runs), m_deletions(deletions) {}
    ~CountedLayout() override { ++m_deletions; }
    void layOut(const std::vector<NodeBase*>&) override { ++m_runs; }

private:
    int& m_runs;
    int& m_deletions;
};

using Edges = std::vector<std::pair<int, int>>;

Edges randomEdges(int nodeCount, int edgeCount, unsigned seed) {
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> any(0, nodeCount - 1);
    Edges edges;
    for (int i = 0; i < edgeCount; ++i) {
        const int source = any(random);
        edges.push_back({source, any(random)});
    }
    return edges;
}

/// The simulation of a graph whose nodes all have edges, from its present centres.
PlainParticles::Simulation plainSimulation(const LayoutGraph& graph, const Edges& edges) {
    PlainParticles::Simulation simulation;
    const std::vector<QPoint> centers = graph.centers();
    for (std::size_t i = 0; i < centers.size(); ++i) {
        std::vector<std::size_t> neighbours;
        for (const auto& [source, target] : edges) {
            if (static_cast<std::size_t>(target) == i && source != target)
                neighbours.push_back(static_cast<std::size_t>(source));
        }
        for (const auto& [source, target] : edges) {
            if (static_cast<std::size_t>(source) == i && source != target)
                neighbours.push_back(static_cast<std::size_t>(target));
        }
        simulation.add(centers[i].x(), centers[i].y(), neighbours);
    }
    return simulation;
}

std::vector<QPoint> shifted(const PlainParticles::Simulation& simulation, double left, double top) {
    double minX = simulation.particles.front().x, minY = simulation.particles.front().y;
    for (const PlainParticles::Particle& particle : simulation.particles) {
        minX = std::min(minX, particle.x);
        minY = std::min(minY, particle.y);
    }
    std::vector<QPoint> centers;
    for (const PlainParticles::Particle& particle : simulation.particles)
        centers.emplace_back(static_cast<int>(particle.x - (minX - left)), static_cast<int>(particle.y - (minY - top)));
    return centers;
}

double distance(const QPoint& a, const QPoint& b) {
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}

} // namespace

class ForceLayoutTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // A ring of width 60 and height 300, perimeter 720: steps of 180. t = 360 is the corner at the bottom right.
    void fourIsolatedNodesStandOnARing() {
        const LayoutGraph graph(4, {});
        ForceLayout(new RandomLayout).layOut(graph.nodes());
        QCOMPARE(graph.centers(), (std::vector<QPoint>{{50, 50}, {110, 170}, {110, 350}, {50, 230}}));
    }

    // Steps of 60 meet every corner.
    void ringIsWalkedClockwiseThroughItsCorners() {
        const LayoutGraph graph(12, {});
        ForceLayout(new RandomLayout).layOut(graph.nodes());
        QCOMPARE(graph.centers(), (std::vector<QPoint>{{50, 50},
                                                       {110, 50},
                                                       {110, 110},
                                                       {110, 170},
                                                       {110, 230},
                                                       {110, 290},
                                                       {110, 350},
                                                       {50, 350},
                                                       {50, 290},
                                                       {50, 230},
                                                       {50, 170},
                                                       {50, 110}}));
    }

    // 720 / 7 = 102.857...: coordinates are cut, not rounded.
    void ringCoordinatesAreTruncated() {
        const LayoutGraph graph(7, {});
        ForceLayout(new RandomLayout).layOut(graph.nodes());
        QCOMPARE(graph.node(1).getCenter(), QPoint(110, 92));
        QCOMPARE(graph.node(2).getCenter(), QPoint(110, 195));
        QCOMPARE(graph.node(4).getCenter(), QPoint(58, 350));
        QCOMPARE(graph.node(5).getCenter(), QPoint(50, 255));
    }

    void oneIsolatedNode() {
        const LayoutGraph graph(1, {});
        ForceLayout(new RandomLayout).layOut(graph.nodes());
        QCOMPARE(graph.node(0).getCenter(), QPoint(50, 50));
    }

    void farNeighboursComeCloser() {
        const LayoutGraph graph(2, {{0, 1}});
        ForceLayout(new FixedLayout({{0, 0}, {300, 0}})).layOut(graph.nodes());
        QVERIFY(distance(graph.node(0).getCenter(), graph.node(1).getCenter()) < 300);
        QCOMPARE(graph.node(0).getCenter(), QPoint(50, 50));
        QCOMPARE(graph.node(1).getCenter().y(), 50);
    }

    void nearNeighboursArePushedApart() {
        const LayoutGraph graph(2, {{0, 1}});
        ForceLayout(new FixedLayout({{0, 0}, {0, 50}})).layOut(graph.nodes());
        QVERIFY(distance(graph.node(0).getCenter(), graph.node(1).getCenter()) > 50);
        QCOMPARE(graph.node(0).getCenter().x(), 50);
    }

    void recursionAloneMakesAParticleWithoutSprings() {
        const LayoutGraph alone(1, {{0, 0}});
        ForceLayout(new RandomLayout).layOut(alone.nodes());
        QCOMPARE(alone.node(0).getCenter(), QPoint(50, 50));
    }

    void withinARingThePictureStartsFurtherIn() {
        const LayoutGraph graph(2, {{0, 0}});
        ForceLayout(new RandomLayout).layOut(graph.nodes());
        QCOMPARE(graph.node(0).getCenter(), QPoint(80, 100));
        QCOMPARE(graph.node(1).getCenter(), QPoint(50, 50));
    }

    // Two particles in one place with equal charges never part: k is multiplied by a distance of 0.
    void coincidentNodesStayTogether() {
        const LayoutGraph graph(2, {{0, 1}});
        ForceLayout(new FixedLayout({{9, 9}, {9, 9}})).layOut(graph.nodes());
        QCOMPARE(graph.centers(), (std::vector<QPoint>{{50, 50}, {50, 50}}));
    }

    void graphsEqualThePlainSimulation_data() {
        QTest::addColumn<int>("count");
        QTest::addColumn<unsigned>("seed");
        for (const int count : {2, 3, 5, 10, 25, 60})
            for (unsigned seed = 1; seed <= 4; ++seed)
                QTest::addRow("%d nodes, seed %u", count, seed) << count << seed;
    }
    void graphsEqualThePlainSimulation() {
        QFETCH(int, count);
        QFETCH(unsigned, seed);
        Edges edges = randomEdges(count, count, seed);
        for (int i = 0; i < count; ++i)
            edges.push_back({i, (i + 1) % count});
        const LayoutGraph graph(count, edges);
        RandomLayout().layOut(graph.nodes());
        PlainParticles::Simulation plain = plainSimulation(graph, edges);
        const int steps = plain.run();
        QVERIFY(steps >= 102 && steps <= 1000);
        ForceLayout(new RandomLayout).layOut(graph.nodes());
        QCOMPARE(graph.centers(), shifted(plain, 50, 50));
    }

    // Graphs that settle early, for which 101 or 103 steps would give other pictures.
    void settledGraphMakesExactly102Steps() {
        int judged = 0;
        for (unsigned seed = 1; seed <= 40; ++seed) {
            Edges edges = randomEdges(12, 6, seed);
            for (int i = 0; i < 12; ++i)
                edges.push_back({i, (i + 1) % 12});
            const LayoutGraph graph(12, edges);
            RandomLayout().layOut(graph.nodes());
            PlainParticles::Simulation earlier = plainSimulation(graph, edges);
            PlainParticles::Simulation settled = earlier;
            if (settled.run() != 102)
                continue;
            for (int step = 0; step < 101; ++step)
                earlier.makeStep();
            PlainParticles::Simulation later = settled;
            later.makeStep();
            const std::vector<QPoint> expected = shifted(settled, 50, 50);
            judged += expected != shifted(earlier, 50, 50) && expected != shifted(later, 50, 50) ? 1 : 0;
            ForceLayout(new RandomLayout).layOut(graph.nodes());
            QCOMPARE(graph.centers(), expected);
        }
        QVERIFY(judged > 0);
    }

    // A graph that is still moving after 1000 steps, when one more would give another picture.
    void restlessGraphMakesExactly1000Steps() {
        int judged = 0;
        for (unsigned seed = 1; seed <= 10; ++seed) {
            Edges edges = randomEdges(40, 120, seed);
            for (int i = 0; i < 40; ++i)
                edges.push_back({i, (i + 1) % 40});
            const LayoutGraph graph(40, edges);
            RandomLayout().layOut(graph.nodes());
            PlainParticles::Simulation last = plainSimulation(graph, edges);
            if (last.run() != 1000)
                continue;
            PlainParticles::Simulation later = last;
            later.makeStep();
            const std::vector<QPoint> expected = shifted(last, 50, 50);
            judged += expected != shifted(later, 50, 50) ? 1 : 0;
            ForceLayout(new RandomLayout).layOut(graph.nodes());
            QCOMPARE(graph.centers(), expected);
        }
        QVERIFY(judged > 0);
    }

    // Graphs that would stop at another step if the threshold were a little lower or higher.
    void simulationStopsAtHalfTheMass() {
        int judgedLower = 0, judgedHigher = 0;
        for (unsigned seed = 1; seed <= 60; ++seed) {
            Edges edges = randomEdges(20, 10, seed);
            for (int i = 0; i < 20; ++i)
                edges.push_back({i, (i + 1) % 20});
            const LayoutGraph graph(20, edges);
            RandomLayout().layOut(graph.nodes());
            PlainParticles::Simulation plain = plainSimulation(graph, edges);
            PlainParticles::Simulation lower = plain, higher = plain;
            plain.run();
            const std::vector<QPoint> expected = shifted(plain, 50, 50);
            lower.run(0.45);
            judgedLower += shifted(lower, 50, 50) != expected ? 1 : 0;
            higher.run(0.55);
            judgedHigher += shifted(higher, 50, 50) != expected ? 1 : 0;
            ForceLayout(new RandomLayout).layOut(graph.nodes());
            QCOMPARE(graph.centers(), expected);
        }
        QVERIFY(judgedLower > 0 && judgedHigher > 0);
    }

    void ringSurroundsTheSimulatedNodes() {
        const Edges edges{{0, 2}, {2, 4}, {4, 0}, {4, 5}};
        const LayoutGraph graph(9, edges);
        const std::vector<int> connected{0, 2, 4, 5};
        RandomLayout().layOut(graph.nodes());
        LayoutGraph reduced(4, {});
        const Edges reducedEdges{{0, 1}, {1, 2}, {2, 0}, {2, 3}};
        for (int i = 0; i < 4; ++i) {
            const QPoint center = graph.node(connected[static_cast<std::size_t>(i)]).getCenter();
            reduced.node(i).moveTo(center.x(), center.y());
        }
        PlainParticles::Simulation plain = plainSimulation(reduced, reducedEdges);
        plain.run();
        const std::vector<QPoint> expected = shifted(plain, 80, 100);
        ForceLayout(new RandomLayout).layOut(graph.nodes());
        double right = 0, bottom = 0;
        for (int i = 0; i < 4; ++i) {
            QCOMPARE(graph.node(connected[static_cast<std::size_t>(i)]).getCenter(),
                     expected[static_cast<std::size_t>(i)]);
            for (int j = 0; j < 4; ++j) {
                right = std::max(right, plain.particles[static_cast<std::size_t>(i)].x -
                                            plain.particles[static_cast<std::size_t>(j)].x);
                bottom = std::max(bottom, plain.particles[static_cast<std::size_t>(i)].y -
                                              plain.particles[static_cast<std::size_t>(j)].y);
            }
        }
        // Isolated nodes 1, 3, 6, 7, 8 in list order; the first is in the corner, all are on the ring's border.
        const int ringRight = static_cast<int>(50 + right + 60), ringBottom = static_cast<int>(50 + bottom + 300);
        QCOMPARE(graph.node(1).getCenter(), QPoint(50, 50));
        for (const int i : {3, 6, 7, 8}) {
            const QPoint center = graph.node(i).getCenter();
            const bool onVertical = center.x() == 50 || center.x() == ringRight;
            const bool onHorizontal = center.y() == 50 || center.y() == ringBottom;
            QVERIFY((onVertical && center.y() >= 50 && center.y() <= ringBottom) ||
                    (onHorizontal && center.x() >= 50 && center.x() <= ringRight));
        }
    }

    // The entry of a deleted edge makes a node connected, though nothing pulls it.
    void entryOfADeletedEdgeMakesANodeConnected() {
        LayoutGraph graph(2, {{0, 1}});
        graph.removeEdge(0);
        ForceLayout(new FixedLayout({{0, 0}, {100, 0}})).layOut(graph.nodes());
        QCOMPARE(graph.node(0).getCenter(), QPoint(50, 50));
        QVERIFY(graph.node(1).getCenter().x() > 150);
    }

    void neighboursThatAreNotInTheListPullNothing() {
        const LayoutGraph graph(3, {{0, 1}, {1, 2}});
        graph.node(1).moveTo(-500, -500);
        ForceLayout layout(nullptr);
        graph.node(0).moveTo(0, 0);
        graph.node(2).moveTo(400, 0);
        layout.layOut({&graph.node(0), &graph.node(2)});
        QCOMPARE(graph.node(1).getCenter(), QPoint(-500, -500));
        QCOMPARE(graph.node(0).getCenter(), QPoint(50, 50));
        QVERIFY(graph.node(2).getCenter().x() >= 450);
    }

    void initialLayoutIsRunOnceAndOwned() {
        int runs = 0, deletions = 0;
        {
            ForceLayout layout(new CountedLayout(runs, deletions));
            QCOMPARE(runs, 0);
            const LayoutGraph graph(3, {{0, 1}});
            layout.layOut(graph.nodes());
            QCOMPARE(runs, 1);
            QCOMPARE(deletions, 0);
        }
        QCOMPARE(deletions, 1);
    }

    // 3,000 parallel edges between two nodes make the springs overshoot beyond all bounds.
    void runawaySimulationLeavesUsableCoordinates() {
        Edges edges;
        for (int i = 0; i < 3000; ++i)
            edges.push_back({i % 2, 1 - i % 2});
        edges.push_back({1, 2});
        const LayoutGraph graph(3, edges);
        ForceLayout(new FixedLayout({{0, 0}, {5000, 0}, {9000, 100}})).layOut(graph.nodes());
        for (const QPoint& center : graph.centers())
            QVERIFY(std::abs(center.x()) <= 1000000000 && std::abs(center.y()) <= 1000000000);
    }
};

QTEST_APPLESS_MAIN(ForceLayoutTest)
#include "ForceLayoutTest.moc"
