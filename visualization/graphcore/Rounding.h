// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

namespace Kova::GUI {

/// The nearest integer, halves away from zero (Qt's rounding takes negative halves towards zero).
/// Values outside int become the nearest int; NaN becomes 0.
[[nodiscard]] inline int roundHalfAway(double value) {
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    return std::isnan(value) ? 0 : static_cast<int>(std::lround(std::clamp(value, lowest, highest)));
}

/// The integer part, towards zero. Values outside int become the nearest int; NaN becomes 0.
[[nodiscard]] inline int truncated(double value) {
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    return std::isnan(value) ? 0 : static_cast<int>(std::clamp(value, lowest, highest));
}

} // namespace Kova::GUI
