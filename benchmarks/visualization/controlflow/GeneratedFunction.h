// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

namespace Kova::Benchmark {

/// A C function of at least so many lines, written as it is printed, in which control takes every way that C has: loops
/// with break and continue, a switch that falls through, conditions that skip operands, jumps out of loops. The same
/// lines give the same text.
[[nodiscard]] std::string generateFunction(std::size_t lines);

} // namespace Kova::Benchmark
