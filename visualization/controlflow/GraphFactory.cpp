// SPDX-License-Identifier: MIT
#include "visualization/controlflow/GraphFactory.h"

#include "environment/core/Console.h"
#include "environment/tessel/IfStatement.h"
#include "visualization/textgraph/EdgeBase.h"
#include "visualization/textgraph/GraphNodeBase.h"

namespace Kova::GUI::ControlFlowGraph {

using Tessel::BlockStatement;
using Tessel::IfStatement;
using Tessel::StatementBase;
using TextGraph::EdgeBase;
using TextGraph::GraphNodeBase;
using TextGraph::NodeBase;

namespace {

/// Whether a statement, null for none, stands in a block with nothing but statements between them. The block itself
/// does not.
bool isInside(const StatementBase* statement, const BlockStatement& block) {
    // The common case: control comes from the statement that the block is part of.
    if (statement == block.getParent())
        return false;
    while (statement != nullptr && statement->getParent() != &block)
        statement = dynamic_cast<const StatementBase*>(statement->getParent());
    return statement != nullptr;
}

GraphNodeBase* lastOf(const QList<GraphNodeBase*>& nodes) {
    return nodes.isEmpty() ? nullptr : nodes.last();
}

} // namespace

GraphFactory::GraphFactory(bool showExternal)
    : m_ownedExternal(showExternal ? std::make_unique<GraphNodeBase>(QPoint(), QStringLiteral("EXTERNAL")) : nullptr),
      m_external(m_ownedExternal.get()) {}

GraphFactory::~GraphFactory() = default;

void GraphFactory::registerStmt(const StatementBase* statement) {
    m_nodes.try_emplace(statement);
}

NodeBase* GraphFactory::createNode(const QPoint& pos, const QString& text, const Tessel::TesselBase* object) {
    const auto entry = m_nodes.find(object);
    if (object == nullptr || entry == m_nodes.end())
        return new NodeBase(pos, text);
    auto node = std::make_unique<GraphNodeBase>(pos, text);
    entry->second.append(node.get());
    return node.release();
}

std::unique_ptr<EdgeBase> GraphFactory::createEdge(const StatementBase* from, const StatementBase* to) const {
    if (m_external == nullptr && findNodes(to) == nullptr)
        return nullptr;
    GraphNodeBase* target = findTarget(from, to);
    GraphNodeBase* source = findSource(from, to);
    if (source == nullptr || target == nullptr) {
        if (m_external != nullptr)
            getOutputConsole("CFGraphVisual", true).log(Console::Error, "Statement not found.");
        return nullptr;
    }
    auto edge = std::make_unique<EdgeBase>(source, target);
    edge->setColor(Qt::blue);
    return edge;
}

std::unique_ptr<GraphNodeBase> GraphFactory::takeExternalNode() {
    return std::move(m_ownedExternal);
}

const GraphFactory::Nodes* GraphFactory::findNodes(const StatementBase* statement) const {
    const auto entry = m_nodes.find(statement);
    return entry != m_nodes.end() ? &entry->second : nullptr;
}

GraphNodeBase* GraphFactory::findSource(const StatementBase* from, const StatementBase* to) const {
    const Nodes* nodes = findNodes(from);
    if (nodes == nullptr)
        return m_external;
    if (nodes->size() < 2)
        return lastOf(*nodes);
    GraphNodeBase* lastButOne = nodes->at(nodes->size() - 2);
    if (const auto* block = dynamic_cast<const BlockStatement*>(from); block != nullptr && !block->isEmpty())
        return &*block->getFirst() == to ? lastButOne : nodes->last();
    return dynamic_cast<const IfStatement*>(from) != nullptr ? lastButOne : nodes->last();
}

GraphNodeBase* GraphFactory::findTarget(const StatementBase* from, const StatementBase* to) const {
    const Nodes* nodes = findNodes(to);
    if (nodes == nullptr)
        return m_external;
    if (nodes->size() < 2)
        return lastOf(*nodes);
    // What comes from inside goes on behind the block.
    if (const auto* block = dynamic_cast<const BlockStatement*>(to))
        return isInside(from, *block) ? nodes->last() : nodes->first();
    return dynamic_cast<const IfStatement*>(to) != nullptr ? nodes->at(nodes->size() - 2) : nodes->last();
}

} // namespace Kova::GUI::ControlFlowGraph
