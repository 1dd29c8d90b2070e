// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"
#include "visualization/sourceselector/PrintedNodes.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace Kova::GUI {

/// Which slot each node is drawn with; 0 is plain, as is every node at first.
class VISUALIZATION_EXPORT SelectionTable {
public:
    using Node = Tessel::TesselBase;

    /// All nodes are plain. @param printed the nodes to be drawn, which may still become more; others can be given
    /// slots, too.
    void reset(std::shared_ptr<const PrintedNodes> printed);
    /// Gives a node the slot unless it has a larger one.
    void raise(const Node& node, int slot);
    /// Makes all nodes of the slot plain.
    void clearSlot(int slot);

    [[nodiscard]] int getSlot(const Node& node) const;

private:
    std::shared_ptr<const PrintedNodes> m_printed = std::make_shared<PrintedNodes>();
    /// By the numbers of m_printed; the plain ones at the end are left out.
    std::vector<int> m_slots;
    /// Looked up only, so its order does not matter.
    std::unordered_map<const Node*, int> m_slotsOfOthers;
};

} // namespace Kova::GUI
