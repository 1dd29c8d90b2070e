// SPDX-License-Identifier: MIT
#include "visualization/textgraph/NodesLine.h"

#include "visualization/textgraph/NodeBase.h"

namespace Kova::GUI::TextGraph {

void NodesLine::setY(int newY) {
    y = newY;
    for (NodeBase* node : qAsConst(nodes))
        node->setPos(QPoint(node->getPos().x(), newY));
}

} // namespace Kova::GUI::TextGraph
