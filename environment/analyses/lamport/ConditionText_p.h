// SPDX-License-Identifier: MIT
#pragma once

#include <isl/cpp.h>

#include <string>

namespace DepGraph {

/// A set of values of the unknowns as a person would write it: "n >= 2 and m > n", "n mod 2 = 0 or n < 0"; "and"
/// binds closer than "or". Empty for all values, "false" for none.
[[nodiscard]] std::string describeCondition(const isl::set& unknowns);

} // namespace DepGraph
