// SPDX-License-Identifier: MIT
// The rules of hit testing and edge shapes written as plain walks over everything: what the indexed answers are
// compared with, in results and in time. Coordinates have to be small enough for 64-bit products.
#pragma once

#include "visualization/graphcore/EdgeBase.h"
#include "visualization/graphcore/NodeBase.h"

#include <QList>
#include <QPolygonF>
#include <QRectF>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>
#include <vector>

namespace Kova::GUI::GenericGraph {

using PlainHitMap = std::pair<QList<QRectF>, QList<QList<QPolygonF>>>;

inline PlainHitMap plainHitMap(const std::vector<EdgeBase*>& edges) {
    PlainHitMap map;
    for (const EdgeBase* edge : edges) {
        const QPainterPath path = edge->getShape();
        map.first.append(path.boundingRect());
        map.second.append(path.toSubpathPolygons(QTransform()));
    }
    return map;
}

inline NodeBase* plainFindNode(const std::vector<NodeBase*>& nodes, const QPoint& p) {
    for (NodeBase* node : nodes) {
        if (node->isVisible() && p.x() >= node->getX() && p.x() < node->getX() + node->getWidth() &&
            p.y() >= node->getY() && p.y() < node->getY() + node->getHeight())
            return node;
    }
    return nullptr;
}

inline bool plainMeets(const QPointF& from, const QPointF& to, const QPoint& p) {
    const qint64 fromX = std::lround(from.x());
    const qint64 fromY = std::lround(from.y());
    const qint64 dx = std::lround(to.x()) - fromX;
    const qint64 dy = std::lround(to.y()) - fromY;
    if (dx == 0 && dy == 0)
        return p.x() == fromX && p.y() == fromY;
    const qint64 cross = dx * (p.y() - fromY) - dy * (p.x() - fromX);
    const qint64 dot = (2 * p.x() - 2 * fromX - dx) * dx + (2 * p.y() - 2 * fromY - dy) * dy;
    const double length = std::sqrt(static_cast<double>(dx * dx + dy * dy));
    return std::abs(cross) <= static_cast<qint64>(std::floor(length / 2.0)) && std::abs(dot) <= dx * dx + dy * dy;
}

inline EdgeBase* plainFindEdge(const std::vector<EdgeBase*>& edges, const QList<QRectF>& bounds,
                               const QList<QList<QPolygonF>>& polygons, const QPoint& p) {
    const int count = std::min({static_cast<int>(edges.size()), bounds.size(), polygons.size()});
    for (int i = count - 1; i >= 0; --i) {
        if (!bounds.at(i).contains(p))
            continue;
        for (const QPolygonF& polygon : polygons.at(i)) {
            for (int k = 1; k < polygon.size(); ++k) {
                if (plainMeets(polygon.at(k - 1), polygon.at(k), p))
                    return edges[static_cast<std::size_t>(i)];
            }
        }
    }
    return nullptr;
}

inline bool plainBlocks(const NodeBase& node, const QPoint& a, const QPoint& b) {
    const QPoint m = node.getCenter();
    if (m.x() < std::min(a.x(), b.x()) - 5 || m.x() > std::max(a.x(), b.x()) + 5 ||
        m.y() < std::min(a.y(), b.y()) - 5 || m.y() > std::max(a.y(), b.y()) + 5)
        return false;
    const qint64 dx = b.x() - a.x();
    const qint64 dy = b.y() - a.y();
    const qint64 cross = dx * (m.y() - a.y()) - dy * (m.x() - a.x());
    return cross * cross <= 144 * (dx * dx + dy * dy);
}

/// Whether a node stands in the way of the edge were it straight, by looking at every node; false for loops.
inline bool plainIsBlocked(const std::vector<NodeBase*>& nodes, const EdgeBase& edge) {
    if (edge.getSource() == edge.getTarget())
        return false;
    const QPoint a = edge.getSource()->getCenter();
    const QPoint b = edge.getTarget()->getCenter();
    return std::any_of(nodes.begin(), nodes.end(), [&](const NodeBase* node) {
        return node->isVisible() && node != edge.getSource() && node != edge.getTarget() && plainBlocks(*node, a, b);
    });
}

/// The kind of every edge after reshaping.
inline std::vector<ShapeKind> plainShapes(const std::vector<NodeBase*>& nodes, const std::vector<EdgeBase*>& edges) {
    std::vector<ShapeKind> shapes;
    for (const EdgeBase* edge : edges) {
        if (edge->getSource() == edge->getTarget()) {
            shapes.push_back(edge->getShapeKind());
            continue;
        }
        const bool blocked = plainIsBlocked(nodes, *edge);
        shapes.push_back(blocked || edge->getBendIndex() != 0 ? EdgeBase::Arc : EdgeBase::Straight);
    }
    return shapes;
}

} // namespace Kova::GUI::GenericGraph
