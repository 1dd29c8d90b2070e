// SPDX-License-Identifier: MIT
#include "visualization/graphcore/EdgeBase.h"

#include "visualization/graphcore/ChangeStamp.h"
#include "visualization/graphcore/NodeBase.h"

#include <QPainter>

namespace Kova::GUI::GenericGraph {

namespace {

/// How far the control points of a loop lie to the sides of the node's centre and above it.
constexpr int loopWidth = 80;
constexpr int loopHeight = 40;

CurveControls loopControls(const QPoint& start, const QPoint& end) {
    return {start + QPoint(loopWidth, -loopHeight), end + QPoint(-loopWidth, -loopHeight)};
}

} // namespace

EdgeBase::EdgeBase(NodeBase* source, NodeBase* target)
    : m_source(source),
      m_target(target),
      m_shape(arrowCurvePath(m_curve)),
      m_stamp(ChangeStamp::next()) {
    m_source->attach(this, NodeBase::Out);
    m_target->attach(this, NodeBase::In);
}

EdgeBase::~EdgeBase() {
    m_source->detach(this, NodeBase::Out);
    m_target->detach(this, NodeBase::In);
}

ArrowCurve EdgeBase::computeCurve() const {
    ArrowCurve curve;
    const QPoint from = m_source->getCenter();
    const QPoint to = m_target->getCenter();
    if (m_shapeKind == Straight) {
        curve.start = m_source->cutEdge(from, to);
        curve.end = m_target->cutEdge(to, curve.start);
        curve.firstControl = curve.secondControl = midpoint(curve.start, curve.end);
    } else {
        const CurveControls controls =
            m_shapeKind == Loop ? loopControls(from, to) : bentControls(from, to, -(10.0 * m_bendIndex + 30.0));
        curve.firstControl = controls.first;
        curve.secondControl = controls.second;
        curve.start = m_source->cutEdge(from, controls.first);
        curve.end = m_target->cutEdge(to, controls.second);
    }
    curve.wings = arrowWings(curve.secondControl, curve.end);
    return curve;
}

void EdgeBase::updatePos() {
    const ArrowCurve curve = computeCurve();
    if (curve == m_curve)
        return;
    m_curve = curve;
    m_shape = arrowCurvePath(curve);
    touch();
}

void EdgeBase::setShapeKind(ShapeKind kind) {
    if (kind == m_shapeKind)
        return;
    m_shapeKind = kind;
    updatePos();
}

void EdgeBase::draw(QPainter& painter, bool selected) const {
    static const QPen selectedPen(QBrush(Qt::blue, Qt::SolidPattern), 3.0, Qt::SolidLine, Qt::RoundCap, Qt::MiterJoin);
    painter.setPen(selected ? selectedPen : m_pen);
    // Never filled, whatever brush the painter has.
    painter.strokePath(m_shape, painter.pen());
    if (m_text.isEmpty())
        return;
    painter.setPen(QColor(m_textColor));
    painter.drawText(getTextPosition(), m_text);
}

QPoint EdgeBase::getTextPosition() const {
    return midpoint(m_curve.firstControl, m_curve.secondControl);
}

void EdgeBase::setBendIndex(int index) {
    m_bendIndex = index;
}

void EdgeBase::setTextColor(QRgb color) {
    m_textColor = color;
    touch();
}

void EdgeBase::setPen(const QPen& pen) {
    m_pen = pen;
    touch();
}

void EdgeBase::setText(const QString& text) {
    m_text = text;
    touch();
}

void EdgeBase::touch() {
    m_stamp = ChangeStamp::next();
}

} // namespace Kova::GUI::GenericGraph
