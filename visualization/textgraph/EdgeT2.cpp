// SPDX-License-Identifier: MIT
#include "visualization/textgraph/EdgeT2.h"

#include "visualization/textgraph/GraphNodeBase.h"

namespace Kova::GUI::TextGraph {

namespace {

/// How far the curve is turned out of the straight line at its ends, in degrees.
constexpr double bend = 30.0;

/// To which side an arc is bent, so that it rises above the text: depends on the direction in which it runs and on
/// whether it starts at the top of its node.
double bendOf(const QPoint& start, const QPoint& end, int fromPort) {
    const bool upwards = (start.x() < end.x() && fromPort < 0) || (start.x() > end.x() && fromPort > 0);
    return upwards ? bend : -bend;
}

} // namespace

void EdgeT2::processInternal(const EdgeBase* edge, QPainterPath& path, QPoint* points) const {
    const CurveControls controls =
        bentControls(points[0], points[3], bendOf(points[0], points[3], edge->getPort(EdgeSide::From)));
    points[1] = controls.first;
    points[2] = controls.second;
    path.moveTo(points[0]);
    path.cubicTo(points[1], points[2], points[3]);
}

void EdgeT2::showInternal(EdgeBase* edge) {
    edge->getFrom()->addUpPort(edge, EdgeSide::From);
    edge->getTo()->addUpPort(edge, EdgeSide::To);
}

} // namespace Kova::GUI::TextGraph
