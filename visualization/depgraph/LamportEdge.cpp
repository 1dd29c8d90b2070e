// SPDX-License-Identifier: MIT
#include "visualization/depgraph/LamportEdge.h"

#include "visualization/depgraph/EdgeTypeColor.h"

namespace Kova::GUI::DepGraph {

LamportEdge::LamportEdge(TextGraph::GraphNodeBase* from, TextGraph::GraphNodeBase* to, ::DepGraph::EN_DepType type)
    : EdgeBase(from, to),
      m_type(type) {
    setColor(edgeTypeToColor(type));
}

void LamportEdge::setTags(const QStringList& tags) {
    m_tags = tags;
    setCurrentTag(0);
}

void LamportEdge::setCurrentTag(int index) {
    if (index >= 0 && index < m_tags.size())
        setHint(m_tags.at(index));
}

} // namespace Kova::GUI::DepGraph
