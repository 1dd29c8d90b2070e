// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"
#include "visualization/graphcore/CellGrid.h"

#include <QPoint>

#include <cstddef>
#include <vector>

namespace Kova::GUI::GenericGraph {

class EdgeBase;
class NodeBase;

/// Knows which edges would run through a node if they were straight. Remembers what it found, with the positions that
/// it depends on, so that after the move of a few nodes only the edges which that concerns are examined again. Compares
/// the positions themselves, so no change can be missed.
class VISUALIZATION_EXPORT CorridorMap {
public:
    /// Brings the answers up to date with the lists as they are now.
    void update(const std::vector<NodeBase*>& nodes, const std::vector<EdgeBase*>& edges);

    /// Whether a visible node other than the edge's own two has its centre close to the line between them, see
    /// isInCorridor(). An index into the edges of the last update(); false for loops.
    [[nodiscard]] bool isBlocked(std::size_t edge) const { return m_edges[edge].blocked; }

private:
    struct Place {
        const NodeBase* node;
        QPoint center;
        bool visible;
    };
    struct Corridor {
        const NodeBase* source;
        const NodeBase* target;
        QPoint a;
        QPoint b;
        bool blocked;
    };

    /// Old and new places of what moved, appeared or vanished; everything when that is simpler.
    struct Changes {
        bool all = false;
        std::vector<Place> places;
    };
    [[nodiscard]] Changes updatePlaces(const std::vector<NodeBase*>& nodes);
    void buildGrid();
    [[nodiscard]] bool examine(const Corridor& corridor) const;
    [[nodiscard]] static bool blocks(const Place& place, const Corridor& corridor);

    std::vector<Place> m_places;
    std::vector<Corridor> m_edges;
    CellGrid m_grid;
    CellItems<Place> m_cells;
};

} // namespace Kova::GUI::GenericGraph
