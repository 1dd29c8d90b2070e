// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/service/TypeFacts.h"

#include <isl/cpp.h>

#include <string>

/// Sets and functions over vectors of iteration numbers, one dimension a loop, outermost first.
namespace DepGraph {

[[nodiscard]] isl::val powerOfTwo(isl::ctx context, unsigned exponent);

/// All vectors, negative numbers included.
[[nodiscard]] isl::set allVectors(isl::ctx context, unsigned loops);
[[nodiscard]] isl::pw_aff constantOn(isl::ctx context, unsigned loops, const isl::val& value);
[[nodiscard]] isl::pw_aff unknownOn(isl::ctx context, unsigned loops, const std::string& name);
/// The iteration number of one loop. @param loop in [0, loops).
[[nodiscard]] isl::pw_aff iterationOn(isl::ctx context, unsigned loops, unsigned loop);

[[nodiscard]] unsigned loopsOf(const isl::set& vectors);
/// The same for vectors of more loops, whose inner ones do not matter. @param loops not below those it is of.
[[nodiscard]] isl::set lifted(const isl::set& vectors, unsigned loops);
[[nodiscard]] isl::pw_aff lifted(const isl::pw_aff& value, unsigned loops);

/// The vectors whose value is not below the type's least one nor, if asked for, above its greatest.
[[nodiscard]] isl::set within(const isl::set& vectors, const isl::pw_aff& value, Kova::Tessel::Service::IntegerType type, bool withGreatest);

/// The vectors that follow one of the given ones in the innermost loop, in the same iterations of the other loops.
/// @param vectors of one loop at least.
[[nodiscard]] isl::set laterInInnermost(const isl::set& vectors);

} // namespace DepGraph
