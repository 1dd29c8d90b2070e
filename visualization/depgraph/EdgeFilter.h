// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"
#include "visualization/depgraph/FilterMenu.h"

#include <QList>
#include <QObject>
#include <QSet>
#include <QString>

namespace Kova::GUI::TextGraph {
class EdgesList;
}

namespace Kova::GUI::DepGraph {

class LamportEdge;

/// Decides which dependences are shown: by kind, by the printed texts of both ends, and by the loops that carry them.
/// People choose through its actions, which live as long as the filter.
class VISUALIZATION_EXPORT EdgeFilter : public QObject {
    Q_OBJECT

public:
    explicit EdgeFilter(QObject* parent = nullptr);

    /// "Flow", "Anti", "Output", "Input", then the menus "Variables" and "Carriers".
    [[nodiscard]] QList<QAction*> getActions();
    /// Offers the variables and carriers of these edges, all of them checked; kinds stay as they are. Emits
    /// filterChanged().
    /// @throws RuntimeError when an edge is no LamportEdge.
    void setGraph(const TextGraph::EdgesList& edges);
    [[nodiscard]] bool filterEdge(const LamportEdge* edge) const;
    /// Hides a kind that was shown, and the reverse. @param bit one of EN_DepType.
    void addRemoveFilter(int bit);

Q_SIGNALS:
    void filterChanged();

public Q_SLOTS:
    /// Answer the actions that send them.
    void typeFilterChanged();
    void allVarsChanged();
    void allCarriersChanged();
    void varFilterChanged();
    void carrierFilterChanged();

private:
    void createVarActions(const TextGraph::EdgesList& edges);
    void createCarrierActions(const TextGraph::EdgesList& edges);

    int m_typeMask;
    QSet<QString> m_vars;
    /// -1 stands for dependences within an iteration.
    QSet<int> m_carriers;
    QList<QAction*> m_kindActions;
    FilterMenu m_varsMenu;
    FilterMenu m_carriersMenu;
};

} // namespace Kova::GUI::DepGraph
