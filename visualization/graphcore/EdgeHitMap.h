// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"
#include "visualization/graphcore/CellGrid.h"

#include <QList>
#include <QPainterPath>
#include <QPoint>
#include <QPolygonF>
#include <QRectF>

#include <cstddef>
#include <vector>

namespace Kova::GUI {

/// Finds the edge under a point from the edges' paths, kept as bounding rectangles and flattened polygons. All in
/// graph units.
///
/// A point is on an edge when it is in the edge's bounding rectangle and on one of the straight pieces of its polygons,
/// their ends rounded to integers (see isOnSegment()). The answers are those of a walk over all edges; the pieces are
/// kept in a grid so that a question looks at a few of them only.
class VISUALIZATION_EXPORT EdgeHitMap {
public:
    /// Sets the number of edges; new ones are empty and never hit.
    void resize(std::size_t count);
    void setPath(std::size_t index, const QPainterPath& path);
    /// Has to follow the last change before find functions are called.
    void buildIndex();

    /// The smallest index below `limit` whose edge is under the point, -1 for none.
    [[nodiscard]] int findFirst(const QPoint& point, std::size_t limit) const;
    /// The largest one.
    [[nodiscard]] int findLast(const QPoint& point, std::size_t limit) const;

    [[nodiscard]] const QList<QRectF>& getBounds() const { return m_bounds; }
    [[nodiscard]] const QList<QList<QPolygonF>>& getPolygons() const { return m_polygons; }

private:
    struct Piece {
        QPoint from;
        QPoint to;
        int edge;
    };
    [[nodiscard]] bool isHit(const Piece& piece, const QPoint& point, std::size_t limit) const;

    QList<QRectF> m_bounds;
    QList<QList<QPolygonF>> m_polygons;
    std::vector<std::vector<Piece>> m_pieces;
    CellGrid m_grid;
    CellItems<const Piece*> m_cells;
};

} // namespace Kova::GUI
