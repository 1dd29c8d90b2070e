// SPDX-License-Identifier: MIT
#include "visualization/graphcore/GraphWidgetBase.h"

#include "visualization/graphcore/Rounding.h"

#include <QAction>
#include <QMouseEvent>
#include <QPainter>
#include <QResizeEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace Kova::GUI {

namespace {

constexpr double smallestScale = 0.1;
constexpr double wheelFactor = 1.1;
constexpr int wheelNotch = 120;
/// Shorter mouse movements are clicks.
constexpr int dragThreshold = 11;

/// A wheel that turns in both directions counts by the larger one, the vertical one when they are equal.
int wheelDelta(const QWheelEvent& event) {
    const QPoint delta = event.angleDelta();
    return std::abs(delta.x()) > std::abs(delta.y()) ? delta.x() : delta.y();
}

/// How far a point moves away from the origin when it is scaled; as doubles, since sums with it may leave an int.
QPointF growth(const QPoint& point, double factor) {
    return {std::round(point.x() * (factor - 1.0)), std::round(point.y() * (factor - 1.0))};
}

} // namespace

GraphWidgetBase::GraphWidgetBase(QWidget* parent)
    : QAbstractScrollArea(parent),
      m_saveImageAction(new QAction(tr("Save As Image..."), this)),
      m_saveSvgAction(new QAction(tr("Save As SVG..."), this)) {
    m_saveImageAction->setEnabled(false);
    m_saveSvgAction->setEnabled(false);
    connect(m_saveImageAction, &QAction::triggered, this, [this] { save(); });
    connect(m_saveSvgAction, &QAction::triggered, this, [this] { saveSvg(); });
}

GraphWidgetBase::~GraphWidgetBase() = default;

void GraphWidgetBase::clear() {
    setGraphSize(0, 0);
    setScale(1.0);
    m_saveImageAction->setEnabled(false);
    m_saveSvgAction->setEnabled(false);
}

void GraphWidgetBase::drawLegend(QPainter&) {}

void GraphWidgetBase::updateScrollBars() {
    const int width = viewport()->width();
    const int height = viewport()->height();
    verticalScrollBar()->setPageStep(height);
    horizontalScrollBar()->setPageStep(width);
    verticalScrollBar()->setRange(0, truncated(m_graphSize.height() * m_scale - height));
    horizontalScrollBar()->setRange(0, truncated(m_graphSize.width() * m_scale - width));
}

void GraphWidgetBase::updateMap() {}

void GraphWidgetBase::setScale(double scale) {
    // Written so that NaN is refused as well.
    if (!(scale >= smallestScale) || scale == m_scale)
        return;
    m_scale = scale;
    updateScrollBars();
    updateMap();
    viewport()->update();
    Q_EMIT scaleChanged(scale);
}

void GraphWidgetBase::setGraphSize(const QSize& size) {
    m_graphSize = size;
    updateScrollBars();
}

void GraphWidgetBase::setGraphSize(int width, int height) {
    setGraphSize(QSize(width, height));
}

void GraphWidgetBase::setMouseScroll(bool enabled) {
    m_mouseScroll = enabled;
}

void GraphWidgetBase::setMouseScrollButton(Qt::MouseButton button) {
    m_mouseScrollButton = button;
}

void GraphWidgetBase::fitGraphToViewport() {
    const double horizontal = static_cast<double>(viewport()->width()) / m_graphSize.width();
    const double vertical = static_cast<double>(viewport()->height()) / m_graphSize.height();
    if (horizontal >= 1.0 && vertical >= 1.0)
        return;
    setScale(std::min(horizontal, vertical));
}

QPoint GraphWidgetBase::screenToGraph(const QPoint& position) const {
    // Summed as doubles: a scroll bar may stand at the largest int.
    return {truncated((static_cast<double>(position.x()) + horizontalScrollBar()->value()) / m_scale),
            truncated((static_cast<double>(position.y()) + verticalScrollBar()->value()) / m_scale)};
}

void GraphWidgetBase::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    if (!isBuilded()) {
        paintPlaceholder(painter);
        return;
    }
    painter.setClipRect(event->rect());
    painter.translate(-horizontalScrollBar()->value(), -verticalScrollBar()->value());
    painter.scale(m_scale, m_scale);
    painter.setRenderHint(QPainter::Antialiasing);
    drawGraph(painter);
    drawLegend(painter);
}

void GraphWidgetBase::paintPlaceholder(QPainter& painter) const {
    painter.setPen(Qt::lightGray);
    painter.drawText(QRect(QPoint(0, 0), viewport()->size()), Qt::AlignCenter, tr("[Graph is not built]"));
}

void GraphWidgetBase::resizeEvent(QResizeEvent*) {
    updateScrollBars();
    updateMap();
}

void GraphWidgetBase::wheelEvent(QWheelEvent* event) {
    const int steps = wheelDelta(*event) / wheelNotch;
    const double factor = std::pow(wheelFactor, steps);
    const double oldScale = m_scale;
    const QPoint fixed = screenToGraph(event->position().toPoint());
    const QPointF corner = screenToGraph(QPoint(0, 0)) + growth(fixed, factor);
    setScale(factor * oldScale);
    // In the units of the old scale: multiplied by it, the corner is in pixels of the new one.
    horizontalScrollBar()->setValue(roundHalfAway(corner.x() * oldScale));
    verticalScrollBar()->setValue(roundHalfAway(corner.y() * oldScale));
    event->accept();
}

void GraphWidgetBase::mousePressEvent(QMouseEvent* event) {
    event->ignore();
    if (m_mouseScroll && event->button() == m_mouseScrollButton)
        m_lastMousePosition = event->pos();
}

void GraphWidgetBase::mouseMoveEvent(QMouseEvent* event) {
    event->ignore();
    if (!m_mouseScroll)
        return;
    if (!m_dragging) {
        if (!(event->buttons() & m_mouseScrollButton) ||
            (event->pos() - m_lastMousePosition).manhattanLength() < dragThreshold)
            return;
        m_dragging = true;
        m_lastMousePosition = event->pos();
    }
    panTo(event->pos());
    event->accept();
}

void GraphWidgetBase::panTo(const QPoint& position) {
    const QPoint delta = position - m_lastMousePosition;
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - delta.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() - delta.y());
    m_lastMousePosition = position;
}

void GraphWidgetBase::mouseReleaseEvent(QMouseEvent* event) {
    event->ignore();
    if (!m_mouseScroll || !m_dragging || event->button() != m_mouseScrollButton)
        return;
    m_dragging = false;
    event->accept();
}

} // namespace Kova::GUI
