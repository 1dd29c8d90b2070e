// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"

#include <QPoint>
#include <QRect>
#include <QRgb>
#include <QString>

#include <vector>

class QFontMetrics;
class QPainter;

namespace Kova::GUI::GenericGraph {

class EdgeBase;

/// A labelled box of a generic graph. All coordinates are graph units.
///
/// The destructor is not virtual: nodes are destroyed as NodeBase, see destroy(). A subclass must not add members that
/// need destruction, or must free them elsewhere.
class VISUALIZATION_EXPORT NodeBase {
public:
    /// Which of a node's lists an edge is in.
    enum Direction : int { In = 0, Out = 1 };

    /// What the numbers of list entries say of a node.
    enum NodeKind : int {
        Inner = 0, ///< has incoming and outgoing entries
        Sink = 1,  ///< has incoming entries only
        Source = 2 ///< has no incoming entries; an isolated node is a source
    };

    explicit NodeBase(QString text);
    ~NodeBase();
    NodeBase(const NodeBase&) = delete;
    NodeBase& operator=(const NodeBase&) = delete;
    NodeBase(NodeBase&&) = delete;
    NodeBase& operator=(NodeBase&&) = delete;

    /// Without a size: a subclass object deleted as NodeBase is larger than sizeof(NodeBase).
    static void operator delete(void* memory) { ::operator delete(memory); }
    static void* operator new(std::size_t size) { return ::operator new(size); }
    /// Destroys a node made with new, whatever its subclass, as a plain NodeBase. Null is allowed.
    static void destroy(NodeBase* node);

    /// Where the segment from a to b leaves the node's box; a when the box holds both or neither.
    [[nodiscard]] virtual QPoint cutEdge(const QPoint& a, const QPoint& b) const;
    /// Sizes the box to the label plus 10 units each way, keeps x centred and y as it is, and updates the edges.
    virtual void updateSize(QFontMetrics& metrics);
    /// Paints the node with the painter's font and brush, which it leaves as they were, like transform and clip;
    /// nothing when invisible. Must depend on the node alone: after a change of anything that it reads, a subclass
    /// calls touch().
    virtual void draw(QPainter& painter, bool selected) const;

    /// Counts list entries, those of deleted edges included.
    [[nodiscard]] NodeKind getKind() const;
    void attach(EdgeBase* edge, Direction direction);
    /// Overwrites the edge's entry with null, so that a walk over the list stays valid. Ignores absent edges.
    void detach(EdgeBase* edge, Direction direction);
    /// Recomputes the geometry of all incoming, then all outgoing edges; a loop is in both lists. What is attached or
    /// detached meanwhile makes no difference; no edge may be destroyed meanwhile.
    void notifyEdges();
    /// Places the centre.
    void moveTo(int centerX, int centerY);
    void move(int dx, int dy);
    /// Halves of odd sizes are truncated towards zero, so moveTo() of the result changes nothing.
    [[nodiscard]] QPoint getCenter() const { return {m_x + m_width / 2, m_y + m_height / 2}; }

    [[nodiscard]] const QString& getText() const { return m_text; }
    /// May hold null entries, see detach().
    [[nodiscard]] const std::vector<EdgeBase*>& getIncomingEdges() const { return m_incoming; }
    [[nodiscard]] const std::vector<EdgeBase*>& getOutgoingEdges() const { return m_outgoing; }
    [[nodiscard]] int getX() const { return m_x; }
    [[nodiscard]] int getY() const { return m_y; }
    [[nodiscard]] int getWidth() const { return m_width; }
    [[nodiscard]] int getHeight() const { return m_height; }
    /// The box; a node that was never sized has a width and height of -1.
    [[nodiscard]] QRect getRect() const { return {m_x, m_y, m_width, m_height}; }
    [[nodiscard]] bool isVisible() const { return m_visible; }
    [[nodiscard]] QRgb getTextColor() const { return m_textColor; }

    /// Stores the size; neither re-centres the box nor updates the edges.
    void setSize(int width, int height);
    void setVisible(bool visible);
    void setTextColor(QRgb color);

    /// When the node changed last, see ChangeStamp.
    [[nodiscard]] quint64 getStamp() const { return m_stamp; }

protected:
    /// Sizes the box, keeps x centred as updateSize() does, and updates the edges.
    void resizeCentered(int width, int height);
    /// Says that something which draw() reads has changed.
    void touch();

private:
    QString m_text;
    std::vector<EdgeBase*> m_incoming;
    std::vector<EdgeBase*> m_outgoing;
    int m_x = 0;
    int m_y = 0;
    int m_width = -1;
    int m_height = -1;
    bool m_visible = true;
    QRgb m_textColor = 0xff000000;
    quint64 m_stamp;
};

using NodeKind = NodeBase::NodeKind;
using Direction = NodeBase::Direction;

} // namespace Kova::GUI::GenericGraph
