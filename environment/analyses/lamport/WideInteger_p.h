// SPDX-License-Identifier: MIT
#pragma once

namespace DepGraph {

/// Wide enough for sums of products of coefficients and iteration numbers.
using WideInteger = __int128;

struct WideRange {
    WideInteger low = 0;
    WideInteger high = 0;
};

[[nodiscard]] inline WideInteger absolute(WideInteger value) {
    return value < 0 ? -value : value;
}

} // namespace DepGraph
