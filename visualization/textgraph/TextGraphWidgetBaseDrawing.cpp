// SPDX-License-Identifier: MIT
// Drawing, of no more than what can be seen.
#include "visualization/graphcore/ExposedArea.h"
#include "visualization/graphcore/StrokeMargin.h"
#include "visualization/textgraph/CellPainter.h"
#include "visualization/textgraph/EdgeBase.h"
#include "visualization/textgraph/GraphNodeBase.h"
#include "visualization/textgraph/TextGraphWidgetBase.h"

#include <cmath>
#include <optional>

namespace Kova::GUI::TextGraph {

namespace {

/// Where a node may draw: its cells and its rectangle, and a line's height around them.
QRectF reachOf(const NodeBase& node, int charWidth, int lineHeight) {
    const QRectF cells(0.0, -lineHeight, static_cast<double>(charWidth) * node.getText().size(), lineHeight);
    const QRectF rect(node.getRect());
    return cells.united(rect).translated(node.getPos()).adjusted(-lineHeight, -lineHeight, lineHeight, lineHeight);
}

/// From the ports of a loop to the control points left of its node.
double loopRoom(const EdgeBase& edge) {
    return 20.0 + std::abs(static_cast<double>(edge.getFrom()->getRect().width()));
}

/// Longer than an arrowhead.
constexpr double arrowRoom = 16.0;

bool touches(const ArrowCurve& curve, const QRectF& area, double margin) {
    return controlRect(curve).adjusted(-margin, -margin, margin, margin).intersects(area) &&
           stripTouches(curve, area, margin);
}

/// Whether an edge may draw into the area with that pen. Takes the angles of arrows and arcs into account only where
/// that is worth their computation.
bool mayTouch(const EdgeBase& edge, const QPen& pen, const QRectF& area) {
    const std::optional<double> margin = strokeMargin(pen);
    if (!margin)
        return true;
    const QPoint from = edge.getFrom()->getPortCoords(edge.getPort(EdgeSide::From));
    const QPoint to = edge.getTo()->getPortCoords(edge.getPort(EdgeSide::To));
    if (edge.getShapeType() == EdgeBase::Straight)
        return touches({from, from, from, to, {to, to}}, area, *margin + arrowRoom);
    // Arcs and loops are curves whose control points are at most so far from their ends.
    const double swing =
        edge.getShapeType() == EdgeBase::Arc ? std::abs(to.x() - static_cast<double>(from.x())) : loopRoom(edge);
    const double room = *margin + arrowRoom + swing + std::abs(to.y() - static_cast<double>(from.y()));
    return QRectF(from, to).normalized().adjusted(-room, -room, room, room).intersects(area) &&
           touches(edge.getCurve(), area, *margin);
}

} // namespace

void TextGraphWidgetBase::drawGraph(QPainter& painter) {
    const std::optional<QRectF> area = exposedArea(painter);
    drawNodes(painter, area ? &*area : nullptr);
    drawEdges(painter, area ? &*area : nullptr);
}

void TextGraphWidgetBase::drawNodes(QPainter& painter, const QRectF* area) const {
    CellPainter cells(painter, m_font, m_cell.charWidth);
    for (const NodesLine& line : m_lines) {
        for (const NodeBase* node : line.nodes) {
            if (!area || reachOf(*node, m_cell.charWidth, m_cell.lineHeight).intersects(*area))
                cells.draw(*node);
        }
    }
}

void TextGraphWidgetBase::drawEdges(QPainter& painter, const QRectF* area) const {
    for (int i = 0; i < m_edges.size(); ++i) {
        const EdgeBase& edge = *m_edges.at(i);
        const bool selected = i == m_selectedEdge;
        const QPen& pen = selected ? edge.getSelectedPen() : edge.getPen();
        if (!area || (edge.isVisible() && mayTouch(edge, pen, *area)))
            edge.draw(painter, selected);
    }
}

} // namespace Kova::GUI::TextGraph
