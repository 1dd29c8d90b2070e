// SPDX-License-Identifier: MIT
#include "visualization/controlflow/PrintedFlow.h"

#include "environment/analyses/controlflow/ControlFlowGraph.h"
#include "environment/tessel/BlockStatement.h"
#include "visualization/controlflow/GraphFactory.h"
#include "visualization/controlflow/Nesting.h"

#include <algorithm>

namespace Kova::GUI::ControlFlowGraph {

using Tessel::BlockStatement;
using Tessel::StatementBase;

namespace {

/// Null for what is no block and for a block without one.
const StatementBase* firstOf(const StatementBase* statement) {
    const auto* block = dynamic_cast<const BlockStatement*>(statement);
    return block != nullptr && block->getFirst().isValid() ? &*block->getFirst() : nullptr;
}

bool entersBlock(const StatementBase* from, const StatementBase* to) {
    const auto* block = dynamic_cast<const BlockStatement*>(to);
    return block != nullptr && !isInside(from, *block);
}

} // namespace

PrintedFlow::PrintedFlow(const ::ControlFlowGraph& graph, const GraphFactory& factory)
    : m_graph(graph),
      m_factory(factory) {
    // From the outside inwards, so that a long chain does not become a deep recursion.
    for (const StatementBase* statement : graph.getStatements()) {
        if (m_factory.isUnprinted(statement))
            leave(statement);
    }
}

PrintedFlow::Transfers PrintedFlow::getTransfers(const StatementBase* from) {
    Transfers found;
    if (!m_factory.isUnprinted(from))
        follow(from, nullptr, found);
    return found;
}

void PrintedFlow::follow(const StatementBase* from, const StatementBase* except, Transfers& found) {
    const std::vector<const StatementBase*>& successors = m_graph.getSuccessors(from);
    const std::vector<ControlTransfer>& kinds = m_graph.getTransfers(from);
    for (std::size_t i = 0; i < successors.size(); ++i) {
        if (except == nullptr || successors[i] != except)
            reach(from, {successors[i], kinds[i]}, found);
    }
}

void PrintedFlow::reach(const StatementBase* from, Transfer transfer, Transfers& found) {
    if (!m_factory.isUnprinted(transfer.to)) {
        found.push_back(transfer);
        return;
    }
    const StatementBase* first = entersBlock(from, transfer.to) ? firstOf(transfer.to) : nullptr;
    if (first != nullptr) {
        reach(from, {first, transfer.kind}, found);
        return;
    }
    for (const Transfer& next : leave(transfer.to)) {
        const auto isSame = [&next](const Transfer& other) { return other.to == next.to; };
        if (std::none_of(found.begin(), found.end(), isSame))
            found.push_back({next.to, next.kind == ControlTransfer::Back ? next.kind : transfer.kind});
    }
}

const PrintedFlow::Transfers& PrintedFlow::leave(const StatementBase* unprinted) {
    const auto [entry, isNew] = m_leaving.try_emplace(unprinted);
    // Empty while its turn is not over: where control goes round among such statements it gets nowhere.
    if (isNew) {
        Transfers found;
        follow(unprinted, firstOf(unprinted), found);
        m_leaving[unprinted] = std::move(found);
    }
    return m_leaving[unprinted];
}

} // namespace Kova::GUI::ControlFlowGraph
