// SPDX-License-Identifier: MIT
#include "visualization/textgraph/EdgeBase.h"

#include "visualization/textgraph/EdgeT1.h"
#include "visualization/textgraph/EdgeT2.h"
#include "visualization/textgraph/EdgeT3.h"
#include "visualization/textgraph/GraphNodeBase.h"

#include <QPainter>

namespace Kova::GUI::TextGraph {

namespace {

constexpr double selectedWidth = 2.0;

std::unique_ptr<EdgeBase::EdgeShapeBase> chooseShape(const GraphNodeBase* from, const GraphNodeBase* to) {
    if (from == to)
        return std::make_unique<EdgeT3>();
    if (from->getPos().y() == to->getPos().y())
        return std::make_unique<EdgeT2>();
    return std::make_unique<EdgeT1>();
}

} // namespace

EdgeBase::EdgeShapeBase::~EdgeShapeBase() = default;

void EdgeBase::EdgeShapeBase::hideInternal(EdgeBase* edge) {
    edge->releasePort(EdgeSide::From);
    edge->releasePort(EdgeSide::To);
}

EdgeBase::EdgeBase(GraphNodeBase* from, GraphNodeBase* to)
    : m_from(from),
      m_to(to),
      m_shape(chooseShape(from, to)),
      m_shapeType(m_shape->getType()) {
    setVisible(true);
}

// The nodes may be gone already: their ports are not given back here.
EdgeBase::~EdgeBase() = default;

void EdgeBase::setVisible(bool visible) {
    if (visible == m_visible)
        return;
    m_visible = visible;
    if (visible)
        m_shape->showInternal(this);
    else
        m_shape->hideInternal(this);
}

void EdgeBase::setPort(EdgeSide side, int number) {
    port(side) = number;
}

int EdgeBase::getPort(EdgeSide side) const {
    getNode(side)->settlePorts();
    return side == EdgeSide::From ? m_fromPort : m_toPort;
}

void EdgeBase::releasePort(EdgeSide side) {
    int& number = port(side);
    getNode(side)->releasePort(number);
    number = 0;
}

void EdgeBase::setColor(const QColor& color) {
    m_pen = QPen(color);
    m_selectedPen = QPen(QBrush(color), selectedWidth, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
}

void EdgeBase::draw(QPainter& painter, bool selected) const {
    if (!m_visible)
        return;
    painter.setPen(selected ? m_selectedPen : m_pen);
    // Never filled, whatever brush the painter has.
    painter.strokePath(getShape(), painter.pen());
}

QPainterPath EdgeBase::getShape() const {
    QPainterPath path;
    if (!m_visible)
        return path;
    const ArrowCurve curve = trace(path);
    path.moveTo(curve.wings.first);
    path.lineTo(curve.end);
    path.lineTo(curve.wings.second);
    return path;
}

ArrowCurve EdgeBase::getCurve() const {
    QPainterPath unused;
    return m_visible ? trace(unused) : ArrowCurve();
}

ArrowCurve EdgeBase::trace(QPainterPath& path) const {
    QPoint points[] = {
        m_from->getPortCoords(getPort(EdgeSide::From)), {}, {}, m_to->getPortCoords(getPort(EdgeSide::To))};
    m_shape->processInternal(this, path, points);
    return {points[0], points[1], points[2], points[3], arrowWings(points[2], points[3])};
}

} // namespace Kova::GUI::TextGraph
