// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/graphcore/LayoutManager.h"

#include <set>

namespace Kova::GUI::GenericGraph {

/// Draws a graph as trees from top to bottom, side by side: one from the program's entry, one from every source that is
/// left, and one from every node that only cycles lead to. Rows are 150 graph units apart; a leaf takes its box width
/// plus 30. Nodes must have their sizes. Invisible nodes start no tree; one that a tree reaches is placed in it, the
/// others keep their positions.
class VISUALIZATION_EXPORT SourceSinkLayout : public LayoutManager {
public:
    void layOut(const std::vector<NodeBase*>& nodes) override;

    /// The first node called "main", "__MAIN__" or "Entry"; null when there is none.
    [[nodiscard]] static NodeBase* findMainNode(const std::vector<NodeBase*>& nodes);

    /// Places a node and, below it, all nodes that its outgoing edges lead to and that are not yet placed.
    /// @param placed holds the node already; takes in what is placed.
    /// @param level the node's row, from 0.
    /// @param left where the tree's room starts, in graph units.
    /// @param width receives the width of that room.
    static void locateNodes(NodeBase& node, std::set<NodeBase*>& placed, int level, int left, int& width);
};

} // namespace Kova::GUI::GenericGraph
