// SPDX-License-Identifier: MIT
// Nodes and edges at random places, without a widget.
#pragma once

#include "visualization/graphcore/EdgeBase.h"
#include "visualization/graphcore/NodeBase.h"

#include <cstddef>
#include <memory>
#include <random>
#include <utility>
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

    /// Changes a node, or the list of nodes, which keeps one at least. Edges may lose a node from the list.
    void changeNodes() {
        switch (any(0, 7)) {
        case 0:
            return moveAnywhere(*anyNode());
        case 1:
            return anyNode()->move(any(-20, 20), any(-20, 20));
        case 2:
            return anyNode()->setSize(any(-1, 200), any(-1, 200));
        case 3:
            return anyNode()->setVisible(any(0, 2) != 0);
        case 4:
            return std::swap(anyNode(), anyNode());
        case 5:
            anyNode() = makeNode();
            return;
        case 6:
            return addNode();
        default:
            if (nodes.size() > 1)
                nodes.pop_back();
        }
    }

    /// Changes an edge, or the list of edges, which keeps one at least.
    void changeEdges() {
        switch (any(0, 4)) {
        case 0:
            return anyEdge()->setShapeKind(static_cast<ShapeKind>(any(0, 2)));
        case 1:
            return std::swap(anyEdge(), anyEdge());
        case 2:
            anyEdge()->getTarget()->move(1, 0);
            return;
        case 3:
            return addEdge();
        default:
            if (edges.size() > 1)
                edges.pop_back();
        }
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
