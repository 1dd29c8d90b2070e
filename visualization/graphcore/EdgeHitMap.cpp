// SPDX-License-Identifier: MIT
#include "visualization/graphcore/EdgeHitMap.h"

#include "visualization/graphcore/Rounding.h"
#include "visualization/graphcore/SegmentTests.h"

#include <QTransform>

namespace Kova::GUI {

namespace {

QPoint rounded(const QPointF& point) {
    return {roundHalfAway(point.x()), roundHalfAway(point.y())};
}

} // namespace

void EdgeHitMap::resize(std::size_t count) {
    const int size = static_cast<int>(count);
    while (m_bounds.size() > size) {
        m_bounds.removeLast();
        m_polygons.removeLast();
    }
    while (m_bounds.size() < size) {
        m_bounds.append(QRectF());
        m_polygons.append(QList<QPolygonF>());
    }
    m_pieces.resize(count);
}

void EdgeHitMap::setPath(std::size_t index, const QPainterPath& path) {
    const int edge = static_cast<int>(index);
    m_bounds[edge] = path.boundingRect();
    m_polygons[edge] = path.toSubpathPolygons(QTransform());
    std::vector<Piece>& pieces = m_pieces[index];
    pieces.clear();
    for (const QPolygonF& polygon : qAsConst(m_polygons)[edge]) {
        for (int i = 1; i < polygon.size(); ++i)
            pieces.push_back({rounded(polygon.at(i - 1)), rounded(polygon.at(i)), edge});
    }
}

void EdgeHitMap::buildIndex() {
    CellGrid::Plan plan;
    for (const std::vector<Piece>& pieces : m_pieces) {
        for (const Piece& piece : pieces)
            plan.addSegment(piece.from, piece.to);
    }
    m_grid = CellGrid(plan);
    m_cells.build(m_grid.cellCount(), [this](auto enter) {
        for (const std::vector<Piece>& pieces : m_pieces) {
            for (const Piece& piece : pieces) {
                // Points on a piece are within the rectangle of its ends.
                m_grid.visitCorridor(piece.from, piece.to, 0, 1, [&](int cell) {
                    enter(cell, &piece);
                    return false;
                });
            }
        }
    });
}

bool EdgeHitMap::isHit(const Piece& piece, const QPoint& point, std::size_t limit) const {
    return static_cast<std::size_t>(piece.edge) < limit && isOnSegment(piece.from, piece.to, point) &&
           m_bounds.at(piece.edge).contains(point);
}

int EdgeHitMap::findFirst(const QPoint& point, std::size_t limit) const {
    if (m_grid.isEmpty())
        return -1;
    for (const Piece* piece : m_cells.at(m_grid.cellAt(point))) {
        if (isHit(*piece, point, limit))
            return piece->edge;
    }
    return -1;
}

int EdgeHitMap::findLast(const QPoint& point, std::size_t limit) const {
    if (m_grid.isEmpty())
        return -1;
    const auto pieces = m_cells.at(m_grid.cellAt(point));
    for (auto next = pieces.end(); next != pieces.begin();) {
        const Piece& piece = **--next;
        if (isHit(piece, point, limit))
            return piece.edge;
    }
    return -1;
}

} // namespace Kova::GUI
