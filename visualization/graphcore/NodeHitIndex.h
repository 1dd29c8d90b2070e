// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"
#include "visualization/graphcore/CellGrid.h"
#include "visualization/graphcore/ChangedItems.h"
#include "visualization/graphcore/NodeBase.h"

#include <QPoint>
#include <QRect>

#include <vector>

namespace Kova::GUI::GenericGraph {

/// Finds the node under a point without looking at every node.
class VISUALIZATION_EXPORT NodeHitIndex {
public:
    /// The first visible node of the list whose box holds the point (graph units), null for none. Always true to the
    /// list and the nodes as they are now; what was computed for an earlier question is used as far as it still holds.
    [[nodiscard]] NodeBase* findFirst(const std::vector<NodeBase*>& nodes, const QPoint& point);

private:
    void rebuild();

    ChangedItems<NodeBase> m_changes;
    std::vector<QRect> m_boxes;
    CellGrid m_grid;
    CellItems<std::size_t> m_cells;
};

} // namespace Kova::GUI::GenericGraph
