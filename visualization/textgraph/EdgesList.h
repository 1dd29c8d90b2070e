// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"

#include <vector>

namespace Kova::GUI::TextGraph {

class EdgeBase;

/// The edges of a picture, in drawing order. Owns them.
class VISUALIZATION_EXPORT EdgesList {
public:
    EdgesList() = default;
    ~EdgesList();
    EdgesList(const EdgesList&) = delete;
    EdgesList& operator=(const EdgesList&) = delete;
    EdgesList(EdgesList&&) = delete;
    EdgesList& operator=(EdgesList&&) = delete;

    /// Takes an edge that was made with new; not null.
    void add(EdgeBase* edge);
    /// Takes the edge out where it is first and gives it back to the caller, who owns it from now on. Edges that are
    /// not in the list are ignored.
    void remove(EdgeBase* edge);
    /// Deletes all edges.
    void clear();

    [[nodiscard]] int size() const { return static_cast<int>(m_edges.size()); }
    [[nodiscard]] bool isEmpty() const { return m_edges.empty(); }
    /// The index is in [0, size()).
    [[nodiscard]] EdgeBase* at(int index) const { return m_edges[static_cast<std::size_t>(index)]; }
    [[nodiscard]] auto begin() const { return m_edges.begin(); }
    [[nodiscard]] auto end() const { return m_edges.end(); }

private:
    std::vector<EdgeBase*> m_edges;
};

} // namespace Kova::GUI::TextGraph
