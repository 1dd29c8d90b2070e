// SPDX-License-Identifier: MIT
#include "visualization/graphcore/ChargeForces.h"

#include "tests/visualization/graphcore/ChargeSamples.h"

#include <QtTest>

#include <cstdint>
#include <cstring>
#include <limits>
#include <random>

using Kova::ParticleSystem::ChargeArrays;
using Kova::ParticleSystem::InstructionSet;

using namespace ChargeSamples;

Q_DECLARE_METATYPE(InstructionSet)

namespace {

const std::vector<std::pair<const char*, InstructionSet>> Sets = {{"portable", InstructionSet::Portable},
                                                                  {"sse2", InstructionSet::Sse2},
                                                                  {"avx2", InstructionSet::Avx2},
                                                                  {"avx512", InstructionSet::Avx512}};

auto step(InstructionSet set) {
    return
        [set](ChargeArrays& arrays, double coulomb) { return Kova::ParticleSystem::addCharges(arrays, coulomb, set); };
}

void addSetRows() {
    QTest::addColumn<InstructionSet>("set");
    for (const auto& [name, set] : Sets)
        QTest::newRow(name) << set;
}

} // namespace

class ChargeForcesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void portableIsAlwaysSupportedAndWidestIsSupported() {
        QVERIFY(Kova::ParticleSystem::isSupported(InstructionSet::Portable));
        const InstructionSet widest = Kova::ParticleSystem::widestInstructionSet();
        QVERIFY(Kova::ParticleSystem::isSupported(widest));
        for (const auto& [name, set] : Sets)
            QVERIFY2(set <= widest || !Kova::ParticleSystem::isSupported(set), name);
    }

    void noParticlesAndOneParticle_data() { addSetRows(); }
    void noParticlesAndOneParticle() {
        QFETCH(InstructionSet, set);
        if (!Kova::ParticleSystem::isSupported(set))
            QSKIP("not on this processor");
        ChargeArrays none;
        QCOMPARE(Kova::ParticleSystem::addCharges(none, 3000.0, set), 10000.0);
        ChargeArrays one{{3}, {4}, {6}, {1.5}, {-2.5}};
        QCOMPARE(Kova::ParticleSystem::addCharges(one, 3000.0, set), 10000.0);
        QCOMPARE(one.fx[0], 1.5);
        QCOMPARE(one.fy[0], -2.5);
    }

    // Masses 1 and 6 at distance 5: k = 3000 * 6 / 125 = 144, forces 144 * (3, 4).
    void twoParticlesByHand_data() { addSetRows(); }
    void twoParticlesByHand() {
        QFETCH(InstructionSet, set);
        if (!Kova::ParticleSystem::isSupported(set))
            QSKIP("not on this processor");
        ChargeArrays two{{10, 13}, {20, 24}, {1, 6}, {0, 0}, {0, 0}};
        QCOMPARE(Kova::ParticleSystem::addCharges(two, 3000.0, set), 5.0);
        QCOMPARE(two.fx[1], 432.0);
        QCOMPARE(two.fy[1], 576.0);
        QCOMPARE(two.fx[0], -432.0);
        QCOMPARE(two.fy[0], -576.0);
    }

    // Closer than 1 counts as 1: k = 3000 * 1 * 2 * 1, times half a unit.
    void nearPairCountsAsOneUnitApart_data() { addSetRows(); }
    void nearPairCountsAsOneUnitApart() {
        QFETCH(InstructionSet, set);
        if (!Kova::ParticleSystem::isSupported(set))
            QSKIP("not on this processor");
        ChargeArrays two{{0, 0.5}, {0, 0}, {1, 2}, {0, 0}, {0, 0}};
        QCOMPARE(Kova::ParticleSystem::addCharges(two, 3000.0, set), 1.0);
        QCOMPARE(two.fx[1], 3000.0);
        QCOMPARE(two.fx[0], -3000.0);
    }

    void everySetEqualsThePlainLoopBitForBit_data() {
        QTest::addColumn<InstructionSet>("set");
        QTest::addColumn<int>("spread");
        for (const auto& [name, set] : Sets)
            for (const auto& [spreadName, spread] : spreads())
                QTest::addRow("%s, %s", name, spreadName) << set << static_cast<int>(spread);
    }
    void everySetEqualsThePlainLoopBitForBit() {
        QFETCH(InstructionSet, set);
        QFETCH(int, spread);
        if (!Kova::ParticleSystem::isSupported(set))
            QSKIP("not on this processor");
        std::vector<std::size_t> counts{100, 255, 511};
        for (std::size_t count = 2; count <= 35; ++count)
            counts.push_back(count);
        for (const std::size_t count : counts) {
            for (unsigned seed = 1; seed <= 3; ++seed) {
                QVERIFY(equalsThePlainLoop(randomParticles(count, static_cast<Spread>(spread), seed), step(set)));
            }
        }
    }

    // A few million quotients that no particular graph gives.
    void quotientsOfRandomStrengthsAreExact_data() { addSetRows(); }
    void quotientsOfRandomStrengthsAreExact() {
        QFETCH(InstructionSet, set);
        if (!Kova::ParticleSystem::isSupported(set))
            QSKIP("not on this processor");
        for (unsigned seed = 1; seed <= 20; ++seed) {
            PlainParticles::Simulation plain = randomParticles(500, Spread::Wide, seed);
            plain.coulomb = 1.0 / (0.1 + seed);
            QVERIFY(equalsThePlainLoop(plain, step(set)));
        }
    }

    // With 2^(s+1) a = +-1 modulo an odd b, the quotient a / b lies as near to the middle between two numbers as any
    // quotient by b can: a division that is off by the least bit of a bit rounds it to the wrong side.
    void quotientsNextToTheMiddleAreExact_data() { addSetRows(); }
    void quotientsNextToTheMiddleAreExact() {
        QFETCH(InstructionSet, set);
        if (!Kova::ParticleSystem::isSupported(set))
            QSKIP("not on this processor");
        std::mt19937 random(8);
        std::uniform_real_distribution<double> distances(1.0, 1000.0);
        int judged = 0;
        while (judged < 4000) {
            const double d = judged % 2 == 0 ? distances(random) : std::cbrt(std::ldexp(1.0 - 1e-9, 1 + judged % 29));
            const double varied = d * (1 + std::ldexp(static_cast<double>(random() % 4096), -45));
            int exponent = 0;
            const auto b = static_cast<std::uint64_t>(std::ldexp(std::frexp(varied * varied * varied, &exponent), 53));
            if (b % 2 == 0)
                continue;
            ++judged;
            PlainParticles::Simulation plain;
            plain.coulomb = 1.0;
            std::uint64_t inverse = 1;
            for (int power = 1; power <= 57; ++power) {
                inverse = inverse % 2 == 0 ? inverse / 2 : (inverse + b) / 2;
                for (const std::uint64_t a : {inverse, b - inverse}) {
                    if (power < 54)
                        continue;
                    plain.add(0, 0, {});
                    plain.particles.back().mass = static_cast<double>(a);
                }
            }
            for (int i = 0; i < 8; ++i)
                plain.add(varied, 0, {});
            ChargeArrays arrays = arraysOf(plain);
            Kova::ParticleSystem::addCharges(arrays, plain.coulomb, set);
            plain.addCharges();
            for (std::size_t i = 0; i < 16; ++i)
                QVERIFY(sameBits(arrays.fx[i], plain.particles[i].fx));
        }
    }

    // Masses and coefficients that nobody should choose, still without a difference.
    void strangeStrengthsAreExact_data() { addSetRows(); }
    void strangeStrengthsAreExact() {
        QFETCH(InstructionSet, set);
        if (!Kova::ParticleSystem::isSupported(set))
            QSKIP("not on this processor");
        for (const double coulomb : {0.0, -3000.0, 1e-300, 1e-310, 5e-324, 1e200, 1e308}) {
            PlainParticles::Simulation plain = randomParticles(33, Spread::Wide, 5);
            plain.coulomb = coulomb;
            plain.particles[2].mass = 0;
            plain.particles[9].mass = 1e-200;
            plain.particles[12].mass = 1e90;
            QVERIFY(equalsThePlainLoop(plain, step(set)));
        }
    }

    // Every tile position of a pair in turn holds the nearest two.
    void nearestPairIsFoundWhereverItStands_data() { addSetRows(); }
    void nearestPairIsFoundWhereverItStands() {
        QFETCH(InstructionSet, set);
        if (!Kova::ParticleSystem::isSupported(set))
            QSKIP("not on this processor");
        const std::size_t count = 19;
        for (std::size_t p = 1; p < count; ++p) {
            for (std::size_t q = 0; q < p; ++q) {
                PlainParticles::Simulation plain;
                for (std::size_t i = 0; i < count; ++i)
                    plain.add(100.0 * static_cast<double>(i), 0, {});
                plain.particles[p].x = plain.particles[q].x;
                plain.particles[p].y = 42.0;
                ChargeArrays arrays = arraysOf(plain);
                QCOMPARE(Kova::ParticleSystem::addCharges(arrays, 3000.0, set), 42.0);
            }
        }
    }

    void positionsThatAreNoNumbersSpreadAsInThePlainLoop_data() { addSetRows(); }
    void positionsThatAreNoNumbersSpreadAsInThePlainLoop() {
        QFETCH(InstructionSet, set);
        if (!Kova::ParticleSystem::isSupported(set))
            QSKIP("not on this processor");
        PlainParticles::Simulation plain = randomParticles(20, Spread::Wide, 4);
        plain.particles[3].x = std::numeric_limits<double>::quiet_NaN();
        plain.particles[17].x = std::numeric_limits<double>::infinity();
        ChargeArrays arrays = arraysOf(plain);
        const double smallest = Kova::ParticleSystem::addCharges(arrays, 3000.0, set);
        QVERIFY(sameBits(smallest, plain.addCharges()));
        for (std::size_t i = 0; i < 20; ++i) {
            QVERIFY(std::isnan(arrays.fx[i]));
            QVERIFY(std::isnan(plain.particles[i].fx));
        }
    }
};

QTEST_APPLESS_MAIN(ChargeForcesTest)
#include "ChargeForcesTest.moc"
