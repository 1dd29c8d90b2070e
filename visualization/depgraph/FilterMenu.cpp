// SPDX-License-Identifier: MIT
#include "visualization/depgraph/FilterMenu.h"

#include <QPointer>

namespace Kova::GUI::DepGraph {

namespace {

/// After "All" and the separator.
constexpr int firstEntry = 2;

} // namespace

QAction* makeCheckedAction(const QString& text, QObject* parent) {
    auto* action = new QAction(text, parent);
    action->setCheckable(true);
    action->setChecked(true);
    return action;
}

FilterMenu::FilterMenu(const QString& title, const QString& allText) : m_menu(title), m_allAction(allText) {
    m_allAction.setCheckable(true);
}

QList<QAction*> FilterMenu::fill(const QStringList& texts) {
    // While there are no entries that would follow.
    m_allAction.setChecked(true);
    m_menu.addAction(&m_allAction);
    m_menu.addSeparator();
    QList<QAction*> entries;
    for (const QString& text : texts)
        entries.append(makeCheckedAction(text, &m_menu));
    m_menu.addActions(entries);
    return entries;
}

void FilterMenu::followAll() {
    // Whoever hears of a change may clear the menu.
    QList<QPointer<QAction>> entries;
    for (QAction* action : m_menu.actions().mid(firstEntry))
        entries.append(action);
    for (const QPointer<QAction>& entry : qAsConst(entries)) {
        if (entry)
            entry->setChecked(m_allAction.isChecked());
    }
}

} // namespace Kova::GUI::DepGraph
