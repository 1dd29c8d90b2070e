// SPDX-License-Identifier: MIT
#include "shell/window/ViewPane.h"

#include "shell/window/WelcomePage.h"
#include "visualization/graphcore/GraphWidgetBase.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Kova::Shell {

namespace {

/// A notch of the wheel zooms as much.
constexpr double zoomStep = 1.1;
constexpr double smallestScale = 0.1;

int rounded(double value) {
    constexpr double limit = 1e9;
    return static_cast<int>(std::lround(std::clamp(value, -limit, limit)));
}

} // namespace

ViewPane::ViewPane(QWidget* parent) : QStackedWidget(parent), m_welcomePage(new WelcomePage(this)) {
    addWidget(m_welcomePage);
}

// Views may change their scale when they end; nobody is told any more.
ViewPane::~ViewPane() {
    m_view = nullptr;
}

// The widget gets its place first, since views fit their pictures to it.
void ViewPane::show(const ViewKind& kind, const Subject& subject) {
    m_view = &obtainView(kind);
    GUI::GraphWidgetBase& widget = m_view->getWidget();
    setCurrentWidget(&widget);
    widget.setGeometry(contentsRect());
    m_pressed = Picked();
    m_view->show(subject);
    Q_EMIT scaleChanged(widget.getScale());
}

void ViewPane::clearViews() {
    for (const auto& [name, view] : m_views)
        view->clear();
    m_pressed = Picked();
    m_view = nullptr;
    setCurrentWidget(m_welcomePage);
}

View& ViewPane::obtainView(const ViewKind& kind) {
    std::unique_ptr<View>& view = m_views[kind.name];
    if (!view) {
        view = kind.create();
        GUI::GraphWidgetBase& widget = view->getWidget();
        if (!widget.actions().isEmpty())
            widget.setContextMenuPolicy(Qt::ActionsContextMenu);
        widget.setFrameShape(QFrame::NoFrame);
        addWidget(&widget);
        connectView(*view);
    }
    return *view;
}

void ViewPane::connectView(View& view) {
    GUI::GraphWidgetBase& widget = view.getWidget();
    connect(&widget, &GUI::GraphWidgetBase::scaleChanged, this, [this, shown = &view](double scale) {
        if (m_view == shown)
            Q_EMIT scaleChanged(scale);
    });
    view.setPickListener([this, shown = &view](const Picked& what) {
        if (m_view == shown)
            Q_EMIT picked(what);
    });
    view.setPatienceListener(
        [this](const QString& warning) { return !m_patienceListener || m_patienceListener(warning); });
    widget.viewport()->installEventFilter(this);
}

bool ViewPane::eventFilter(QObject* watched, QEvent* event) {
    if (m_view != nullptr && watched == m_view->getWidget().viewport()) {
        if (event->type() == QEvent::MouseButtonPress)
            press(*static_cast<const QMouseEvent*>(event));
        else if (event->type() == QEvent::MouseButtonRelease)
            release(*static_cast<const QMouseEvent*>(event));
    }
    return QStackedWidget::eventFilter(watched, event);
}

void ViewPane::press(const QMouseEvent& event) {
    m_pressPosition = event.pos();
    m_pressed = event.button() == Qt::LeftButton ? m_view->findAt(event.pos()) : Picked();
}

// Farther away it was a drag.
void ViewPane::release(const QMouseEvent& event) {
    const Picked clicked = std::exchange(m_pressed, Picked());
    const bool isNear = (event.pos() - m_pressPosition).manhattanLength() < QApplication::startDragDistance();
    if (clicked.node != nullptr && isNear)
        Q_EMIT picked(clicked);
}

GUI::GraphWidgetBase* ViewPane::getWidget() const {
    return m_view != nullptr ? &m_view->getWidget() : nullptr;
}

ViewPane::Position ViewPane::getPosition() const {
    const GUI::GraphWidgetBase* widget = getWidget();
    if (widget == nullptr)
        return {};
    return {widget->getScale(), widget->horizontalScrollBar()->value(), widget->verticalScrollBar()->value()};
}

void ViewPane::setPosition(const Position& position) {
    GUI::GraphWidgetBase* widget = getWidget();
    if (widget == nullptr)
        return;
    widget->setScale(position.scale);
    widget->horizontalScrollBar()->setValue(position.x);
    widget->verticalScrollBar()->setValue(position.y);
}

void ViewPane::zoomIn() {
    zoomTo(getPosition().scale * zoomStep);
}

void ViewPane::zoomOut() {
    zoomTo(getPosition().scale / zoomStep);
}

void ViewPane::resetZoom() {
    zoomTo(1.0);
}

void ViewPane::zoomTo(double scale) {
    GUI::GraphWidgetBase* widget = getWidget();
    if (widget == nullptr || scale < smallestScale)
        return;
    const Position before = getPosition();
    const double ratio = scale / before.scale;
    const double middleX = widget->viewport()->width() / 2.0;
    const double middleY = widget->viewport()->height() / 2.0;
    setPosition(
        {scale, rounded((before.x + middleX) * ratio - middleX), rounded((before.y + middleY) * ratio - middleY)});
}

void ViewPane::fitToViewport() {
    GUI::GraphWidgetBase* widget = getWidget();
    if (widget == nullptr)
        return;
    widget->setScale(1.0);
    widget->fitGraphToViewport();
    const QSize size = widget->getGraphSize();
    const bool fits = size.width() <= widget->viewport()->width() && size.height() <= widget->viewport()->height();
    // A picture that would need a smaller scale than there is was left at 1.
    if (!fits && widget->getScale() >= 1.0)
        widget->setScale(smallestScale);
}

} // namespace Kova::Shell
