// SPDX-License-Identifier: MIT
#include "visualization/graphcore/ChargeForces.h"

#include "visualization/graphcore/ChargeTiles_p.h"

namespace Kova::ParticleSystem {

double addChargesPortable(const ChargeView& c, double coulomb) {
    double smallest = NoDistance;
    for (std::size_t p = 0; p < c.n; ++p)
        smallest = addRow(c, coulomb, p, 0, p, smallest);
    return smallest;
}

bool isSupported(InstructionSet set) {
#ifdef __x86_64__
    switch (set) {
    case InstructionSet::Portable:
    case InstructionSet::Sse2:
        return true;
    case InstructionSet::Avx2:
        return __builtin_cpu_supports("avx2") != 0;
    case InstructionSet::Avx512:
        return __builtin_cpu_supports("avx512f") != 0;
    }
#endif
    return set == InstructionSet::Portable;
}

InstructionSet widestInstructionSet() {
    for (const InstructionSet set : {InstructionSet::Avx512, InstructionSet::Avx2, InstructionSet::Sse2})
        if (isSupported(set))
            return set;
    return InstructionSet::Portable;
}

double addCharges(ChargeArrays& particles, double coulomb, InstructionSet set) {
    const ChargeView view{particles.x.data(),  particles.y.data(),  particles.mass.data(),
                          particles.fx.data(), particles.fy.data(), particles.x.size()};
#ifdef __x86_64__
    switch (set) {
    case InstructionSet::Portable:
        break;
    case InstructionSet::Sse2:
        return addChargesSse2(view, coulomb);
    case InstructionSet::Avx2:
        return addChargesAvx2(view, coulomb);
    case InstructionSet::Avx512:
        return addChargesAvx512(view, coulomb);
    }
#else
    static_cast<void>(set);
#endif
    return addChargesPortable(view, coulomb);
}

} // namespace Kova::ParticleSystem
