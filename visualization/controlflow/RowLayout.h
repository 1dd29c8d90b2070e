// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/graphcore/LayoutManager.h"

namespace Kova::GUI::ControlFlowGraphExpr {

/// Places nodes of any size in rows, from the graph's sources downwards, without any other program: like
/// SourceSinkLayout, but what would overlap, or reach out of the picture, moves right or down.
class VISUALIZATION_EXPORT RowLayout final : public GenericGraph::LayoutManager {
public:
    /// Nodes must have their sizes.
    void layOut(const std::vector<GenericGraph::NodeBase*>& nodes) override;
};

} // namespace Kova::GUI::ControlFlowGraphExpr
