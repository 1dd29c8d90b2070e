// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <algorithm>
#include <limits>

namespace Kova::GUI::TextGraph {

[[nodiscard]] inline bool fitsInt(qint64 value) {
    return value >= std::numeric_limits<int>::min() && value <= std::numeric_limits<int>::max();
}

/// The nearest int.
[[nodiscard]] inline int saturated(qint64 value) {
    return static_cast<int>(
        std::clamp<qint64>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

} // namespace Kova::GUI::TextGraph
