// SPDX-License-Identifier: MIT
// Calls the step of this instruction set itself, whatever the processor would be given.
#include "tests/visualization/graphcore/ChargeSamples.h"
#include "visualization/graphcore/ChargeTiles_p.h"

#include <QtTest>

using namespace ChargeSamples;

namespace {

double add(Kova::ParticleSystem::ChargeArrays& arrays, double coulomb) {
    return Kova::ParticleSystem::addChargesAvx2(viewOf(arrays), coulomb);
}

} // namespace

class ChargeForcesAvx2Test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        if (!Kova::ParticleSystem::isSupported(Kova::ParticleSystem::InstructionSet::Avx2))
            QSKIP("not on this processor");
    }

    // No tile, whole tiles, and every number of particles beside them.
    void everyNumberOfParticlesEqualsThePlainLoop() { QVERIFY(equalsThePlainLoopBelow(18, &add)); }
};

QTEST_APPLESS_MAIN(ChargeForcesAvx2Test)
#include "ChargeForcesAvx2Test.moc"
