// SPDX-License-Identifier: MIT
#include "environment/analyses/controlflow/ControlFlowGraphExprBuilder.h"

#include "environment/analyses/controlflow/ControlFlowGraphExpr.h"
#include "environment/analyses/controlflow/FlowBuilder_p.h"

#include <algorithm>

using namespace ControlFlow;

namespace {

/// What two ways to the same place are together.
ControlTransfer eitherOf(ControlTransfer first, ControlTransfer second) {
    if (first == second)
        return first;
    if (first == ControlTransfer::Back || second == ControlTransfer::Back)
        return ControlTransfer::Back;
    const bool isJump = first == ControlTransfer::Jump || second == ControlTransfer::Jump;
    // Otherwise it makes no difference what is chosen.
    return isJump ? ControlTransfer::Jump : ControlTransfer::Next;
}

} // namespace

/// Puts the expressions that a flow passes into blocks.
class ControlFlowGraphExprBuilder::Assembly {
public:
    Assembly(const FlowBuilder& flow, ControlFlowGraphExpr& graph) : m_flow(flow), m_graph(graph) {}

    void run() {
        findSteps();
        makeBlocks();
        for (std::size_t number = 0; number < m_steps.size(); ++number)
            if (!leadsOnInBlock(number))
                connect(m_steps[number]);
        markReachable();
    }

private:
    using BasicBlock = ControlFlowGraphExpr::BasicBlock;

    /// A place that matters: the entry, an expression, the exit.
    struct Step {
        const Kova::Tessel::ExpressionBase* expression = nullptr;
        /// Numbers of steps.
        std::vector<Arrival> next;
        std::size_t waysIn = 0;
        /// The only step that leads here.
        std::size_t previous = 0;
        BasicBlock* block = nullptr;
    };

    void findSteps() {
        const FlowPoints& points = m_flow.getPoints();
        std::vector<PointId> places{m_flow.getEntry()};
        for (PointId id = 0; id < points.size(); ++id)
            if (points[id].expression != nullptr)
                places.push_back(id);
        places.push_back(m_flow.getExit());
        std::vector<std::size_t> numberOf(points.size());
        for (std::size_t number = 0; number < places.size(); ++number)
            numberOf[places[number]] = number;
        m_steps.resize(places.size());
        NextPlaces next(points, NextPlaces::Interest::Expressions, m_flow.getExit());
        for (std::size_t number = 0; number + 1 < places.size(); ++number) {
            m_steps[number].expression = points[places[number]].expression;
            for (const Arrival& arrival : next.find(places[number]))
                addWay(number, {numberOf[arrival.point], arrival.transfer});
        }
    }

    void addWay(std::size_t from, const Arrival& arrival) {
        std::vector<Arrival>& next = m_steps[from].next;
        const auto known =
            std::find_if(next.begin(), next.end(), [&](const Arrival& one) { return one.point == arrival.point; });
        if (known != next.end()) {
            known->transfer = eitherOf(known->transfer, arrival.transfer);
            return;
        }
        next.push_back(arrival);
        ++m_steps[arrival.point].waysIn;
        m_steps[arrival.point].previous = from;
    }

    /// Whether the next expression is evaluated whenever this one is, and only then. Blocks follow the program's text,
    /// so that it is not in the same block when it stands before.
    [[nodiscard]] bool leadsOnInBlock(std::size_t number) const {
        const Step& step = m_steps[number];
        if (step.expression == nullptr || step.next.size() != 1 || step.next.front().transfer != ControlTransfer::Next)
            return false;
        const Step& next = m_steps[step.next.front().point];
        return next.expression != nullptr && next.waysIn == 1 && step.next.front().point > number;
    }

    void makeBlocks() {
        for (Step& step : m_steps) {
            const bool goesOn = step.waysIn == 1 && leadsOnInBlock(step.previous);
            step.block = goesOn ? m_steps[step.previous].block : &m_graph.append();
            if (step.expression != nullptr)
                step.block->m_expressions.push_back(step.expression);
        }
    }

    void connect(const Step& step) {
        for (const Arrival& arrival : step.next) {
            step.block->m_successors.push_back(m_steps[arrival.point].block);
            step.block->m_transfers.push_back(arrival.transfer);
        }
    }

    void markReachable() {
        std::vector<BasicBlock*> pending{m_graph.getEntry()};
        while (!pending.empty()) {
            BasicBlock* block = pending.back();
            pending.pop_back();
            if (block->m_reachable)
                continue;
            block->m_reachable = true;
            pending.insert(pending.end(), block->m_successors.begin(), block->m_successors.end());
        }
    }

    const FlowBuilder& m_flow;
    ControlFlowGraphExpr& m_graph;
    std::vector<Step> m_steps;
};

void ControlFlowGraphExprBuilder::build(Kova::Tessel::StatementBase& statement, ControlFlowGraphExpr& graph) const {
    graph.clear();
    Assembly(FlowBuilder(statement, {m_splitsOperators, nullptr}), graph).run();
}
