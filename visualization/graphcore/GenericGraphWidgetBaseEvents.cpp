// SPDX-License-Identifier: MIT
// What the mouse does to the graph: dragging, hovering, clicking.
#include "visualization/graphcore/GenericGraphWidgetBase.h"
#include "visualization/graphcore/GraphEventHandler.h"
#include "visualization/graphcore/Rounding.h"

#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>

#include <array>

namespace Kova::GUI::GenericGraph {

void GenericGraphWidgetBase::highlightNode(NodeBase* node) {
    m_hoveredEdge = nullptr;
    m_hoveredNode = node;
    viewport()->update();
}

void GenericGraphWidgetBase::scrollToNode(const NodeBase& node) {
    const QRect rect = node.getRect();
    const QRect seen(screenToGraph(QPoint(0, 0)), screenToGraph(QPoint(viewport()->width(), viewport()->height())));
    if (seen.contains(rect))
        return;
    const QPoint centre = rect.center();
    horizontalScrollBar()->setValue(truncated(centre.x() * getScale() - viewport()->width() / 2.0));
    verticalScrollBar()->setValue(truncated(centre.y() * getScale() - viewport()->height() / 2.0));
}

void GenericGraphWidgetBase::mousePressEvent(QMouseEvent* event) {
    event->ignore();
    if (event->button() == Qt::LeftButton) {
        m_grabbedNode = findNodeByPosition(screenToGraph(event->pos()));
        event->setAccepted(m_grabbedNode != nullptr);
    }
    if (!event->isAccepted())
        GraphWidgetBase::mousePressEvent(event);
}

void GenericGraphWidgetBase::mouseMoveEvent(QMouseEvent* event) {
    event->ignore();
    if (m_grabbedNode) {
        dragTo(screenToGraph(event->pos()));
        event->accept();
        return;
    }
    hover(event);
    GraphWidgetBase::mouseMoveEvent(event);
}

void GenericGraphWidgetBase::dragTo(const QPoint& position) {
    m_grabbedNode->moveTo(position.x(), position.y());
    updateCollisions();
    viewport()->update();
}

void GenericGraphWidgetBase::hover(QMouseEvent* event) {
    const QPoint position = screenToGraph(event->pos());
    NodeBase* node = findNodeByPosition(position);
    if (node != m_hoveredNode) {
        m_hoveredEdge = nullptr;
        m_hoveredNode = node;
        viewport()->update();
    }
    // Edges are probed over a node as well, and win.
    EdgeBase* edge = findEdgeNear(position);
    if (edge != m_hoveredEdge) {
        m_hoveredNode = nullptr;
        m_hoveredEdge = edge;
        showToolTip(event->globalPos());
        viewport()->update();
    }
}

EdgeBase* GenericGraphWidgetBase::findEdgeNear(const QPoint& position) const {
    static constexpr std::array<QPoint, 5> offsets = {QPoint(0, 0), QPoint(-1, 0), QPoint(1, 0), QPoint(0, -1),
                                                      QPoint(0, 1)};
    for (const QPoint& offset : offsets) {
        if (EdgeBase* edge = findEdgeByPosition(position + offset))
            return edge;
    }
    return nullptr;
}

void GenericGraphWidgetBase::showToolTip(const QPoint& globalPosition) const {
    if (m_hoveredEdge)
        QToolTip::showText(globalPosition, m_hoveredEdge->getToolTip());
    else
        QToolTip::hideText();
}

void GenericGraphWidgetBase::mouseReleaseEvent(QMouseEvent* event) {
    event->ignore();
    if (event->button() == Qt::LeftButton && m_grabbedNode) {
        m_grabbedNode = nullptr;
        updateMap();
        event->accept();
    } else if (event->button() == Qt::RightButton) {
        rightClick(event);
    }
    if (!event->isAccepted())
        GraphWidgetBase::mouseReleaseEvent(event);
}

void GenericGraphWidgetBase::rightClick(QMouseEvent* event) {
    const QPoint position = screenToGraph(event->pos());
    if (m_eventHandler) {
        if (NodeBase* node = findNodeByPosition(position)) {
            m_eventHandler->nodeClicked(event->pos(), node);
            event->accept();
        } else if (EdgeBase* edge = findEdgeByPosition(position)) {
            m_eventHandler->edgeClicked(event->pos(), edge);
            event->accept();
        }
    }
    if (!event->isAccepted() && !m_contextMenu.isEmpty()) {
        m_contextMenu.exec(event->globalPos());
        event->accept();
    }
}

void GenericGraphWidgetBase::mouseDoubleClickEvent(QMouseEvent* event) {
    event->ignore();
    if (m_eventHandler && m_grabbedNode) {
        m_eventHandler->nodeDoubleClicked(m_grabbedNode);
        event->accept();
    }
}

} // namespace Kova::GUI::GenericGraph
