// SPDX-License-Identifier: MIT
#include "visualization/graphcore/BoxGeometry.h"

#include "visualization/graphcore/WideInt.h"

#include <optional>

namespace Kova::GUI {

namespace {

/// Along the segment from (u0, v0) to (u1, v1): the u at which v is `side`, truncated towards zero, when that u lies in
/// [low, high] exactly (before truncation). v0 and v1 differ.
std::optional<int> crossing(WideInt u0, WideInt v0, WideInt u1, WideInt v1, WideInt side, WideInt low, WideInt high) {
    WideInt numerator = u0 * (v1 - v0) + (side - v0) * (u1 - u0);
    WideInt denominator = v1 - v0;
    if (denominator < 0) {
        numerator = -numerator;
        denominator = -denominator;
    }
    if (numerator < low * denominator || numerator > high * denominator)
        return std::nullopt;
    return static_cast<int>(numerator / denominator);
}

} // namespace

bool boxContains(const QRect& box, const QPoint& point) {
    return point.x() >= box.left() && point.x() <= box.right() && point.y() >= box.top() && point.y() <= box.bottom();
}

QPoint cutAtBox(const QRect& box, const QPoint& a, const QPoint& b) {
    const bool holdsA = boxContains(box, a);
    if (holdsA == boxContains(box, b))
        return a;
    const QPoint& outer = holdsA ? b : a;
    if (outer.y() < box.top() || outer.y() > box.bottom()) {
        const int side = outer.y() < box.top() ? box.top() : box.bottom();
        if (const auto x = crossing(a.x(), a.y(), b.x(), b.y(), side, box.left(), box.right()))
            return {*x, side};
    }
    if (outer.x() < box.left() || outer.x() > box.right()) {
        const int side = outer.x() < box.left() ? box.left() : box.right();
        if (const auto y = crossing(a.y(), a.x(), b.y(), b.x(), side, box.top(), box.bottom()))
            return {side, *y};
    }
    return a;
}

} // namespace Kova::GUI
