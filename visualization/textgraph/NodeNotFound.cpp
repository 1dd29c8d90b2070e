// SPDX-License-Identifier: MIT
#include "visualization/textgraph/NodeNotFound.h"

namespace Kova::GUI::TextGraph {

NodeNotFound NodeNotFound::notRegistered() {
    return NodeNotFound("ExprData is not registered");
}

NodeNotFound NodeNotFound::withoutNode() {
    return NodeNotFound("Node with this exprdata not exist");
}

} // namespace Kova::GUI::TextGraph
