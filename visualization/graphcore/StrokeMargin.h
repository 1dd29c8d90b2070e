// SPDX-License-Identifier: MIT
#pragma once

#include <QPen>

#include <algorithm>
#include <optional>

namespace Kova::GUI {

/// How far a stroke can reach from the line it follows, corners and caps included, in the units of the line. Nothing
/// for pens whose width does not scale with them.
[[nodiscard]] inline std::optional<double> strokeMargin(const QPen& pen) {
    if (pen.isCosmetic())
        return std::nullopt;
    return pen.widthF() * std::max(1.0, pen.joinStyle() == Qt::BevelJoin ? 1.0 : pen.miterLimit());
}

} // namespace Kova::GUI
