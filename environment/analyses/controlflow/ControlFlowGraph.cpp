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
        /// Where the program writes what control arrives at.
        std::size_t order;
    };

    void findPlaces() {
        const FlowPoints& points = m_flow.getPoints();
        for (PointId id = 0; id < points.size(); ++id)
            if (points[id].statement != nullptr)
                m_placesOf[points[id].statement].push_back(id);
        std::vector<const StatementBase*> statements;
        for (TesselBase& node : Service::Preorder(m_root))
            if (const auto* statement = dynamic_cast<const StatementBase*>(&node); m_placesOf.count(statement) != 0)
                statements.push_back(statement);
        // What is not in the subroutine comes late, its end last.
        m_orderOf.assign(points.size(), std::numeric_limits<std::size_t>::max() - 1);
        m_orderOf[m_flow.getExit()] = std::numeric_limits<std::size_t>::max();
        // The end of a block comes behind all that is in it: even numbers for statements, odd ones for ends.
        std::unordered_map<const TesselBase*, std::size_t> lastInside;
        for (std::size_t number = statements.size(); number-- > 0;) {
            const StatementBase* statement = statements[number];
            const std::size_t last = lastInside.try_emplace(statement, number).first->second;
            const TesselBase* around = statement->getParent();
            while (around != nullptr && !isPassed(*around))
                around = around->getParent();
            lastInside.try_emplace(around, last);
            for (const PointId place : m_placesOf[statement])
                m_orderOf[place] = points[place].isEnd ? 2 * last + 1 : 2 * number;
        }
    }

    /// Whether control passes the braces of the node: the block of an else-if has none.
    [[nodiscard]] bool isPassed(const TesselBase& node) const {
        const auto* block = dynamic_cast<const BlockStatement*>(&node);
        return block != nullptr && m_placesOf.count(block) != 0;
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
            endings.push_back({statement, arrival.transfer, m_orderOf[arrival.point]});
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
    std::vector<std::size_t> m_orderOf;
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
