// SPDX-License-Identifier: MIT
#pragma once

#include <isl/cpp.h>
#include <isl/map.h>

#include <cstddef>

/// Relations from iterations of a source to iterations of a target, each of the loops around it, common ones first.
namespace DepGraph {

/// The pairs in the same iteration of a loop.
[[nodiscard]] inline isl::map cutSame(isl::map relation, std::size_t loop) {
    const int position = static_cast<int>(loop);
    return isl::manage(isl_map_equate(relation.release(), isl_dim_in, position, isl_dim_out, position));
}

/// The pairs with the target in a later iteration of a loop.
[[nodiscard]] inline isl::map cutLater(isl::map relation, std::size_t loop) {
    const int position = static_cast<int>(loop);
    return isl::manage(isl_map_order_lt(relation.release(), isl_dim_in, position, isl_dim_out, position));
}

} // namespace DepGraph
