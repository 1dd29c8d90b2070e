// SPDX-License-Identifier: MIT
#include "visualization/graphcore/ExposedArea.h"

#include <QPainter>
#include <QTransform>

namespace Kova::GUI {

namespace {

/// How far antialiasing and the rounding of glyphs reach beyond what is drawn, in device pixels.
constexpr double pixelMargin = 3.0;

} // namespace

std::optional<QRectF> exposedArea(const QPainter& painter) {
    if (!painter.hasClipping())
        return std::nullopt;
    bool invertible = false;
    const QTransform toDevice = painter.combinedTransform();
    const QTransform toGraph = toDevice.inverted(&invertible);
    if (!invertible)
        return std::nullopt;
    const QRectF pixels = toDevice.mapRect(painter.clipBoundingRect());
    return toGraph.mapRect(pixels.adjusted(-pixelMargin, -pixelMargin, pixelMargin, pixelMargin));
}

} // namespace Kova::GUI
