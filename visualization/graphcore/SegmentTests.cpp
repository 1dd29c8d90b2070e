// SPDX-License-Identifier: MIT
#include "visualization/graphcore/SegmentTests.h"

#include "visualization/graphcore/WideInt.h"

#include <QtGlobal>

#include <algorithm>

namespace Kova::GUI {

namespace {

WideInt magnitude(WideInt value) {
    return value < 0 ? -value : value;
}

/// |dx| + |dy|, never less than the length: a product beyond it is refused before it is squared, which keeps the square
/// in range.
WideInt gridLength(const QPoint& a, const QPoint& b) {
    return magnitude(WideInt{b.x()} - a.x()) + magnitude(WideInt{b.y()} - a.y());
}

bool isBetween(int value, int one, int other, qint64 margin) {
    return value >= std::min(one, other) - margin && value <= std::max(one, other) + margin;
}

} // namespace

bool isInCorridor(const QPoint& a, const QPoint& b, const QPoint& point) {
    if (!isBetween(point.x(), a.x(), b.x(), corridorMargin) || !isBetween(point.y(), a.y(), b.y(), corridorMargin))
        return false;
    const WideInt cross = magnitude(crossProduct(a, b, point));
    if (cross > corridorReach * gridLength(a, b))
        return false;
    return cross * cross <= WideInt{corridorReach} * corridorReach * squaredDistance(a, b);
}

bool isOnSegment(const QPoint& from, const QPoint& to, const QPoint& point) {
    if (from == to)
        return point == from;
    const WideInt squaredLength = squaredDistance(from, to);
    const WideInt cross = magnitude(crossProduct(from, to, point));
    // |cross| <= floor(length / 2), without the root.
    if (2 * cross > gridLength(from, to) || 4 * cross * cross > squaredLength)
        return false;
    const WideInt dx = WideInt{to.x()} - from.x();
    const WideInt dy = WideInt{to.y()} - from.y();
    const WideInt dot =
        (2 * WideInt{point.x()} - from.x() - to.x()) * dx + (2 * WideInt{point.y()} - from.y() - to.y()) * dy;
    return magnitude(dot) <= squaredLength;
}

} // namespace Kova::GUI
