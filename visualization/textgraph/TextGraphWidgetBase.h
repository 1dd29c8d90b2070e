// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"
#include "visualization/graphcore/CurveGeometry.h"
#include "visualization/graphcore/EdgeHitMap.h"
#include "visualization/graphcore/GraphWidgetBase.h"
#include "visualization/textgraph/CellSize.h"
#include "visualization/textgraph/EdgesList.h"
#include "visualization/textgraph/NodesLine.h"

#include <QFont>
#include <QList>
#include <QMenu>
#include <QPoint>

#include <functional>
#include <utility>
#include <vector>

namespace Kova::GUI::TextGraph {

class EdgeBase;
class NodeBase;

/// Shows program text, line by line in a font of fixed pitch, with arrows between pieces of it. Lines can be dragged up
/// and down, the rest of a line sideways.
///
/// A subclass builds a picture in this order: clear(); fill lines() (see WordLayout) and edges(); setGraphSize();
/// moveCloseLinesApart() and sprainLine() as it likes; setBuilded(); updateEdgesVisibility(), updateScrollBars(),
/// updateMap(); repaint. Points and lengths are graph units unless said otherwise.
class VISUALIZATION_EXPORT TextGraphWidgetBase : public GraphWidgetBase {
    Q_OBJECT

public:
    explicit TextGraphWidgetBase(QWidget* parent = nullptr);
    /// Frees nodes and edges.
    ~TextGraphWidgetBase() override;

    void clear() override;
    /// Nodes line by line, then edges in list order; where the painter is clipped, only those that can touch the clip.
    void drawGraph(QPainter& painter) override;
    [[nodiscard]] bool isBuilded() const override { return m_builded; }
    /// Makes getEdgeByPos() answer for the edges as they are now. Keeps the old answers while nothing is built.
    void updateMap() override;
    /// Whether the edge is to be shown.
    [[nodiscard]] virtual bool filterEdge(const EdgeBase* edge) = 0;

    /// "Monospace", 14 points, unless set. Of the text and its layout only; takes effect with the next build.
    void setFont(const QFont& font);
    [[nodiscard]] const QFont& getFont() const { return m_font; }
    /// The width of a character's cell: the font's average.
    [[nodiscard]] int getCharWidth() const { return m_cell.charWidth; }
    /// One less than the font's height.
    [[nodiscard]] int getLineHeight() const { return m_cell.lineHeight; }

    /// The first line whose base line is less than a line height below the point, -1 for none.
    [[nodiscard]] int getLineByPoint(const QPoint& point) const;
    /// Line (as x) and index in the line (as y) of the node under a point; -1 for what there is none of.
    [[nodiscard]] QPoint getNodeByCurPos(const QPoint& point) const;
    /// Line (as x) and index in the line (as y) of a node, (-1, -1) for unknown ones.
    [[nodiscard]] QPoint getNodeCoords(const NodeBase* node) const;
    /// The first edge of the list that was at the point when updateMap() ran last, -1 for none.
    [[nodiscard]] int getEdgeByPos(const QPoint& point) const;

    [[nodiscard]] const QList<NodesLine>& getLines() const { return m_lines; }
    [[nodiscard]] const EdgesList& getEdges() const { return m_edges; }
    /// The highlighted edge: that under the mouse, or the one that was chosen since the mouse moved. -1 for none.
    [[nodiscard]] int getSelectedEdge() const { return m_selectedEdge; }
    /// Highlights an edge until the mouse moves; none for an index of no edge.
    void selectEdge(int index);
    /// Scrolls to an edge: as a whole if there is room for it, otherwise to its start. Ignores hidden edges.
    void scrollToEdge(int index);
    /// Moves all lines down, as a drag of the first one does, until no edge that is shown reaches above the top of the
    /// picture; the graph grows with them. Edges that are filtered out and shown again later have their room as well.
    void makeRoomAbove();
    /// Called with the index whenever the mouse makes another edge the highlighted one (-1 for none); empty for no
    /// call.
    void setHoverListener(std::function<void(int edge)> listener) { m_hoverListener = std::move(listener); }

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

    /// Adds the two export actions to the menu; entries of the view go before them.
    void createMenu();
    /// Shown by a right click.
    [[nodiscard]] QMenu& menu() { return m_menu; }
    /// The widget owns the nodes; they are made with new.
    [[nodiscard]] QList<NodesLine>& lines() { return m_lines; }
    [[nodiscard]] EdgesList& edges() { return m_edges; }
    /// Marks the picture as built: forgets the held node and enables the export actions.
    void setBuilded();

    /// Moves a line and all below it. Refused as a whole when the line would not stay more than a line height below the
    /// one before it; the first line goes anywhere. Leaves the graph size alone.
    void shiftLines(int line, int dy);
    /// Moves a node, given by line (as x) and index in the line (as y), and those to its right; then the graph is as
    /// wide as the widest line. To the left no farther than the right end of the neighbour, or to 0; ignored where
    /// there is no such node.
    void sprainLine(const QPoint& node, int dx);
    /// Makes room for straight edges: moves adjacent lines that an edge joins 50 units farther apart, with all below
    /// them. The graph grows with them.
    void moveCloseLinesApart();
    /// Sorts the ports of all nodes, line by line, so many times over: those of all edges, or of those between lines.
    void reorder(bool full, int rounds);
    /// Shows and hides edges as filterEdge() says, then sorts all ports once.
    void updateEdgesVisibility();

    /// The bounding rectangle and the flattened path of each edge as updateMap() found them; empty for hidden ones.
    [[nodiscard]] const QList<QRectF>& edgeRects() const { return m_hitMap.getBounds(); }
    [[nodiscard]] const QList<QList<QPolygonF>>& edgePolygons() const { return m_hitMap.getPolygons(); }
    /// The node that is being dragged, as line and index; (-1, -1) for none.
    [[nodiscard]] QPoint heldNode() const { return m_pressedNode; }

private:
    void destroyItems();
    [[nodiscard]] QPoint scenePoint(const QMouseEvent& event) const;
    [[nodiscard]] bool isHolding() const { return m_pressedNode.x() != -1 && m_pressedNode.y() != -1; }
    void drag(const QPoint& point, Qt::KeyboardModifiers modifiers);
    void hover(QMouseEvent* event);
    [[nodiscard]] int probeEdge(const QPoint& point) const;
    void spreadLines(const std::function<bool(int line)>& areJoined);
    void fitHeight();
    void fitWidth();
    void drawNodes(QPainter& painter, const QRectF* area) const;
    void drawEdges(QPainter& painter, const QRectF* area) const;

    QList<NodesLine> m_lines;
    EdgesList m_edges;
    bool m_builded = false;
    QPoint m_pressPoint;
    QPoint m_pressedNode{-1, -1};
    QMenu m_menu;
    EdgeHitMap m_hitMap;
    // As the hit map has them.
    std::vector<ArrowCurve> m_mappedCurves;
    int m_selectedEdge = -1;
    QFont m_font;
    CellSize m_cell;
    std::function<void(int edge)> m_hoverListener;
};

} // namespace Kova::GUI::TextGraph
