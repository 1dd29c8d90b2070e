// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"

#include <QPoint>
#include <QRect>

namespace Kova::GUI {

/// Whether the box holds the point, its corners included. A box of negative or zero size holds nothing (QRect would
/// take a negative one for a box that lies the other way round).
[[nodiscard]] VISUALIZATION_EXPORT bool boxContains(const QRect& box, const QPoint& point);

/// Where the segment from a to b crosses the border of the box; a itself when the box holds both ends or neither.
/// The crossing's coordinates are exact quotients truncated towards zero. Where the segment passes a corner the
/// horizontal side is taken.
[[nodiscard]] VISUALIZATION_EXPORT QPoint cutAtBox(const QRect& box, const QPoint& a, const QPoint& b);

} // namespace Kova::GUI
