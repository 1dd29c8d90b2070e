// SPDX-License-Identifier: MIT
#pragma once

#include "shell/views/ViewKind.h"

#include <QStackedWidget>

#include <functional>
#include <map>

namespace Kova::Shell {

/// The middle of the window: the view that is shown, or the welcome page.
class ViewPane : public QStackedWidget {
    Q_OBJECT

public:
    /// What a person sees of a picture: scale, and scroll bar values in viewport pixels.
    struct Position {
        double scale = 1.0;
        int x = 0;
        int y = 0;
    };

    explicit ViewPane(QWidget* parent = nullptr);
    ~ViewPane() override;

    /// Shows a subject that the kind takes in its view, which is made at its first use.
    void show(const ViewKind& kind, const Subject& subject);
    /// Leaves nothing in any view that points into the program, and shows the welcome page.
    void clearViews();

    /// Asked by views before something that may take long; see View::setPatienceListener().
    void setPatienceListener(std::function<bool(const QString& warning)> listener) {
        m_patienceListener = std::move(listener);
    }

    /// Null while the welcome page is shown.
    [[nodiscard]] View* getView() const { return m_view; }
    /// Null as of getView().
    [[nodiscard]] GUI::GraphWidgetBase* getWidget() const;

    [[nodiscard]] Position getPosition() const;
    /// The scroll values are clipped by the picture's size.
    void setPosition(const Position& position);

    /// The four do nothing without a view. Zooming keeps the middle of the viewport where it is.
    void zoomIn();
    void zoomOut();
    void resetZoom();
    /// All of the picture in the viewport, not enlarged; as small as scales can be where that does not suffice.
    void fitToViewport();

Q_SIGNALS:
    /// Of the view that is shown.
    void scaleChanged(double scale);
    /// The user clicked on what stands for a node in the view that is shown, or picked it in the view's panel.
    void picked(const Kova::Shell::Picked& what);

protected:
    /// Sees clicks in pictures before they do.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void connectView(View& view);
    void press(const QMouseEvent& event);
    void release(const QMouseEvent& event);
    View& obtainView(const ViewKind& kind);
    void zoomTo(double scale);

    std::function<bool(const QString&)> m_patienceListener;
    std::map<QString, std::unique_ptr<View>> m_views;
    View* m_view = nullptr;
    /// Where the left button went down, and what was there: a click when it goes up nearby.
    QPoint m_pressPosition;
    Picked m_pressed;
    QWidget* m_welcomePage;
};

} // namespace Kova::Shell
