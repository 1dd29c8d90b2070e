// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"
#include "visualization/graphcore/ChangedItems.h"
#include "visualization/graphcore/EdgeBase.h"
#include "visualization/graphcore/NodeBase.h"

#include <QFont>
#include <QRectF>

#include <cstddef>
#include <vector>

class QPaintDevice;

namespace Kova::GUI::GenericGraph {

/// Knows where nodes and edges are painted, so that those outside of an area can be left out without changing a pixel
/// in it. Labels may be wider than their boxes and nodes may paint what they like: extents are measured by painting
/// (see PaintExtent), once after every change of an item.
class VISUALIZATION_EXPORT PaintIndex {
public:
    /// Measures what is new or has changed since the last call. The device decides the sizes of fonts.
    void update(const std::vector<NodeBase*>& nodes, const std::vector<EdgeBase*>& edges, const QFont& font,
                const QPaintDevice& device);

    /// Indices, in ascending order, of those that may paint into the area (graph units, antialiasing included), among
    /// them always the selected one, which may paint farther than when it was measured. The lists are those of
    /// update().
    [[nodiscard]] std::vector<std::size_t> edgesIn(const std::vector<EdgeBase*>& edges, const QRectF& area,
                                                   const EdgeBase* selected) const;
    [[nodiscard]] std::vector<std::size_t> nodesIn(const std::vector<NodeBase*>& nodes, const QRectF& area,
                                                   const NodeBase* selected) const;

private:
    /// Whole graph units, rounded outwards; empty when right < left.
    struct Box {
        int left = 0;
        int top = 0;
        int right = -1;
        int bottom = -1;
        [[nodiscard]] static Box around(const QRectF& rect);
        [[nodiscard]] bool touches(const Box& other) const;
        [[nodiscard]] bool isWithin(const Box& other) const;
    };

    ChangedItems<NodeBase> m_changedNodes;
    ChangedItems<EdgeBase> m_changedEdges;
    std::vector<Box> m_nodes;
    std::vector<Box> m_edges;
    QFont m_font;
    int m_dpi = 0;
};

} // namespace Kova::GUI::GenericGraph
