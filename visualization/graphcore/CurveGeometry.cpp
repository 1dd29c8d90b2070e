// SPDX-License-Identifier: MIT
#include "visualization/graphcore/CurveGeometry.h"

#include "visualization/graphcore/Rounding.h"

#include <algorithm>
#include <cmath>

namespace Kova::GUI {

namespace {

constexpr double pi = 3.14159265358979323846;
constexpr double wingLength = 15.0;
constexpr double wingAngle = 10.0;

double radians(double degrees) {
    return degrees * pi / 180.0;
}

} // namespace

Direction2D directionBetween(const QPoint& from, const QPoint& to) {
    const double dx = static_cast<double>(to.x()) - from.x();
    const double dy = static_cast<double>(to.y()) - from.y();
    const double length = std::sqrt(dx * dx + dy * dy);
    if (length == 0.0)
        return {};
    const double angle = std::acos(std::clamp(dx / length, -1.0, 1.0));
    return {length, dy < 1.0 ? -angle : angle};
}

QPoint pointAtAngle(const QPoint& origin, double distance, double angle) {
    return {truncated(origin.x() + distance * std::cos(angle)), truncated(origin.y() + distance * std::sin(angle))};
}

QPoint midpoint(const QPoint& a, const QPoint& b) {
    return {roundHalfAway((static_cast<double>(a.x()) + b.x()) * 0.5),
            roundHalfAway((static_cast<double>(a.y()) + b.y()) * 0.5)};
}

CurveControls bentControls(const QPoint& start, const QPoint& end, double bend) {
    const Direction2D line = directionBetween(start, end);
    const double distance = line.length / 3.0;
    const double turn = radians(bend);
    return {pointAtAngle(start, distance, line.angle - turn), pointAtAngle(end, distance, pi + line.angle + turn)};
}

ArrowWings arrowWings(const QPoint& control, const QPoint& tip) {
    if (control == tip)
        return {tip, tip};
    const double angle = directionBetween(control, tip).angle;
    return {pointAtAngle(tip, -wingLength, angle + radians(wingAngle)),
            pointAtAngle(tip, -wingLength, angle - radians(wingAngle))};
}

bool operator==(const ArrowCurve& a, const ArrowCurve& b) {
    return a.start == b.start && a.firstControl == b.firstControl && a.secondControl == b.secondControl &&
           a.end == b.end && a.wings.first == b.wings.first && a.wings.second == b.wings.second;
}

bool operator!=(const ArrowCurve& a, const ArrowCurve& b) {
    return !(a == b);
}

QPainterPath arrowCurvePath(const ArrowCurve& curve) {
    QPainterPath path;
    path.reserve(7);
    path.moveTo(curve.start);
    path.cubicTo(curve.firstControl, curve.secondControl, curve.end);
    path.moveTo(curve.wings.first);
    path.lineTo(curve.end);
    path.lineTo(curve.wings.second);
    return path;
}

QRectF controlRect(const ArrowCurve& curve) {
    const auto [left, right] = std::minmax({curve.start.x(), curve.firstControl.x(), curve.secondControl.x(),
                                            curve.end.x(), curve.wings.first.x(), curve.wings.second.x()});
    const auto [top, bottom] = std::minmax({curve.start.y(), curve.firstControl.y(), curve.secondControl.y(),
                                            curve.end.y(), curve.wings.first.y(), curve.wings.second.y()});
    return {QPointF(left, top), QPointF(right, bottom)};
}

bool stripTouches(const ArrowCurve& curve, const QRectF& area, double margin) {
    const double dx = static_cast<double>(curve.end.x()) - curve.start.x();
    const double dy = static_cast<double>(curve.end.y()) - curve.start.y();
    // Distance from the line times its length, for every point: a cubic curve stays between its control points.
    const auto offset = [&](double x, double y) { return dx * (y - curve.start.y()) - dy * (x - curve.start.x()); };
    const auto of = [&](const QPoint& point) { return offset(point.x(), point.y()); };
    const auto [low, high] = std::minmax(
        {0.0, of(curve.firstControl), of(curve.secondControl), of(curve.wings.first), of(curve.wings.second)});
    const double center = offset(area.center().x(), area.center().y());
    const double radius = (std::abs(dy) * area.width() + std::abs(dx) * area.height()) * 0.5 +
                          (margin + 1.0) * (std::abs(dx) + std::abs(dy));
    return center + radius >= low && center - radius <= high;
}

} // namespace Kova::GUI
