// SPDX-License-Identifier: MIT
#include "visualization/graphcore/NodeBase.h"

#include "visualization/graphcore/BoxGeometry.h"
#include "visualization/graphcore/ChangeStamp.h"
#include "visualization/graphcore/EdgeBase.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace Kova::GUI::GenericGraph {

namespace {

constexpr int labelMargin = 10;
constexpr double cornerRadius = 7.0;

void updateAll(const std::vector<EdgeBase*>& edges) {
    for (EdgeBase* edge : edges) {
        if (edge)
            edge->updatePos();
    }
}

} // namespace

NodeBase::NodeBase(QString text) : m_text(std::move(text)), m_stamp(ChangeStamp::next()) {}

NodeBase::~NodeBase() = default;

void NodeBase::destroy(NodeBase* node) {
    if (!node)
        return;
    node->NodeBase::~NodeBase();
    NodeBase::operator delete(node);
}

QPoint NodeBase::cutEdge(const QPoint& a, const QPoint& b) const {
    return cutAtBox(getRect(), a, b);
}

void NodeBase::updateSize(QFontMetrics& metrics) {
    const QSize label = metrics.size(0, m_text);
    resizeCentered(label.width() + labelMargin, label.height() + labelMargin);
}

void NodeBase::draw(QPainter& painter, bool selected) const {
    if (!m_visible)
        return;
    if (selected)
        painter.setPen(QPen(QBrush(Qt::blue, Qt::SolidPattern), 3.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    else
        painter.setPen(Qt::black);
    painter.drawRoundedRect(getRect(), cornerRadius, cornerRadius);
    painter.setPen(QColor(m_textColor));
    painter.drawText(getRect(), Qt::AlignCenter, m_text);
}

NodeKind NodeBase::getKind() const {
    if (m_incoming.empty())
        return Source;
    return m_outgoing.empty() ? Sink : Inner;
}

void NodeBase::attach(EdgeBase* edge, Direction direction) {
    (direction == In ? m_incoming : m_outgoing).push_back(edge);
}

void NodeBase::detach(EdgeBase* edge, Direction direction) {
    std::vector<EdgeBase*>& edges = direction == In ? m_incoming : m_outgoing;
    const auto found = std::find(edges.begin(), edges.end(), edge);
    if (found != edges.end())
        *found = nullptr;
}

void NodeBase::notifyEdges() {
    // Copies: updating an edge may attach or detach edges.
    updateAll(std::vector<EdgeBase*>(m_incoming));
    updateAll(std::vector<EdgeBase*>(m_outgoing));
}

void NodeBase::moveTo(int centerX, int centerY) {
    m_x = centerX - m_width / 2;
    m_y = centerY - m_height / 2;
    touch();
    notifyEdges();
}

void NodeBase::move(int dx, int dy) {
    m_x += dx;
    m_y += dy;
    touch();
    notifyEdges();
}

void NodeBase::setSize(int width, int height) {
    m_width = width;
    m_height = height;
    touch();
}

void NodeBase::setVisible(bool visible) {
    m_visible = visible;
    touch();
}

void NodeBase::setTextColor(QRgb color) {
    m_textColor = color;
    touch();
}

void NodeBase::resizeCentered(int width, int height) {
    m_x += (m_width - width) / 2;
    setSize(width, height);
    notifyEdges();
}

void NodeBase::touch() {
    m_stamp = ChangeStamp::next();
}

} // namespace Kova::GUI::GenericGraph
