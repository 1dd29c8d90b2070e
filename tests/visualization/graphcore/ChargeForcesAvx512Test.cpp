// SPDX-License-Identifier: MIT
// Calls the step of this instruction set itself, whatever the processor would be given.
#include "tests/visualization/graphcore/ChargeSamples.h"
#include "visualization/graphcore/ChargeTiles_p.h"

#include <QtTest>

using namespace ChargeSamples;

namespace {

double add(Kova::ParticleSystem::ChargeArrays& arrays, double coulomb) {
    return Kova::ParticleSystem::addChargesAvx512(viewOf(arrays), coulomb);
}

} // namespace

class ChargeForcesAvx512Test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        if (!Kova::ParticleSystem::isSupported(Kova::ParticleSystem::InstructionSet::Avx512))
            QSKIP("not on this processor");
    }

    // No tile, whole tiles, and every number of particles beside them.
    void everyNumberOfParticlesEqualsThePlainLoop() { QVERIFY(equalsThePlainLoopBelow(34, &add)); }

    // Where the quotients are not estimated but left to the processor.
    void strengthsOutOfBoundsEqualThePlainLoop() {
        for (const double coulomb : {0.0, -3000.0, 1e-310, 5e-324, 1e200, 1e308}) {
            PlainParticles::Simulation plain = randomParticles(40, Spread::Wide, 7);
            plain.coulomb = coulomb;
            QVERIFY(equalsThePlainLoop(plain, add));
        }
    }
};

QTEST_APPLESS_MAIN(ChargeForcesAvx512Test)
#include "ChargeForcesAvx512Test.moc"
