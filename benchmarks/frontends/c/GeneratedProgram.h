// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

namespace Kova::Benchmark {

/// C text of at least so many lines that reads like a numerical program: structures, arrays, loop nests, branches and
/// calls between its functions. The same lines give the same text.
[[nodiscard]] std::string generateProgram(std::size_t lines);

} // namespace Kova::Benchmark
