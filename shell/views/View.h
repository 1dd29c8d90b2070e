// SPDX-License-Identifier: MIT
#pragma once

#include "shell/program/Subject.h"

#include <QJsonObject>
#include <QList>

#include <functional>

class QAction;
class QPoint;
class QWidget;

namespace Kova::GUI {
class GraphWidgetBase;
}

namespace Kova::Tessel {
class TesselBase;
}

namespace Kova::Shell {

/// What of the program a place of a picture stands for.
struct Picked {
    /// Null for nothing.
    Tessel::TesselBase* node = nullptr;
    /// The other end of what has two, such as an arrow.
    Tessel::TesselBase* other = nullptr;
};

/// One view of the program: a widget, what it is told to show, and how it describes what it shows. A new view derives
/// from this and has a line in the table of ViewTable.cpp; menu, command line and export need no more. The actions of
/// its widget are its context menu, unless it has a menu of its own.
class View {
public:
    View() = default;
    virtual ~View() = default;
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    /// Owned by the view, and destroyed with it.
    [[nodiscard]] virtual GUI::GraphWidgetBase& getWidget() const = 0;

    /// What stands beside the picture in the window, such as a table, with its window title; null for nothing. Owned by
    /// the view, and destroyed with it.
    [[nodiscard]] virtual QWidget* getPanel() const { return nullptr; }
    /// For the tool bar; the widget's own actions unless overridden.
    [[nodiscard]] virtual QList<QAction*> getActions() const;

    /// Replaces what is shown. Called with subjects of the kinds that the view takes only; they live until clear(), the
    /// next show() or the view's end.
    virtual void show(const Subject& subject) = 0;
    /// Leaves nothing that points into the program.
    virtual void clear() = 0;

    /// What is at a position of the widget's viewport, in pixels.
    [[nodiscard]] virtual Picked findAt(const QPoint& position) const;
    /// Highlights what the picture has of a node of the program, and scrolls to it; nothing when it has none.
    virtual void selectNode(const Tessel::TesselBase& node);
    /// Called when the user picks something in the panel; empty for no call.
    void setPickListener(std::function<void(const Picked&)> listener) { m_pickListener = std::move(listener); }

    /// Asked before something that may take long, with a sentence that says what; false for doing without. Empty for no
    /// question.
    void setPatienceListener(std::function<bool(const QString& warning)> listener) {
        m_patienceListener = std::move(listener);
    }

    /// "nodes" and "edges" as they are drawn, and what else the view has to say.
    [[nodiscard]] virtual QJsonObject describe() const = 0;

    /// What is shown in a few words for the status bar, such as "3 procedures, 2 calls"; empty when nothing is.
    [[nodiscard]] virtual QString summarize() const = 0;

protected:
    void tellPicked(const Picked& picked) const;
    /// Asks whether to do something that may take long; where nobody is there to be asked, the warning goes to the
    /// console of a tag, and it is done.
    [[nodiscard]] bool mayTakeLong(const std::string& tag, const QString& warning) const;

private:
    std::function<bool(const QString&)> m_patienceListener;
    std::function<void(const Picked&)> m_pickListener;
};

} // namespace Kova::Shell
