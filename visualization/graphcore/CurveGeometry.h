// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"

#include <QPainterPath>
#include <QPoint>
#include <QRectF>

namespace Kova::GUI {

/// Length and direction of a vector between two points of the picture (y grows downwards).
struct Direction2D {
    double length = 0.0; ///< graph units
    double angle = 0.0;  ///< radians; negated arc cosine where dy < 1, 0 for coinciding points
};

[[nodiscard]] VISUALIZATION_EXPORT Direction2D directionBetween(const QPoint& from, const QPoint& to);

/// The point at `distance` from `origin` in direction `angle` (radians); each whole coordinate is truncated.
[[nodiscard]] VISUALIZATION_EXPORT QPoint pointAtAngle(const QPoint& origin, double distance, double angle);

/// The middle of a and b, each coordinate rounded, halves away from zero.
[[nodiscard]] VISUALIZATION_EXPORT QPoint midpoint(const QPoint& a, const QPoint& b);

/// The two inner control points of a cubic curve.
struct CurveControls {
    QPoint first;
    QPoint second;
};

/// Control points a third of the way from each end, turned by `bend` degrees out of the line from start to end.
[[nodiscard]] VISUALIZATION_EXPORT CurveControls bentControls(const QPoint& start, const QPoint& end, double bend);

/// The ends of the two strokes of an arrowhead.
struct ArrowWings {
    QPoint first;
    QPoint second;
};

/// Strokes of 15 units at 10 degrees to both sides of the direction in which a curve comes from `control` to `tip`;
/// both wings are the tip itself where the two coincide.
[[nodiscard]] VISUALIZATION_EXPORT ArrowWings arrowWings(const QPoint& control, const QPoint& tip);

/// A cubic curve with an open arrowhead at its end: the drawn form of every edge.
struct ArrowCurve {
    QPoint start;
    QPoint firstControl;
    QPoint secondControl;
    QPoint end;
    ArrowWings wings;
};

[[nodiscard]] VISUALIZATION_EXPORT bool operator==(const ArrowCurve& a, const ArrowCurve& b);
[[nodiscard]] VISUALIZATION_EXPORT bool operator!=(const ArrowCurve& a, const ArrowCurve& b);

/// Start, curve to the end; then first wing, end, second wing.
[[nodiscard]] VISUALIZATION_EXPORT QPainterPath arrowCurvePath(const ArrowCurve& curve);

/// The smallest rectangle around all six points, and so around the curve.
[[nodiscard]] VISUALIZATION_EXPORT QRectF controlRect(const ArrowCurve& curve);

/// False when a stroke of half width `margin` along curve and arrowhead cannot touch the area: the area lies to one
/// side of the strip, parallel to the line from start to end, that holds all points of the curve. Tells far more long
/// slanted curves apart than their bounding rectangle does.
[[nodiscard]] VISUALIZATION_EXPORT bool stripTouches(const ArrowCurve& curve, const QRectF& area, double margin);

} // namespace Kova::GUI
