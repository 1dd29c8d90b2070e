// SPDX-License-Identifier: MIT
#include "visualization/controlflow/RowLayout.h"

#include "visualization/graphcore/NodeBase.h"
#include "visualization/graphcore/SourceSinkLayout.h"

#include <algorithm>
#include <map>

namespace Kova::GUI::ControlFlowGraphExpr {

using GenericGraph::NodeBase;

namespace {

/// Between boxes of a row, and between rows, in graph units.
constexpr int columnGap = 30;
constexpr int rowGap = 50;

/// Left of and above all boxes, at least.
constexpr int margin = 10;

} // namespace

void RowLayout::layOut(const std::vector<NodeBase*>& nodes) {
    GenericGraph::SourceSinkLayout().layOut(nodes);
    std::map<int, std::vector<NodeBase*>> rows;
    for (NodeBase* node : nodes)
        rows[node->getCenter().y()].push_back(node);
    int top = margin;
    for (auto& [center, row] : rows) {
        std::stable_sort(row.begin(), row.end(), [](const NodeBase* first, const NodeBase* second) {
            return first->getCenter().x() < second->getCenter().x();
        });
        const NodeBase* tallest = *std::max_element(row.begin(), row.end(), [](const NodeBase* a, const NodeBase* b) {
            return a->getHeight() < b->getHeight();
        });
        const int y = std::max(center, top + tallest->getHeight() / 2);
        int left = margin;
        for (NodeBase* node : row) {
            const int x = std::max(node->getCenter().x(), left + node->getWidth() / 2);
            node->moveTo(x, y);
            left = x + node->getWidth() / 2 + columnGap;
        }
        top = y + tallest->getHeight() / 2 + rowGap;
    }
}

} // namespace Kova::GUI::ControlFlowGraphExpr
