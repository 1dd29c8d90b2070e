// SPDX-License-Identifier: MIT
#include "visualization/textgraph/EdgeT1.h"

#include "visualization/textgraph/GraphNodeBase.h"

namespace Kova::GUI::TextGraph {

void EdgeT1::processInternal(const EdgeBase*, QPainterPath& path, QPoint* points) const {
    path.moveTo(points[0]);
    path.lineTo(points[3]);
    // The arrowhead points along the line.
    points[1] = points[2] = points[0];
}

void EdgeT1::showInternal(EdgeBase* edge) {
    if (edge->getFrom()->getPos().y() < edge->getTo()->getPos().y()) {
        edge->getFrom()->addDownPort(edge, EdgeSide::From);
        edge->getTo()->addUpPort(edge, EdgeSide::To);
    } else {
        edge->getFrom()->addUpPort(edge, EdgeSide::From);
        edge->getTo()->addDownPort(edge, EdgeSide::To);
    }
}

} // namespace Kova::GUI::TextGraph
