// SPDX-License-Identifier: MIT
#include "visualization/graphcore/GenericGraphWidgetBase.h"

#include "visualization/graphcore/CorridorMap.h"
#include "visualization/graphcore/ExposedArea.h"
#include "visualization/graphcore/NodeHitIndex.h"
#include "visualization/graphcore/PaintIndex.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <optional>

namespace Kova::GUI::GenericGraph {

namespace {

/// Space beyond the outermost nodes.
constexpr int graphMargin = 50;

} // namespace

GenericGraphWidgetBase::GenericGraphWidgetBase(QWidget* parent)
    : GraphWidgetBase(parent),
      m_font(QStringLiteral("Arial"), 12),
      m_nodeIndex(std::make_unique<NodeHitIndex>()),
      m_corridors(std::make_unique<CorridorMap>()),
      m_paintIndex(std::make_unique<PaintIndex>()) {}

GenericGraphWidgetBase::~GenericGraphWidgetBase() {
    destroyItems();
}

void GenericGraphWidgetBase::clear() {
    GraphWidgetBase::clear();
    destroyItems();
    m_grabbedNode = nullptr;
    m_hoveredEdge = nullptr;
    m_hoveredNode = nullptr;
}

void GenericGraphWidgetBase::destroyItems() {
    // Edges first: each one detaches itself from its nodes.
    for (EdgeBase* edge : m_edges)
        delete edge;
    m_edges.clear();
    for (NodeBase* node : m_nodes)
        NodeBase::destroy(node);
    m_nodes.clear();
}

void GenericGraphWidgetBase::drawGraph(QPainter& painter) {
    painter.setFont(m_font);
    if (const std::optional<QRectF> area = exposedArea(painter))
        drawArea(painter, *area);
    else
        drawAll(painter);
}

void GenericGraphWidgetBase::drawAll(QPainter& painter) const {
    for (const EdgeBase* edge : m_edges)
        edge->draw(painter, edge == m_hoveredEdge);
    for (const NodeBase* node : m_nodes)
        node->draw(painter, node == m_hoveredNode);
}

void GenericGraphWidgetBase::drawArea(QPainter& painter, const QRectF& area) {
    m_paintIndex->update(m_nodes, m_edges, m_font, *painter.device());
    for (const std::size_t i : m_paintIndex->edgesIn(m_edges, area, m_hoveredEdge))
        m_edges[i]->draw(painter, m_edges[i] == m_hoveredEdge);
    for (const std::size_t i : m_paintIndex->nodesIn(m_nodes, area, m_hoveredNode))
        m_nodes[i]->draw(painter, m_nodes[i] == m_hoveredNode);
}

void GenericGraphWidgetBase::updateMap() {
    m_hitMap.resize(m_edges.size());
    const bool changed =
        m_mappedEdges.update(m_edges, [this](std::size_t i) { m_hitMap.setPath(i, m_edges[i]->getShape()); });
    if (changed)
        m_hitMap.buildIndex();
}

void GenericGraphWidgetBase::updateCollisions() {
    m_corridors->update(m_nodes, m_edges);
    for (std::size_t i = 0; i < m_edges.size(); ++i) {
        EdgeBase& edge = *m_edges[i];
        if (edge.getSource() != edge.getTarget())
            edge.setShapeKind(m_corridors->isBlocked(i) || edge.getBendIndex() != 0 ? EdgeBase::Arc
                                                                                    : EdgeBase::Straight);
    }
    QPoint farthest(-1, -1);
    for (const NodeBase* node : m_nodes) {
        const QPoint center = node->getCenter();
        farthest = QPoint(std::max(farthest.x(), center.x()), std::max(farthest.y(), center.y()));
    }
    setGraphSize(farthest.x() + graphMargin, farthest.y() + graphMargin);
}

void GenericGraphWidgetBase::fitSizeToBoxes() {
    int right = 0;
    int bottom = 0;
    for (const NodeBase* node : m_nodes) {
        right = std::max(right, node->getRect().right());
        bottom = std::max(bottom, node->getRect().bottom());
    }
    setGraphSize(right + graphMargin, bottom + graphMargin);
}

void GenericGraphWidgetBase::updateNodeSizes() {
    QFontMetrics metrics(m_font);
    // A copy: sizing a node may change the list.
    const std::vector<NodeBase*> sized = m_nodes;
    for (NodeBase* node : sized)
        node->updateSize(metrics);
}

NodeBase* GenericGraphWidgetBase::findNodeByPosition(const QPoint& position) const {
    return m_nodeIndex->findFirst(m_nodes, position);
}

EdgeBase* GenericGraphWidgetBase::findEdgeByPosition(const QPoint& position) const {
    const int index = m_hitMap.findLast(position, m_edges.size());
    return index < 0 ? nullptr : m_edges[static_cast<std::size_t>(index)];
}

} // namespace Kova::GUI::GenericGraph
