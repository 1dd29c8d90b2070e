// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"

#include <QAction>
#include <QList>
#include <QMenu>
#include <QStringList>

namespace Kova::GUI::DepGraph {

/// A checkable and checked action.
[[nodiscard]] VISUALIZATION_EXPORT QAction* makeCheckedAction(const QString& text, QObject* parent);

/// A menu to choose what is shown: "All", a separator, then an entry for each choice, all of them checkable.
class VISUALIZATION_EXPORT FilterMenu {
public:
    /// Empty, with "All" unchecked.
    /// @param allText what "All" is called.
    FilterMenu(const QString& title, const QString& allText);

    [[nodiscard]] QMenu& menu() { return m_menu; }
    [[nodiscard]] QAction& allAction() { return m_allAction; }

    /// Deletes the entries.
    void clear() { m_menu.clear(); }
    /// Fills the empty menu and checks "All".
    /// @return the checked actions of the entries, which the menu owns until clear().
    QList<QAction*> fill(const QStringList& texts);
    /// Checks or unchecks every entry as "All" is.
    void followAll();

private:
    QMenu m_menu;
    // Not a child of the menu, which would delete it in clear().
    QAction m_allAction;
};

} // namespace Kova::GUI::DepGraph
