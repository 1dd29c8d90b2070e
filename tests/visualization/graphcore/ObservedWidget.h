// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWidget>

/// A graph view that counts its repaints and receives mouse events as from a mouse.
template <class View>
class ObservedWidget : public View {
public:
    /// Sends the viewport a mouse event. @return whether it was accepted.
    bool mouse(QEvent::Type type, const QPoint& position, Qt::MouseButton button = Qt::NoButton,
               Qt::MouseButtons buttons = Qt::NoButton) {
        QWidget* viewport = this->viewport();
        QMouseEvent event(type, position, viewport->mapToGlobal(position), button, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(viewport, &event);
        return event.isAccepted();
    }

    /// How often the view paints itself because of what the action does.
    template <class Action>
    int repaintsAfter(Action action) {
        QCoreApplication::processEvents();
        const int before = repaints;
        action();
        QCoreApplication::processEvents();
        return repaints - before;
    }

    int repaints = 0;

protected:
    void paintEvent(QPaintEvent* event) override {
        ++repaints;
        View::paintEvent(event);
    }
};
