// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/DependenceTypes.h"
#include "visualization/VisualizationExport.h"
#include "visualization/textgraph/EdgeBase.h"

#include <QList>
#include <QStringList>

namespace Kova::GUI::DepGraph {

/// The arrow of a dependence, with its descriptions and the loops that carry it.
class VISUALIZATION_EXPORT LamportEdge : public TextGraph::EdgeBase {
public:
    /// In the colour of its kind.
    LamportEdge(TextGraph::GraphNodeBase* from, TextGraph::GraphNodeBase* to, ::DepGraph::EN_DepType type);

    [[nodiscard]] ::DepGraph::EN_DepType getType() const { return m_type; }

    /// The descriptions to choose the hint from; the first one is chosen, if there is any.
    void setTags(const QStringList& tags);
    [[nodiscard]] const QStringList& getTags() const { return m_tags; }
    /// Makes a description the edge's hint; ignored for a number of none.
    void setCurrentTag(int index);

    /// Numbers of loops; -1 for the dependence within an iteration. An empty list means that nothing is known.
    void setCarriers(const QList<int>& carriers) { m_carriers = carriers; }
    [[nodiscard]] const QList<int>& getCarriers() const { return m_carriers; }
    /// Whether the loop may carry the dependence: every loop may while nothing is known.
    [[nodiscard]] bool hasCarrier(int number) const { return m_carriers.isEmpty() || m_carriers.contains(number); }

private:
    ::DepGraph::EN_DepType m_type;
    QStringList m_tags;
    QList<int> m_carriers;
};

} // namespace Kova::GUI::DepGraph
