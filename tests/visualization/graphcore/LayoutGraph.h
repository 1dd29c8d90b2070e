// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/graphcore/EdgeBase.h"
#include "visualization/graphcore/NodeBase.h"

#include <initializer_list>
#include <memory>
#include <utility>
#include <vector>

/// A generic graph that owns its nodes and edges, for tests of layouts.
class LayoutGraph {
public:
    using Node = Kova::GUI::GenericGraph::NodeBase;
    using Edge = Kova::GUI::GenericGraph::EdgeBase;

    LayoutGraph() = default;

    /// Nodes "0", "1", ... of the given width, 20 high, with edges between their numbers.
    LayoutGraph(int count, const std::vector<std::pair<int, int>>& edges, int width = 40) {
        for (int i = 0; i < count; ++i)
            add(QString::number(i), width);
        for (const auto& [source, target] : edges)
            join(node(source), node(target));
    }

    Node& add(const QString& text, int width = 40) {
        m_nodes.push_back(std::make_unique<Node>(text));
        m_nodes.back()->setSize(width, 20);
        return *m_nodes.back();
    }

    Edge& join(Node& source, Node& target) {
        m_edges.push_back(std::make_unique<Edge>(&source, &target));
        return *m_edges.back();
    }

    /// Leaves null entries in the nodes' lists.
    void removeEdge(int index) { m_edges.erase(m_edges.begin() + index); }

    [[nodiscard]] Node& node(int index) const { return *m_nodes[static_cast<std::size_t>(index)]; }

    [[nodiscard]] std::vector<Node*> nodes() const {
        std::vector<Node*> nodes;
        for (const std::unique_ptr<Node>& node : m_nodes)
            nodes.push_back(node.get());
        return nodes;
    }

    [[nodiscard]] std::vector<QPoint> centers() const {
        std::vector<QPoint> centers;
        for (const std::unique_ptr<Node>& node : m_nodes)
            centers.push_back(node->getCenter());
        return centers;
    }

private:
    std::vector<std::unique_ptr<Node>> m_nodes;
    std::vector<std::unique_ptr<Edge>> m_edges;
};
