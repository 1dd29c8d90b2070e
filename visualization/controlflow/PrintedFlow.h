// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/controlflow/ControlTransfer.h"

#include <unordered_map>
#include <vector>

class ControlFlowGraph;

namespace Kova::Tessel {
class StatementBase;
}

namespace Kova::GUI::ControlFlowGraph {

class GraphFactory;

/// The transfers of a control flow graph between statements that have lines. Others, such as the block of an `else if`,
/// which is written without braces, are passed through.
class PrintedFlow {
public:
    struct Transfer {
        const Tessel::StatementBase* to;
        ControlTransfer kind;
    };

    /// Both are kept by reference. @param factory has made the nodes of all lines.
    PrintedFlow(const ::ControlFlowGraph& graph, const GraphFactory& factory);

    /// In the order of the graph's successors; empty for a statement without a line.
    [[nodiscard]] std::vector<Transfer> getTransfers(const Tessel::StatementBase* from);

private:
    using Transfers = std::vector<Transfer>;

    void follow(const Tessel::StatementBase* from, const Tessel::StatementBase* except, Transfers& found);
    void reach(const Tessel::StatementBase* from, Transfer transfer, Transfers& found);
    const Transfers& leave(const Tessel::StatementBase* unprinted);

    const ::ControlFlowGraph& m_graph;
    const GraphFactory& m_factory;
    /// Where control goes that comes out of a statement without a line.
    std::unordered_map<const Tessel::StatementBase*, Transfers> m_leaving;
};

} // namespace Kova::GUI::ControlFlowGraph
