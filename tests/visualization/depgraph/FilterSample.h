// SPDX-License-Identifier: MIT
#pragma once

#include "tests/visualization/depgraph/TextNodes.h"
#include "visualization/depgraph/EdgeFilter.h"

#include <QMenu>
#include <QStringList>

/// A filter, edges for it, and short ways to its actions.
class FilterSample : public TextNodes {
public:
    [[nodiscard]] bool shows(const Kova::GUI::DepGraph::LamportEdge* edge) const { return filter.filterEdge(edge); }
    void showGraph() { filter.setGraph(edges); }
    [[nodiscard]] QAction* kind(int index) { return filter.getActions().at(index); }
    [[nodiscard]] QMenu& variables() { return *filter.getActions().at(4)->menu(); }
    [[nodiscard]] QMenu& carriers() { return *filter.getActions().at(5)->menu(); }

    /// The texts of a menu's entries, "-" for separators.
    [[nodiscard]] static QStringList textsOf(const QMenu& menu) {
        QStringList texts;
        for (const QAction* action : menu.actions())
            texts.append(action->isSeparator() ? QString("-") : action->text());
        return texts;
    }
    [[nodiscard]] static QAction* entryOf(const QMenu& menu, const QString& text) {
        for (QAction* action : menu.actions()) {
            if (action->text() == text)
                return action;
        }
        qFatal("no such entry");
    }
    /// Whether all entries are checked, or none is.
    [[nodiscard]] static bool areChecked(const QMenu& menu, bool checked) {
        for (const QAction* action : menu.actions()) {
            if (!action->isSeparator() && action->isChecked() != checked)
                return false;
        }
        return true;
    }

    Kova::GUI::DepGraph::EdgeFilter filter;
};
