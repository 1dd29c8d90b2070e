// SPDX-License-Identifier: MIT
#include "visualization/depgraph/ExpressionNodes.h"

#include "environment/tessel/ExpressionBase.h"
#include "visualization/textgraph/GraphNodeBase.h"
#include "visualization/textgraph/NodeAlreadyExist.h"
#include "visualization/textgraph/NodeNotFound.h"

namespace Kova::GUI::DepGraph {

using TextGraph::GraphNodeBase;
using TextGraph::NodeAlreadyExist;
using TextGraph::NodeBase;
using TextGraph::NodeNotFound;

void ExpressionNodes::registerExpr(const Tessel::ExpressionBase* expression) {
    m_nodes.try_emplace(expression, nullptr);
}

NodeBase* ExpressionNodes::createNode(const QPoint& pos, const QString& text, const Tessel::TesselBase* object) {
    const auto entry = m_nodes.find(object);
    if (object == nullptr || entry == m_nodes.end())
        return new NodeBase(pos, text);
    if (entry->second != nullptr)
        throw NodeAlreadyExist(text);
    entry->second = new GraphNodeBase(pos, text);
    return entry->second;
}

ExpressionNodes::Ends ExpressionNodes::find(const Tessel::ExpressionBase* from,
                                            const Tessel::ExpressionBase* to) const {
    const auto fromEntry = m_nodes.find(from);
    const auto toEntry = m_nodes.find(to);
    if (fromEntry == m_nodes.end() || toEntry == m_nodes.end())
        throw NodeNotFound::notRegistered();
    if (fromEntry->second == nullptr || toEntry->second == nullptr)
        throw NodeNotFound::withoutNode();
    return {fromEntry->second, toEntry->second};
}

} // namespace Kova::GUI::DepGraph
