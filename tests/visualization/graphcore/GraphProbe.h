// SPDX-License-Identifier: MIT
// A graph view that shows a red square and records how it is called.
#pragma once

#include "visualization/graphcore/GraphWidgetBase.h"

#include <QAction>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStringList>
#include <QWheelEvent>

namespace Kova::GUI {

class GraphProbe : public GraphWidgetBase {
public:
    /// The viewport has the given size and keeps it.
    explicit GraphProbe(const QSize& viewportSize = QSize(200, 100)) {
        setFrameShape(QFrame::NoFrame);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        resize(viewportSize);
        show();
        log.clear();
    }

    void drawGraph(QPainter& painter) override {
        log.append(QStringLiteral("graph"));
        transform = painter.worldTransform();
        hints = painter.renderHints();
        clipped = painter.hasClipping();
        exports += clipped ? 0 : 1;
        painter.fillRect(QRect(10, 10, 5, 5), Qt::red);
    }
    void drawLegend(QPainter& painter) override {
        log.append(QStringLiteral("legend"));
        legendTransform = painter.worldTransform();
        painter.fillRect(QRect(30, 30, 5, 5), Qt::green);
    }
    [[nodiscard]] bool isBuilded() const override { return built; }
    void updateScrollBars() override {
        log.append(QStringLiteral("bars"));
        GraphWidgetBase::updateScrollBars();
    }
    void updateMap() override {
        log.append(QStringLiteral("map"));
        GraphWidgetBase::updateMap();
    }

    void scrollTo(int x, int y) {
        horizontalScrollBar()->setValue(x);
        verticalScrollBar()->setValue(y);
    }
    [[nodiscard]] QPoint scrolled() const { return {horizontalScrollBar()->value(), verticalScrollBar()->value()}; }
    [[nodiscard]] QAction* imageAction() const { return m_saveImageAction; }
    [[nodiscard]] QAction* svgAction() const { return m_saveSvgAction; }

    /// Each hands an event to the view as its viewport does; true when it was accepted.
    bool wheel(const QPoint& position, const QPoint& angleDelta) {
        QWheelEvent event(QPointF(position), viewport()->mapToGlobal(position), QPoint(), angleDelta, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        event.ignore();
        viewportEvent(&event);
        return event.isAccepted();
    }
    bool wheel(const QPoint& position, int delta) { return wheel(position, QPoint(0, delta)); }
    bool press(const QPoint& position, Qt::MouseButton button = Qt::LeftButton) {
        return mouse(QEvent::MouseButtonPress, position, button, button);
    }
    bool release(const QPoint& position, Qt::MouseButton button = Qt::LeftButton) {
        return mouse(QEvent::MouseButtonRelease, position, button, Qt::NoButton);
    }
    bool moveMouse(const QPoint& position, Qt::MouseButtons buttons = Qt::LeftButton) {
        return mouse(QEvent::MouseMove, position, Qt::NoButton, buttons);
    }

    QStringList log;
    QTransform transform;
    QTransform legendTransform;
    QPainter::RenderHints hints;
    bool clipped = false;
    int exports = 0;
    bool built = true;

private:
    bool mouse(QEvent::Type type, const QPoint& position, Qt::MouseButton button, Qt::MouseButtons buttons) {
        QMouseEvent event(type, position, viewport()->mapToGlobal(position), button, buttons, Qt::NoModifier);
        viewportEvent(&event);
        return event.isAccepted();
    }
};

} // namespace Kova::GUI
