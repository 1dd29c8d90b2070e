// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"
#include "visualization/graphcore/ChangedItems.h"
#include "visualization/graphcore/EdgeBase.h"
#include "visualization/graphcore/EdgeHitMap.h"
#include "visualization/graphcore/GraphWidgetBase.h"
#include "visualization/graphcore/NodeBase.h"

#include <QFont>
#include <QMenu>

#include <memory>
#include <vector>

namespace Kova::GUI::GenericGraph {

class CorridorMap;
class GraphEventHandler;
class NodeHitIndex;
class PaintIndex;

/// Shows a graph of labelled boxes and curved edges, which it owns: draws them, finds and highlights what is under the
/// mouse and lets nodes be dragged.
///
/// A subclass builds a picture in this order: clear(); append nodes and edges; updateNodeSizes(); a layout manager over
/// the nodes; updateCollisions() and updateMap(); enable the export actions; repaint.
///
/// Nodes and edges, and the lists of them, may be changed at any time and in any way. Only the map that hovering uses
/// stays as it was until updateMap().
class VISUALIZATION_EXPORT GenericGraphWidgetBase : public GraphWidgetBase {
public:
    explicit GenericGraphWidgetBase(QWidget* parent = nullptr);
    /// Frees nodes and edges.
    ~GenericGraphWidgetBase() override;

    void clear() override;
    /// Edges in list order, then nodes in list order; where the painter is clipped, only those that can touch the clip.
    void drawGraph(QPainter& painter) override;
    [[nodiscard]] bool isBuilded() const override { return !m_nodes.empty(); }
    /// Makes findEdgeByPosition() answer for the edges as they are now.
    void updateMap() override;

    /// Bends the edges that would run through a node, straightens the others, leaves loops as they are; then sets the
    /// graph size to 50 units beyond the centres of the rightmost and the lowest node.
    void updateCollisions();
    /// Sizes all nodes to their labels in the widget's font.
    void updateNodeSizes();
    /// The first visible node of the list whose box holds the position (graph units), null for none.
    [[nodiscard]] NodeBase* findNodeByPosition(const QPoint& position) const;
    /// The last edge of the list that was at the position (graph units) when updateMap() ran last, null for none.
    [[nodiscard]] EdgeBase* findEdgeByPosition(const QPoint& position) const;
    /// The same, or else one unit beside the position: the edge that the mouse highlights there.
    [[nodiscard]] EdgeBase* findEdgeNear(const QPoint& position) const;

    /// Draws a node as if the mouse were over it, until the mouse moves; null for none.
    void highlightNode(NodeBase* node);
    /// Scrolls so that a node is in the middle, as far as the scroll bars reach; nothing when all of it is in view.
    void scrollToNode(const NodeBase& node);

    [[nodiscard]] const std::vector<NodeBase*>& getNodes() const { return m_nodes; }
    [[nodiscard]] const std::vector<EdgeBase*>& getEdges() const { return m_edges; }

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

    /// Owned by the widget, in drawing order. Nodes and edges are made with new.
    [[nodiscard]] std::vector<NodeBase*>& nodes() { return m_nodes; }
    [[nodiscard]] std::vector<EdgeBase*>& edges() { return m_edges; }
    /// Sets the graph size to 50 units beyond the right and lower ends of all boxes, hidden ones included: showing them
    /// needs no other size.
    void fitSizeToBoxes();
    /// Shown by a right click on empty space unless it is empty.
    [[nodiscard]] QMenu& contextMenu() { return m_contextMenu; }
    /// The bounding rectangle and the flattened path of each edge as updateMap() found them.
    [[nodiscard]] const QList<QRectF>& edgeBounds() const { return m_hitMap.getBounds(); }
    [[nodiscard]] const QList<QList<QPolygonF>>& edgePolygons() const { return m_hitMap.getPolygons(); }
    /// The font of all labels; "Arial", 12 points, unless set. Changing it neither sizes nodes nor repaints.
    [[nodiscard]] const QFont& labelFont() const { return m_font; }
    void setLabelFont(const QFont& font) { m_font = font; }
    /// Receives clicks from now on; not owned, null for none.
    void setEventHandler(GraphEventHandler* handler) { m_eventHandler = handler; }
    [[nodiscard]] NodeBase* grabbedNode() const { return m_grabbedNode; }
    [[nodiscard]] EdgeBase* hoveredEdge() const { return m_hoveredEdge; }
    [[nodiscard]] NodeBase* hoveredNode() const { return m_hoveredNode; }

private:
    void destroyItems();
    void drawAll(QPainter& painter) const;
    void drawArea(QPainter& painter, const QRectF& area);
    void dragTo(const QPoint& position);
    void hover(QMouseEvent* event);
    void showToolTip(const QPoint& globalPosition) const;
    void rightClick(QMouseEvent* event);

    std::vector<NodeBase*> m_nodes;
    std::vector<EdgeBase*> m_edges;
    QMenu m_contextMenu;
    EdgeHitMap m_hitMap;
    QFont m_font;
    GraphEventHandler* m_eventHandler = nullptr;
    NodeBase* m_grabbedNode = nullptr;
    EdgeBase* m_hoveredEdge = nullptr;
    NodeBase* m_hoveredNode = nullptr;

    ChangedItems<EdgeBase> m_mappedEdges;
    std::unique_ptr<NodeHitIndex> m_nodeIndex;
    std::unique_ptr<CorridorMap> m_corridors;
    std::unique_ptr<PaintIndex> m_paintIndex;
};

} // namespace Kova::GUI::GenericGraph
