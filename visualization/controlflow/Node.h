// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/graphcore/NodeBase.h"

namespace Kova::GUI::ControlFlowGraphExpr {

/// A basic block in the picture of a control flow graph.
class Node : public GenericGraph::NodeBase {
public:
    explicit Node(const QString& text) : NodeBase(text) {}
};

} // namespace Kova::GUI::ControlFlowGraphExpr
