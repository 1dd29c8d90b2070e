// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

namespace Kova::Benchmark {

/// A C function with one statement of six accesses in three loops: a wavefront with triangular bounds.
[[nodiscard]] std::string writeWavefront();

/// A C function with so many statements of four accesses each in three loops with triangular bounds, over four arrays,
/// with subscripts that are sums of counters and constants. The same number gives the same text.
[[nodiscard]] std::string writeNest(std::size_t statements);

/// A C function without loops: so many statements, each of two elements of arrays and a scalar.
[[nodiscard]] std::string writeStraight(std::size_t statements);

} // namespace Kova::Benchmark
