// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/IterationPairs_p.h"

#include <isl/cpp.h>
#include <isl/val.h>

namespace DepGraph {

/// A bound that isl found as a number. @param whenUnknown for one that is infinite or beyond IterationRange::unbounded.
[[nodiscard]] inline long readBound(const isl::val& bound, long whenUnknown) {
    const bool fits =
        bound.is_int() && bound.cmp_si(IterationRange::unbounded) < 0 && bound.cmp_si(-IterationRange::unbounded) > 0;
    return fits ? bound.num_si() : whenUnknown;
}

} // namespace DepGraph
