// SPDX-License-Identifier: MIT
// What the mouse does to the text: dragging, hovering, the menu.
#include "visualization/graphcore/Rounding.h"
#include "visualization/textgraph/EdgeBase.h"
#include "visualization/textgraph/Saturated.h"
#include "visualization/textgraph/TextGraphWidgetBase.h"

#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>

namespace Kova::GUI::TextGraph {

namespace {

/// Distances are limited to what an int holds: points may be as far apart as the scroll bars allow.
int distance(int from, int to) {
    return saturated(qint64{to} - from);
}

} // namespace

QPoint TextGraphWidgetBase::scenePoint(const QMouseEvent& event) const {
    // Rounded, unlike screenToGraph(): text and edges are met as they are seen.
    return {roundHalfAway((static_cast<double>(event.pos().x()) + horizontalScrollBar()->value()) / getScale()),
            roundHalfAway((static_cast<double>(event.pos().y()) + verticalScrollBar()->value()) / getScale())};
}

void TextGraphWidgetBase::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        const QPoint point = scenePoint(*event);
        m_pressedNode = getNodeByCurPos(point);
        if (isHolding() && m_selectedEdge == -1) {
            m_pressPoint = point;
            event->accept();
            return;
        }
        // Not held: what follows pans.
        m_pressedNode.setY(-1);
    }
    GraphWidgetBase::mousePressEvent(event);
}

void TextGraphWidgetBase::mouseMoveEvent(QMouseEvent* event) {
    if (isHolding()) {
        drag(scenePoint(*event), event->modifiers());
        event->accept();
        return;
    }
    hover(event);
    GraphWidgetBase::mouseMoveEvent(event);
}

void TextGraphWidgetBase::drag(const QPoint& point, Qt::KeyboardModifiers modifiers) {
    const int dx = distance(m_pressPoint.x(), point.x());
    const int dy = distance(m_pressPoint.y(), point.y());
    if (dy != 0 && !(modifiers & Qt::ControlModifier)) {
        shiftLines(m_pressedNode.x(), dy);
        fitHeight();
    }
    if (dx != 0 && !(modifiers & Qt::ShiftModifier))
        sprainLine(m_pressedNode, dx);
    m_pressPoint = point;
    updateScrollBars();
    viewport()->update();
}

void TextGraphWidgetBase::hover(QMouseEvent* event) {
    const int edge = probeEdge(scenePoint(*event));
    const bool changed = edge != m_selectedEdge;
    if (changed) {
        m_selectedEdge = edge;
        viewport()->update();
    }
    if (edge == -1)
        QToolTip::showText(event->globalPos(), QString());
    else if (m_edges.at(edge)->isVisible())
        QToolTip::showText(event->globalPos(), m_edges.at(edge)->getHint());
    if (changed && m_hoverListener)
        m_hoverListener(edge);
}

int TextGraphWidgetBase::probeEdge(const QPoint& point) const {
    static constexpr QPoint offsets[] = {{0, 0}, {-1, 0}, {1, 0}, {0, -1}, {0, 1}};
    for (const QPoint& offset : offsets) {
        const int edge =
            getEdgeByPos(QPoint(saturated(qint64{point.x()} + offset.x()), saturated(qint64{point.y()} + offset.y())));
        if (edge != -1)
            return edge;
    }
    return -1;
}

void TextGraphWidgetBase::mouseReleaseEvent(QMouseEvent* event) {
    GraphWidgetBase::mouseReleaseEvent(event);
    if (event->isAccepted())
        return;
    if (event->button() == Qt::LeftButton && isHolding()) {
        m_pressedNode = QPoint(-1, -1);
        reorder(false, 1);
        updateMap();
        viewport()->update();
    } else if (event->button() == Qt::RightButton) {
        m_menu.popup(event->globalPos());
    }
    event->accept();
}

} // namespace Kova::GUI::TextGraph
