// SPDX-License-Identifier: MIT
#pragma once

#include "environment/core/TypeConvertibleMix.h"
#include "visualization/VisualizationExport.h"
#include "visualization/graphcore/CurveGeometry.h"
#include "visualization/textgraph/EdgeSide.h"

#include <QColor>
#include <QPainterPath>
#include <QPen>
#include <QPoint>
#include <QString>

#include <memory>

class QPainter;

namespace Kova::GUI::TextGraph {

class GraphNodeBase;

/// An arrow between two pieces of text, or from one to itself. While it is visible it takes up a port at each end; a
/// hidden edge takes up no room on its nodes and comes back as their last port.
class VISUALIZATION_EXPORT EdgeBase : public TypeConvertibleMix {
public:
    enum ShapeType : int {
        Straight = 1, ///< between lines
        Arc = 2,      ///< within a line
        Loop = 3      ///< from a node to itself
    };

    /// How an edge runs and where it attaches. Chosen once, from the places of the nodes when the edge is made.
    class EdgeShapeBase {
    public:
        /// One of ShapeType.
        [[nodiscard]] virtual int getType() const = 0;
        /// Adds the curve without arrowhead to the path and sets the inner control points.
        /// @param points four points; the first and the last are the places of the ports, which it may move.
        virtual void processInternal(const EdgeBase* edge, QPainterPath& path, QPoint* points) const = 0;
        /// Takes the ports.
        virtual void showInternal(EdgeBase* edge) = 0;
        /// Gives both ports back.
        virtual void hideInternal(EdgeBase* edge);
        virtual ~EdgeShapeBase();

    protected:
        EdgeShapeBase() = default;
        EdgeShapeBase(const EdgeShapeBase&) = default;
        EdgeShapeBase& operator=(const EdgeShapeBase&) = default;
    };

    /// Makes a visible edge. The nodes, which are not owned, must not be null, must have their places, and have to live
    /// as long as the edge is used (but not until it is deleted).
    EdgeBase(GraphNodeBase* from, GraphNodeBase* to);
    ~EdgeBase() override;
    EdgeBase(const EdgeBase&) = delete;
    EdgeBase& operator=(const EdgeBase&) = delete;
    EdgeBase(EdgeBase&&) = delete;
    EdgeBase& operator=(EdgeBase&&) = delete;

    /// Takes the ports, or gives them back; does nothing when the edge is as asked for.
    void setVisible(bool visible);
    [[nodiscard]] bool isVisible() const { return m_visible; }
    /// The number of the port at an end (negative along the top of the node), 0 for none.
    void setPort(EdgeSide side, int number);
    [[nodiscard]] int getPort(EdgeSide side) const;
    /// Drawn one unit wide in this colour, two units while selected.
    void setColor(const QColor& color);
    void draw(QPainter& painter, bool selected) const;
    /// The edge with its arrowhead; empty while it is hidden.
    [[nodiscard]] QPainterPath getShape() const;
    /// The points of getShape(), which are all 0 while it is hidden. A straight edge has both inner points at its
    /// start.
    [[nodiscard]] ArrowCurve getCurve() const;

    [[nodiscard]] GraphNodeBase* getFrom() const { return m_from; }
    [[nodiscard]] GraphNodeBase* getTo() const { return m_to; }
    [[nodiscard]] GraphNodeBase* getNode(EdgeSide side) const { return side == EdgeSide::From ? m_from : m_to; }
    /// One of ShapeType.
    [[nodiscard]] int getShapeType() const { return m_shapeType; }
    [[nodiscard]] const QPen& getPen() const { return m_pen; }
    [[nodiscard]] const QPen& getSelectedPen() const { return m_selectedPen; }
    /// What is shown about the edge; empty unless set.
    [[nodiscard]] const QString& getHint() const { return m_hint; }
    void setHint(const QString& hint) { m_hint = hint; }

private:
    void releasePort(EdgeSide side);
    [[nodiscard]] int& port(EdgeSide side) { return side == EdgeSide::From ? m_fromPort : m_toPort; }
    [[nodiscard]] ArrowCurve trace(QPainterPath& path) const;

    GraphNodeBase* m_from;
    GraphNodeBase* m_to;
    int m_fromPort = 0;
    int m_toPort = 0;
    bool m_visible = false;
    QPen m_pen;
    QPen m_selectedPen;
    std::unique_ptr<EdgeShapeBase> m_shape;
    int m_shapeType;
    QString m_hint;
};

} // namespace Kova::GUI::TextGraph
