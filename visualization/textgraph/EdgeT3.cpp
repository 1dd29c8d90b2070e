// SPDX-License-Identifier: MIT
#include "visualization/textgraph/EdgeT3.h"

#include "visualization/textgraph/GraphNodeBase.h"
#include "visualization/textgraph/Saturated.h"

#include <algorithm>

namespace Kova::GUI::TextGraph {

namespace {

/// How far the control points lie to the left of the node, above and below it.
constexpr int swing = 20;

QPoint swungOut(int x, int y, int vertically) {
    return {saturated(qint64{x} - swing), saturated(qint64{y} + vertically)};
}

} // namespace

void EdgeT3::processInternal(const EdgeBase* edge, QPainterPath& path, QPoint* points) const {
    const int x = std::min(points[0].x(), points[3].x());
    points[0].setX(x);
    points[3].setX(x);
    const int nodeX = edge->getFrom()->getPos().x();
    points[1] = swungOut(nodeX, points[0].y(), -swing);
    points[2] = swungOut(nodeX, points[3].y(), swing);
    path.moveTo(points[0]);
    path.cubicTo(points[1], points[2], points[3]);
}

void EdgeT3::showInternal(EdgeBase* edge) {
    edge->getFrom()->addUpPort(edge, EdgeSide::From);
    edge->getFrom()->addDownPort(edge, EdgeSide::To);
}

} // namespace Kova::GUI::TextGraph
