// SPDX-License-Identifier: MIT
// Nodes and edges at random places, without a widget.
#pragma once

#include "visualization/graphcore/EdgeBase.h"
#include "visualization/graphcore/NodeBase.h"

#include <cstddef>
#include <memory>
#include <random>
#include <vector>

namespace Kova::GUI::GenericGraph {

/// Owns what it made, whatever becomes of the lists.
class RandomGraph {
public:
    /// Coordinates are within the extent on both sides of 0.
    RandomGraph(unsigned seed, int nodeCount, int edgeCount, int extent) : m_generator(seed), m_extent(extent) {
        for (int i = 0; i < nodeCount; ++i)
            addNode();
        for (int i = 0; i < edgeCount; ++i)
            addEdge();
    }

    std::vector<NodeBase*> nodes;
    std::vector<EdgeBase*> edges;

    int any(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_generator); }
    QPoint anyPoint() {
        const int x = any(-m_extent, m_extent);
        return {x, any(-m_extent, m_extent)};
    }
    /// The lists must not be empty.
    NodeBase*& anyNode() { return anyOf(nodes); }
    EdgeBase*& anyEdge() { return anyOf(edges); }

    /// A node that is in no list.
    NodeBase* makeNode() {
        m_nodes.push_back(std::make_unique<NodeBase>(QStringLiteral("n%1").arg(m_nodes.size())));
        NodeBase* node = m_nodes.back().get();
        const int width = any(1, 90);
        node->setSize(width, any(1, 40));
        moveAnywhere(*node);
        return node;
    }
    void addNode() { nodes.push_back(makeNode()); }

    /// Of any shape, between any two nodes of the list.
    void addEdge() {
        NodeBase* source = anyNode();
        NodeBase* target = anyNode();
        m_edges.push_back(std::make_unique<EdgeBase>(source, target));
        EdgeBase* edge = m_edges.back().get();
        edge->setBendIndex(any(0, 4));
        edge->setShapeKind(source == target ? EdgeBase::Loop : static_cast<ShapeKind>(any(0, 1)));
        edge->updatePos();
        edges.push_back(edge);
    }

    void moveAnywhere(NodeBase& node) {
        const QPoint center = anyPoint();
        node.moveTo(center.x(), center.y());
    }

private:
    template <typename Item>
    Item*& anyOf(std::vector<Item*>& items) {
        return items[static_cast<std::size_t>(any(0, static_cast<int>(items.size()) - 1))];
    }

    std::mt19937 m_generator;
    int m_extent;
    // Edges go first: they detach themselves from their nodes.
    std::vector<std::unique_ptr<NodeBase>> m_nodes;
    std::vector<std::unique_ptr<EdgeBase>> m_edges;
};

} // namespace Kova::GUI::GenericGraph
