// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>

namespace Kova::GUI {

/// Holds every product of two coordinate differences and its square exactly, whatever the coordinates are.
__extension__ using WideInt = __int128;

/// a × b of the vectors from `origin` to `a` and to `b`.
[[nodiscard]] inline WideInt crossProduct(const QPoint& origin, const QPoint& a, const QPoint& b) {
    return (WideInt{a.x()} - origin.x()) * (WideInt{b.y()} - origin.y()) -
           (WideInt{a.y()} - origin.y()) * (WideInt{b.x()} - origin.x());
}

/// |b - a|².
[[nodiscard]] inline WideInt squaredDistance(const QPoint& a, const QPoint& b) {
    const WideInt dx = WideInt{b.x()} - a.x();
    const WideInt dy = WideInt{b.y()} - a.y();
    return dx * dx + dy * dy;
}

} // namespace Kova::GUI
