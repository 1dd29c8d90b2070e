// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"

#include <QPoint>
#include <QRect>
#include <QString>

class QPainter;

namespace Kova::GUI::TextGraph {

/// A piece of text of a text graph. All coordinates are graph units.
class VISUALIZATION_EXPORT NodeBase {
public:
    /// Its rectangle is null until setRect().
    NodeBase(const QPoint& pos, const QString& text);
    /// Draws the text at its position with the painter's pen and font. What an override draws stays within the
    /// rectangle and the cells of the text, up to a line's height beyond: farther nodes may be left out of a repaint.
    virtual void draw(QPainter& painter) const;
    virtual ~NodeBase();
    NodeBase(const NodeBase&) = delete;
    NodeBase& operator=(const NodeBase&) = delete;
    NodeBase(NodeBase&&) = delete;
    NodeBase& operator=(NodeBase&&) = delete;

    /// Where the text's base line starts; its y is that of the node's line.
    [[nodiscard]] const QPoint& getPos() const { return m_pos; }
    void setPos(const QPoint& pos) { m_pos = pos; }
    /// The rectangle of the text relative to its position: its top is negative.
    [[nodiscard]] const QRect& getRect() const { return m_rect; }
    void setRect(const QRect& rect) { m_rect = rect; }
    [[nodiscard]] const QString& getText() const { return m_text; }
    /// The x of the rectangle's last column in the picture, at most the largest int.
    [[nodiscard]] int getRightEnd() const;

private:
    QRect m_rect;
    QPoint m_pos;
    QString m_text;
};

} // namespace Kova::GUI::TextGraph
