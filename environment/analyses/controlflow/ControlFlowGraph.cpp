// SPDX-License-Identifier: MIT
#include "environment/analyses/controlflow/ControlFlowGraph.h"

#include "environment/analyses/controlflow/FlowBuilder_p.h"
#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/service/Preorder.h"

#include <algorithm>
#include <limits>

using namespace Kova::Tessel;
using namespace ControlFlow;

/// Finds the statements of a block, and their successors, among the places of the subroutine that holds it.
class ControlFlowGraph::Projection {
public:
    Projection(ControlFlowGraph& graph, const BlockStatement& block)
        : m_graph(graph),
          m_block(block),
          m_root(*block.getRootBlock()),
          m_flow(m_root, {true, &block}),
          m_places(m_flow.getPoints(), NextPlaces::Interest::Statements, m_flow.getExit()) {
        findPlaces();
    }

    void run() {
        // A tree that is walked is not changed here.
        for (TesselBase& node : Service::Preorder(const_cast<BlockStatement&>(m_block)))
            if (const auto* statement = dynamic_cast<const StatementBase*>(&node); m_placesOf.count(statement) != 0)
                addStatement(*statement);
    }

private:
    struct Ending {
        const StatementBase* statement;
        ControlTransfer transfer;
        /// Where the statement stands in the subroutine; behind everything for what is not in it.
        std::size_t order;
    };

    void findPlaces() {
        const FlowPoints& points = m_flow.getPoints();
        for (PointId id = 0; id < points.size(); ++id)
            if (points[id].statement != nullptr)
                m_placesOf[points[id].statement].push_back(id);
        for (TesselBase& node : Service::Preorder(m_root))
            if (const auto* statement = dynamic_cast<const StatementBase*>(&node); m_placesOf.count(statement) != 0)
                m_order.emplace(statement, m_order.size());
    }

    void addStatement(const StatementBase& statement) {
        m_graph.m_statements.push_back(&statement);
        Leaving& leaving = m_graph.m_leaving[&statement];
        if (&statement == &m_block && m_block.isEmpty())
            return;
        std::vector<Ending> endings;
        // A block is entered before it is left, and each of both ways on has its own order.
        for (const PointId place : m_placesOf[&statement])
            addEndings(place, endings);
        for (const Ending& ending : endings) {
            leaving.successors.push_back(ending.statement);
            leaving.transfers.push_back(ending.transfer);
        }
    }

    void addEndings(PointId place, std::vector<Ending>& all) {
        std::vector<Ending> endings;
        for (const Arrival& arrival : m_places.find(place)) {
            const StatementBase* statement = m_flow.getPoints()[arrival.point].statement;
            const auto order = m_order.find(statement);
            endings.push_back({statement, arrival.transfer,
                               order != m_order.end() ? order->second : std::numeric_limits<std::size_t>::max()});
        }
        std::stable_sort(endings.begin(), endings.end(), [](const Ending& a, const Ending& b) {
            const bool isJump = a.transfer == ControlTransfer::Jump;
            if (isJump != (b.transfer == ControlTransfer::Jump))
                return !isJump;
            return a.order < b.order;
        });
        for (const Ending& ending : endings) {
            const auto known = std::find_if(all.begin(), all.end(),
                                            [&](const Ending& one) { return one.statement == ending.statement; });
            if (known == all.end())
                all.push_back(ending);
            else if (ending.transfer == ControlTransfer::Back)
                known->transfer = ControlTransfer::Back;
        }
    }

    ControlFlowGraph& m_graph;
    const BlockStatement& m_block;
    BlockStatement& m_root;
    FlowBuilder m_flow;
    NextPlaces m_places;
    // Looked up, never walked.
    std::unordered_map<const StatementBase*, std::vector<PointId>> m_placesOf;
    std::unordered_map<const StatementBase*, std::size_t> m_order;
};

ControlFlowGraph::ControlFlowGraph(const BlockStatement& block) {
    Projection(*this, block).run();
}

ControlFlowGraph::~ControlFlowGraph() = default;

const ControlFlowGraph::Leaving& ControlFlowGraph::find(const StatementBase* statement) const {
    static const Leaving nothing;
    const auto found = m_leaving.find(statement);
    return found != m_leaving.end() ? found->second : nothing;
}

const std::vector<const StatementBase*>& ControlFlowGraph::getSuccessors(const StatementBase* statement) const {
    return find(statement).successors;
}

const std::vector<ControlTransfer>& ControlFlowGraph::getTransfers(const StatementBase* statement) const {
    return find(statement).transfers;
}
