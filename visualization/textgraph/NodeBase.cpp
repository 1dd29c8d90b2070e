// SPDX-License-Identifier: MIT
#include "visualization/textgraph/NodeBase.h"

#include "visualization/textgraph/Saturated.h"

#include <QPainter>

namespace Kova::GUI::TextGraph {

NodeBase::NodeBase(const QPoint& pos, const QString& text) : m_pos(pos), m_text(text) {}

NodeBase::~NodeBase() = default;

void NodeBase::draw(QPainter& painter) const {
    painter.drawText(m_pos, m_text);
}

int NodeBase::getRightEnd() const {
    return saturated(qint64{m_pos.x()} + m_rect.right());
}

} // namespace Kova::GUI::TextGraph
