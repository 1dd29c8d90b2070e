// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"

#include <cstddef>
#include <vector>

namespace Kova::ParticleSystem {

/// Particles laid out by component, so that neighbours in a vector register are neighbours in memory. All vectors have
/// the same length. The forces are added to, not overwritten.
struct ChargeArrays {
    std::vector<double> x, y;
    std::vector<double> mass;
    std::vector<double> fx, fy;
};

/// What the charge step can be computed with; a larger value is wider.
enum class InstructionSet { Portable, Sse2, Avx2, Avx512 };

/// Whether this build and the processor it runs on can use the set. Portable always can.
[[nodiscard]] VISUALIZATION_EXPORT bool isSupported(InstructionSet set);

/// The widest supported set.
[[nodiscard]] VISUALIZATION_EXPORT InstructionSet widestInstructionSet();

/// Adds to every particle the repulsion of every other one, coulomb * mass * mass / distance^2 along the line between
/// them; distances below 1 count as 1. The forces are the same bit for bit with every set: each particle's sum runs
/// over the others in the order of the arrays, and no multiplication is fused with an addition.
/// @param set must be supported.
/// @return the smallest distance (after raising it to 1), at most 10000.0; 10000.0 with fewer than two particles.
VISUALIZATION_EXPORT double addCharges(ChargeArrays& particles, double coulomb, InstructionSet set);

} // namespace Kova::ParticleSystem
