// SPDX-License-Identifier: MIT
#include "visualization/graphcore/NodeHitIndex.h"

#include "visualization/graphcore/BoxGeometry.h"

namespace Kova::GUI::GenericGraph {

NodeBase* NodeHitIndex::findFirst(const std::vector<NodeBase*>& nodes, const QPoint& point) {
    m_boxes.resize(nodes.size());
    const bool changed = m_changes.update(
        nodes, [&](std::size_t i) { m_boxes[i] = nodes[i]->isVisible() ? nodes[i]->getRect() : QRect(); });
    if (changed)
        rebuild();
    if (m_grid.isEmpty())
        return nullptr;
    for (const std::size_t i : m_cells.at(m_grid.cellAt(point))) {
        if (boxContains(m_boxes[i], point))
            return nodes[i];
    }
    return nullptr;
}

void NodeHitIndex::rebuild() {
    CellGrid::Plan plan;
    for (const QRect& box : m_boxes) {
        if (box.isValid())
            plan.addBox(box);
    }
    m_grid = CellGrid(plan);
    m_cells.build(m_grid.cellCount(), [this](auto enter) {
        for (std::size_t i = 0; i < m_boxes.size(); ++i) {
            if (!m_boxes[i].isValid())
                continue;
            m_grid.visitRect(m_boxes[i], [&](int cell) {
                enter(cell, i);
                return false;
            });
        }
    });
}

} // namespace Kova::GUI::GenericGraph
