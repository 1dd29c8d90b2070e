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

/// Room for the control points of arcs and loops and for the arrowhead, found without tracing the curve.
double roughReach(int shapeType, const QPointF& span) {
    constexpr double arrowhead = 16.0;
    const double arc = shapeType == 2 ? (std::abs(span.x()) + std::abs(span.y())) / 3.0 : 0.0;
    return arrowhead + arc;
}

bool mayTouch(const EdgeBase& edge, const QRectF& area) {
    const std::optional<double> margin = strokeMargin(edge.getPen());
    if (!margin)
        return true;
    if (edge.getShapeType() != 3) {
        const QPointF from = edge.getFrom()->getPortCoords(edge.getPort(EdgeSide::From));
        const QPointF to = edge.getTo()->getPortCoords(edge.getPort(EdgeSide::To));
        const double room = *margin + roughReach(edge.getShapeType(), to - from);
        if (!QRectF(from, to).normalized().adjusted(-room, -room, room, room).intersects(area))
            return false;
    }
    const ArrowCurve curve = edge.getCurve();
    const QRectF reach = controlRect(curve).adjusted(-*margin, -*margin, *margin, *margin);
    return reach.intersects(area) && stripTouches(curve, area, *margin);
}

} // namespace

void TextGraphWidgetBase::drawGraph(QPainter& painter) {
    const std::optional<QRectF> area = exposedArea(painter);
    drawNodes(painter, area ? &*area : nullptr);
    drawEdges(painter, area ? &*area : nullptr);
}

void TextGraphWidgetBase::drawNodes(QPainter& painter, const QRectF* area) const {
    CellPainter cells(painter, m_font, m_charWidth);
    for (const NodesLine& line : m_lines) {
        for (const NodeBase* node : line.nodes) {
            if (!area || reachOf(*node, m_charWidth, m_lineHeight).intersects(*area))
                cells.draw(*node);
        }
    }
}

void TextGraphWidgetBase::drawEdges(QPainter& painter, const QRectF* area) const {
    for (int i = 0; i < m_edges.size(); ++i) {
        const EdgeBase& edge = *m_edges.at(i);
        const bool selected = i == m_selectedEdge;
        if (!area || selected || (edge.isVisible() && mayTouch(edge, *area)))
            edge.draw(painter, selected);
    }
}

} // namespace Kova::GUI::TextGraph
