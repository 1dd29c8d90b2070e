// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/depgraph/LamportEdge.h"
#include "visualization/textgraph/EdgesList.h"
#include "visualization/textgraph/GraphNodeBase.h"

#include <memory>
#include <vector>

/// Words, each on a line of its own, and dependences between them.
class TextNodes {
public:
    Kova::GUI::TextGraph::GraphNodeBase* node(const QString& text) {
        const int y = 20 * (static_cast<int>(m_nodes.size()) + 1);
        m_nodes.push_back(std::make_unique<Kova::GUI::TextGraph::GraphNodeBase>(QPoint(0, y), text));
        m_nodes.back()->setRect(QRect(0, -12, 10 * text.size(), 12));
        return m_nodes.back().get();
    }
    /// An edge between two new words, which the list of edges owns.
    Kova::GUI::DepGraph::LamportEdge* edge(int type, const QList<int>& carriers = {-1}, const QString& from = "a",
                                           const QString& to = "a") {
        auto* edge =
            new Kova::GUI::DepGraph::LamportEdge(node(from), node(to), static_cast<::DepGraph::EN_DepType>(type));
        edge->setCarriers(carriers);
        edges.add(edge);
        return edge;
    }

private:
    std::vector<std::unique_ptr<Kova::GUI::TextGraph::GraphNodeBase>> m_nodes;

public:
    Kova::GUI::TextGraph::EdgesList edges;
};
