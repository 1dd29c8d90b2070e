// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"

#include <QRectF>

#include <optional>

class QPainter;

namespace Kova::GUI {

/// What a clipped painter has to draw, in the coordinates that it draws in: what lies outside changes no pixel, with
/// room for antialiasing and the rounding of glyphs. Nothing when the painter is not clipped (or its transform has no
/// inverse), and everything has to be drawn.
[[nodiscard]] VISUALIZATION_EXPORT std::optional<QRectF> exposedArea(const QPainter& painter);

} // namespace Kova::GUI
