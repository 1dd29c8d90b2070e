// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"

#include <QPoint>

namespace Kova::GUI {

/// Whether a straight connection from a to b passes closely by `point`: the point is in the rectangle spanned by a and
/// b, grown by 5 units on every side (corners included), and at most 12 units from the line through a and b.
/// All exact; a line of length 0 is close to every point of the rectangle.
[[nodiscard]] VISUALIZATION_EXPORT bool isInCorridor(const QPoint& a, const QPoint& b, const QPoint& point);

/// The two distances of isInCorridor(), for those who look for candidates.
constexpr int corridorMargin = 5;
constexpr int corridorReach = 12;

/// Whether a point is on a segment as far as a mouse is concerned: at most half a unit from it and beside it, not
/// before its start or behind its end. A segment of length 0 is met by its own point only.
[[nodiscard]] VISUALIZATION_EXPORT bool isOnSegment(const QPoint& from, const QPoint& to, const QPoint& point);

} // namespace Kova::GUI
