// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"

#include <vector>

namespace Kova::GUI::GenericGraph {

class NodeBase;

/// Places the nodes of a generic graph. A layout moves nodes with NodeBase::moveTo and reads nodes and edges; it never
/// creates, deletes or resizes anything, and knows no widget. The same nodes in the same order give the same picture.
class VISUALIZATION_EXPORT LayoutManager {
public:
    /// @param nodes not null; what else an implementation expects of their edges and sizes, it says itself. An empty
    /// list changes nothing.
    virtual void layOut(const std::vector<NodeBase*>& nodes) = 0;

    virtual ~LayoutManager();

    LayoutManager(const LayoutManager&) = delete;
    LayoutManager& operator=(const LayoutManager&) = delete;

protected:
    LayoutManager() = default;
};

} // namespace Kova::GUI::GenericGraph
