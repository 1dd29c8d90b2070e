// SPDX-License-Identifier: MIT
#pragma once

#include <QFontMetrics>

namespace Kova::GUI::TextGraph {

/// The room that a character of a font gets, in graph units.
struct CellSize {
    int charWidth = 0;  ///< the font's average
    int lineHeight = 0; ///< one less than the font's height

    CellSize() = default;
    explicit CellSize(const QFontMetrics& metrics)
        : charWidth(metrics.averageCharWidth()),
          lineHeight(metrics.height() - 1) {}
};

} // namespace Kova::GUI::TextGraph
