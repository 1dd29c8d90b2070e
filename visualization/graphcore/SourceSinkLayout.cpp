// SPDX-License-Identifier: MIT
#include "visualization/graphcore/SourceSinkLayout.h"

#include "visualization/graphcore/EdgeBase.h"
#include "visualization/graphcore/NodeBase.h"

#include <cstddef>

namespace Kova::GUI::GenericGraph {
namespace {

constexpr int FirstLeft = 50;
constexpr int FirstRow = 50;
constexpr int RowDistance = 150;
constexpr int LeafMargin = 30;

/// A node whose children are being placed.
struct Subtree {
    NodeBase* node;
    int left;
    std::vector<NodeBase*> children;
    std::size_t nextChild = 0;
    /// Sum of the widths of the children placed so far, and the width of the last of them.
    int total = 0;
    int last = 0;
};

/// Takes the node's children away from all later nodes, before any of them is looked into.
Subtree claimChildren(NodeBase& node, std::set<NodeBase*>& placed, int left) {
    Subtree subtree{&node, left, {}};
    for (const EdgeBase* edge : node.getOutgoingEdges()) {
        if (edge && placed.insert(edge->getTarget()).second)
            subtree.children.push_back(edge->getTarget());
    }
    return subtree;
}

} // namespace

void SourceSinkLayout::layOut(const std::vector<NodeBase*>& nodes) {
    std::set<NodeBase*> placed;
    int left = FirstLeft;
    const auto placeTree = [&](NodeBase* root) {
        int width = 0;
        placed.insert(root);
        locateNodes(*root, placed, 0, left, width);
        left += width;
    };

    NodeBase* main = findMainNode(nodes);
    if (main && main->isVisible())
        placeTree(main);
    for (NodeBase* node : nodes) {
        if (node->isVisible() && node->getKind() == NodeBase::Source && node != main)
            placeTree(node);
    }
    for (NodeBase* node : nodes) {
        if (node->isVisible() && placed.count(node) == 0)
            placeTree(node);
    }
}

NodeBase* SourceSinkLayout::findMainNode(const std::vector<NodeBase*>& nodes) {
    for (NodeBase* node : nodes) {
        const QString& text = node->getText();
        if (text == QLatin1String("main") || text == QLatin1String("__MAIN__") || text == QLatin1String("Entry"))
            return node;
    }
    return nullptr;
}

// Depth first, with a stack of its own: a call chain may be longer than the thread's stack allows.
void SourceSinkLayout::locateNodes(NodeBase& node, std::set<NodeBase*>& placed, int level, int left, int& width) {
    std::vector<Subtree> path;
    path.push_back(claimChildren(node, placed, left));
    while (true) {
        Subtree& subtree = path.back();
        if (subtree.nextChild < subtree.children.size()) {
            NodeBase& child = *subtree.children[subtree.nextChild++];
            path.push_back(claimChildren(child, placed, subtree.left + subtree.total));
            continue;
        }
        const int row = level + static_cast<int>(path.size()) - 1;
        subtree.node->moveTo(subtree.left + (subtree.total - subtree.last) / 2, row * RowDistance + FirstRow);
        const int taken = subtree.children.empty() ? subtree.node->getWidth() + LeafMargin : subtree.total;
        path.pop_back();
        if (path.empty()) {
            width = taken;
            return;
        }
        path.back().total += taken;
        path.back().last = taken;
    }
}

} // namespace Kova::GUI::GenericGraph
