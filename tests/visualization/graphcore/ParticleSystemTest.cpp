// SPDX-License-Identifier: MIT
#include "visualization/graphcore/ParticleSystem.h"

#include "tests/visualization/graphcore/PlainParticles.h"

#include <QtTest>

#include <cstdlib>
#include <cstring>
#include <random>

using Kova::ParticleSystem::Node;
using Kova::ParticleSystem::Particle;
using Kova::ParticleSystem::ParticleSystem;

namespace {

const std::vector<Node> TwoJoined{{0, 0, {1}}, {300, 0, {0}}};

bool sameBits(double a, double b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

/// Nodes in a square of 150 * sqrt(count) with two edges each; some edges double, some recursive, some nodes in one
/// place.
std::vector<Node> randomNodes(int count, unsigned seed) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> place(0, 150 * std::sqrt(static_cast<double>(count)));
    std::uniform_int_distribution<int> any(0, count - 1);
    std::vector<Node> nodes(static_cast<std::size_t>(count));
    for (Node& node : nodes)
        node = {std::floor(place(random)), std::floor(place(random)), {}};
    for (int i = 0; i < 2 * count; ++i) {
        const int a = any(random), b = any(random);
        nodes[static_cast<std::size_t>(a)].neighbours.push_back(b);
        nodes[static_cast<std::size_t>(b)].neighbours.push_back(a);
    }
    for (int i = 0; i + 10 < count; i += 50) {
        nodes[static_cast<std::size_t>(i)].x = nodes[static_cast<std::size_t>(i + 10)].x;
        nodes[static_cast<std::size_t>(i)].y = nodes[static_cast<std::size_t>(i + 10)].y;
    }
    return nodes;
}

PlainParticles::Simulation plainSimulation(const std::vector<Node>& nodes) {
    PlainParticles::Simulation simulation;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        std::vector<std::size_t> neighbours;
        for (const int neighbour : nodes[i].neighbours) {
            if (static_cast<std::size_t>(neighbour) != i)
                neighbours.push_back(static_cast<std::size_t>(neighbour));
        }
        simulation.add(nodes[i].x, nodes[i].y, neighbours);
    }
    return simulation;
}

} // namespace

class ParticleSystemTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void emptySystem() {
        ParticleSystem system;
        QCOMPARE(system.timeStep(), 0.0);
        QCOMPARE(system.energy(), 0.0);
        system.initialize({});
        QCOMPARE(system.timeStep(), 1e-7);
        QCOMPARE(system.mass(), 0.0);
        QCOMPARE(system.rect(), QRectF(0, 0, 0, 0));
        QCOMPARE(system.calculateForces(), 10000.0);
        QCOMPARE(system.findMaxVelocity(), 0.0);
        system.makeStep();
        QCOMPARE(system.timeStep(), (0.5 + 1e-7) * 0.5);
        QCOMPARE(system.energy(), 0.0);
    }

    void massGrowsByFiveANeighbour() {
        ParticleSystem system;
        system.initialize({{0, 0, {1, 2, 1}}, {9, 9, {0}}, {5, 5, {}}});
        QCOMPARE(system.particles()[0].mass, 16.0);
        QCOMPARE(system.particles()[1].mass, 6.0);
        QCOMPARE(system.particles()[2].mass, 1.0);
        QCOMPARE(system.mass(), 23.0);
    }

    void ownAndOutsideIndicesAreIgnored() {
        ParticleSystem system;
        system.initialize({{0, 0, {0, 1, -1, 2, 1000000}}, {9, 9, {1}}});
        QCOMPARE(system.particles()[0].neighbours, (std::vector<Particle*>{system.particles()[0].neighbours.front()}));
        QCOMPARE(system.particles()[0].neighbours.front(), &system.particles()[1]);
        QCOMPARE(system.particles()[0].mass, 6.0);
        QCOMPARE(system.particles()[1].mass, 1.0);
    }

    void initializingAgainKeepsMassesAndVelocities() {
        ParticleSystem system;
        system.initialize(TwoJoined);
        system.makeStep();
        const double velocity = system.particles()[0].vx;
        QVERIFY(velocity > 0);
        system.initialize({{7, 8, {1}}, {300, 0, {0}}, {0, 0, {}}});
        QCOMPARE(system.particles()[0].x, 7.0);
        QCOMPARE(system.particles()[0].mass, 11.0);
        QCOMPARE(system.particles()[0].vx, velocity);
        QCOMPARE(system.particles()[0].neighbours.size(), std::size_t{1});
        QCOMPARE(system.particles()[0].neighbours.front(), &system.particles()[1]);
        QCOMPARE(system.particles()[2].mass, 1.0);
        QCOMPARE(system.timeStep(), 1e-7);
    }

    void clearedSystemStartsAfresh() {
        ParticleSystem system;
        system.initialize(TwoJoined);
        system.makeStep();
        system.clear();
        QVERIFY(system.particles().empty());
        system.initialize(TwoJoined);
        QCOMPARE(system.particles()[0].mass, 6.0);
        QCOMPARE(system.particles()[0].vx, 0.0);
    }

    void initializeSeedsTheRandomGenerator() {
        ParticleSystem system;
        for (const int seed : {0, 42}) {
            system.setRand(seed);
            system.initialize({});
            const int drawn = std::rand();
            std::srand(static_cast<unsigned>(seed));
            QCOMPARE(drawn, std::rand());
        }
    }

    // Stretch 200 pulls with 200; charges of 6 and 6 push with 3000 * 36 / 300^2 = 1.2.
    void springsPullAndChargesPush() {
        ParticleSystem system;
        system.initialize(TwoJoined);
        QCOMPARE(system.calculateForces(), 300.0);
        QCOMPARE(system.particles()[0].fx, 198.8);
        QCOMPARE(system.particles()[1].fx, -198.8);
        QCOMPARE(system.particles()[0].fy, 0.0);
        QCOMPARE(system.calculateForces(), 300.0);
        QCOMPARE(system.particles()[0].fx, 198.8);
    }

    void springsPullOnlyTheEndThatListsThem() {
        ParticleSystem system;
        system.setCoulombCoef(0);
        system.initialize({{0, 0, {1, 1}}, {0, 150, {}}});
        system.calculateForces();
        QCOMPARE(system.particles()[0].fy, 100.0);
        QCOMPARE(system.particles()[1].fy, 0.0);
    }

    void springsUpToTheirLengthAreSlack_data() {
        QTest::addColumn<double>("distance");
        for (const double distance : {0.0, 0.5, 50.0, 100.0})
            QTest::addRow("%g", distance) << distance;
    }
    void springsUpToTheirLengthAreSlack() {
        QFETCH(double, distance);
        ParticleSystem system;
        system.setCoulombCoef(0);
        system.initialize({{0, 0, {1}}, {distance, 0, {0}}});
        system.calculateForces();
        QCOMPARE(system.particles()[0].fx, 0.0);
    }

    // Length and stiffness: (150 - 50) * 0.25.
    void springsAreAdjustable() {
        ParticleSystem system;
        system.setCoulombCoef(0);
        system.setSpringLength(50);
        system.setHookeCoef(0.25);
        system.initialize({{0, 0, {1}}, {150, 0, {}}});
        system.calculateForces();
        QCOMPARE(system.particles()[0].fx, 25.0);
    }

    // With a spring length of 0 a link shorter than 1 counts as 1 long: (0.5 - 0) / 1 * -1.
    void shortLinksCountAsOneUnit() {
        ParticleSystem system;
        system.setCoulombCoef(0);
        system.setSpringLength(0);
        system.initialize({{0.5, 0, {1}}, {0, 0, {}}});
        system.calculateForces();
        QCOMPARE(system.particles()[0].fx, -0.5);
    }

    void smallestDistanceIsBetweenOneAndTenThousand() {
        ParticleSystem system;
        system.initialize({{0, 0, {}}, {0.25, 0, {}}});
        QCOMPARE(system.calculateForces(), 1.0);
        system.initialize({{0, 0, {}}, {3, 4, {}}});
        QCOMPARE(system.calculateForces(), 5.0);
        system.initialize({{0, 0, {}}, {20000, 0, {}}});
        QCOMPARE(system.calculateForces(), 10000.0);
    }

    // v + f = (198.8, 0), damped 149.1; 300 / (149.1 * 4) = 0.503 is cut to 0.5.
    void stepMovesByDampedVelocity() {
        ParticleSystem system;
        system.initialize(TwoJoined);
        system.calculateForces();
        QCOMPARE(system.findMaxVelocity(), 149.1);
        system.makeStep();
        const double dt = (0.5 + 1e-7) * 0.5;
        QCOMPARE(system.timeStep(), dt);
        QCOMPARE(system.particles()[0].vx, 149.1);
        QCOMPARE(system.particles()[0].x, 149.1 * dt);
        QCOMPARE(system.particles()[1].x, 300 - 149.1 * dt);
    }

    void dampingIsAdjustable() {
        ParticleSystem system;
        system.setDamping(0.5);
        system.initialize(TwoJoined);
        system.calculateForces();
        QCOMPARE(system.findMaxVelocity(), 99.4);
        system.updatePositions();
        QCOMPARE(system.particles()[0].vx, 99.4);
    }

    // 1 / (3000 * 36 * 0.75 * 4) is far below the least ratio, 0.0001.
    void ratioHasALowerBound() {
        ParticleSystem system;
        system.initialize({{0, 0, {1}}, {1, 0, {0}}});
        system.makeStep();
        QCOMPARE(system.timeStep(), (0.0001 + 1e-7) * 0.5);
    }

    void timeStepIsARunningAverage() {
        ParticleSystem system;
        system.initialize({{0, 0, {}}});
        double expected = 1e-7;
        for (int step = 0; step < 5; ++step) {
            system.makeStep();
            expected = (0.5 + expected) * 0.5;
            QCOMPARE(system.timeStep(), expected);
        }
        QCOMPARE(system.particles()[0].x, 0.0);
    }

    // Springs of length 0 and no charges: forces (3, -4) and (-3, 4), damped by 1. The y component is not squared:
    // 6 * (9 - 4) + 6 * (9 + 4).
    void energyTakesTheVerticalVelocityUnsquared() {
        ParticleSystem system;
        system.setCoulombCoef(0);
        system.setSpringLength(0);
        system.setDamping(1);
        system.initialize({{-3, 4, {1}}, {0, 0, {0}}});
        system.calculateForces();
        system.updatePositions();
        QCOMPARE(system.energy(), 6.0 * (9 - 4) + 6.0 * (9 + 4));
        // The next update starts from 0: velocities have doubled.
        system.updatePositions();
        QCOMPARE(system.energy(), 6.0 * (36 - 8) + 6.0 * (36 + 8));
    }

    void rectIsTheBoundingRectangle() {
        ParticleSystem system;
        system.initialize({{-5, 40, {}}, {10, 2, {}}, {3, 7.5, {}}});
        QCOMPARE(system.rect(), QRectF(-5, 2, 15, 38));
    }

    void manyStepsEqualThePlainSimulationBitForBit_data() {
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("steps");
        for (const int count : {1, 2, 7, 8, 9, 16, 31, 100, 333})
            QTest::addRow("%d", count) << count << 150;
        QTest::addRow("1001") << 1001 << 6;
    }
    void manyStepsEqualThePlainSimulationBitForBit() {
        QFETCH(int, count);
        QFETCH(int, steps);
        const std::vector<Node> nodes = randomNodes(count, 11);
        ParticleSystem system;
        system.initialize(nodes);
        PlainParticles::Simulation plain = plainSimulation(nodes);
        for (int step = 0; step < steps; ++step) {
            system.makeStep();
            plain.makeStep();
        }
        QVERIFY(sameBits(system.energy(), plain.energy));
        QVERIFY(sameBits(system.timeStep(), plain.timeStep));
        for (std::size_t i = 0; i < nodes.size(); ++i) {
            QVERIFY(sameBits(system.particles()[i].x, plain.particles[i].x));
            QVERIFY(sameBits(system.particles()[i].y, plain.particles[i].y));
        }
    }
};

QTEST_APPLESS_MAIN(ParticleSystemTest)
#include "ParticleSystemTest.moc"
