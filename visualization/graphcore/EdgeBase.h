// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"
#include "visualization/graphcore/CurveGeometry.h"

#include <QPainterPath>
#include <QPen>
#include <QPoint>
#include <QRgb>
#include <QString>

class QPainter;

namespace Kova::GUI::GenericGraph {

class NodeBase;

/// A directed edge of a generic graph: a cubic curve with an open arrowhead between two nodes, which it does not own.
/// All coordinates are graph units. Edges are destroyed as EdgeBase, see destroy().
class VISUALIZATION_EXPORT EdgeBase {
public:
    enum ShapeKind : int {
        Straight = 0,
        Arc = 1,
        Loop = 2 ///< of an edge from a node to itself; rises above the node
    };

    /// Attaches the edge to the source's outgoing and the target's incoming list. The geometry is computed by the first
    /// updatePos(). The nodes must not be null and must live as long as the edge.
    EdgeBase(NodeBase* source, NodeBase* target);
    /// Detaches the edge from both nodes, which leaves null entries in their lists.
    ~EdgeBase();
    EdgeBase(const EdgeBase&) = delete;
    EdgeBase& operator=(const EdgeBase&) = delete;
    EdgeBase(EdgeBase&&) = delete;
    EdgeBase& operator=(EdgeBase&&) = delete;

    /// Without a size: a subclass object deleted as EdgeBase may be larger than sizeof(EdgeBase).
    static void operator delete(void* memory) { ::operator delete(memory); }
    static void* operator new(std::size_t size) { return ::operator new(size); }

    /// Recomputes curve and arrowhead from the positions of the nodes, the shape kind and the bend index.
    void updatePos();
    /// The curve, then the arrowhead's two strokes.
    [[nodiscard]] QPainterPath getShape() const { return m_shape; }
    /// Stores the kind and recomputes the geometry; does nothing when the kind is the same.
    void setShapeKind(ShapeKind kind);
    void draw(QPainter& painter, bool selected) const;

    [[nodiscard]] NodeBase* getSource() const { return m_source; }
    [[nodiscard]] NodeBase* getTarget() const { return m_target; }
    [[nodiscard]] QPoint getStart() const { return m_curve.start; }
    [[nodiscard]] QPoint getFirstControl() const { return m_curve.firstControl; }
    [[nodiscard]] QPoint getSecondControl() const { return m_curve.secondControl; }
    [[nodiscard]] QPoint getEnd() const { return m_curve.end; }
    [[nodiscard]] QPoint getFirstWing() const { return m_curve.wings.first; }
    [[nodiscard]] QPoint getSecondWing() const { return m_curve.wings.second; }
    /// All six points at once.
    [[nodiscard]] const ArrowCurve& getCurve() const { return m_curve; }
    [[nodiscard]] ShapeKind getShapeKind() const { return m_shapeKind; }
    [[nodiscard]] int getBendIndex() const { return m_bendIndex; }
    [[nodiscard]] QRgb getTextColor() const { return m_textColor; }
    [[nodiscard]] const QPen& getPen() const { return m_pen; }
    [[nodiscard]] const QString& getText() const { return m_text; }
    [[nodiscard]] const QString& getToolTip() const { return m_toolTip; }
    /// Where the label's base line starts: the middle of the two control points.
    [[nodiscard]] QPoint getTextPosition() const;

    /// Takes effect with the next updatePos().
    void setBendIndex(int index);
    void setTextColor(QRgb color);
    void setPen(const QPen& pen);
    void setText(const QString& text);
    void setToolTip(const QString& toolTip) { m_toolTip = toolTip; }

    /// When the edge's geometry or look changed last, see ChangeStamp.
    [[nodiscard]] quint64 getStamp() const { return m_stamp; }

private:
    [[nodiscard]] ArrowCurve computeCurve() const;
    void touch();

    NodeBase* m_source;
    NodeBase* m_target;
    ArrowCurve m_curve;
    ShapeKind m_shapeKind = Straight;
    int m_bendIndex = 0;
    QRgb m_textColor = 0xff000000;
    QPen m_pen = QPen(QColor(Qt::black));
    QString m_text;
    QString m_toolTip;
    QPainterPath m_shape;
    quint64 m_stamp;
};

using ShapeKind = EdgeBase::ShapeKind;

} // namespace Kova::GUI::GenericGraph
