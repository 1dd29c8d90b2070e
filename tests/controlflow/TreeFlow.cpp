// SPDX-License-Identifier: MIT
#include "tests/controlflow/TreeFlow.h"

#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/BreakStatement.h"
#include "environment/tessel/CaseStatement.h"
#include "environment/tessel/ContinueStatement.h"
#include "environment/tessel/DoWhileStatement.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/GotoStatement.h"
#include "environment/tessel/IfStatement.h"
#include "environment/tessel/LabelStatement.h"
#include "environment/tessel/NullStatement.h"
#include "environment/tessel/SwitchStatement.h"
#include "environment/tessel/WhileStatement.h"

#include <vector>

namespace Kova::Test {

using namespace Tessel;

namespace {

template <class Node>
bool is(const TesselBase& node) {
    return dynamic_cast<const Node*>(&node) != nullptr;
}

std::string kindOf(const StatementBase& statement) {
    if (is<LabelStatement>(statement))
        return "label";
    if (is<CaseStatement>(statement))
        return "case";
    if (is<IfStatement>(statement))
        return "if";
    if (is<SwitchStatement>(statement))
        return "switch";
    if (is<WhileStatement>(statement))
        return "while";
    if (is<DoWhileStatement>(statement))
        return "do";
    if (is<ForStatement>(statement))
        return "for";
    if (is<BreakStatement>(statement) || is<ContinueStatement>(statement) || is<GotoStatement>(statement))
        return "jump";
    return is<BlockStatement>(statement) ? "block" : is<NullStatement>(statement) ? "null" : "simple";
}

bool isInside(const TesselBase& node, const TesselBase& around) {
    const TesselBase* parent = node.getParent();
    while (parent != nullptr && parent != &around)
        parent = parent->getParent();
    return parent != nullptr;
}

/// Places and the ways between them, some of which only lead on.
class Places {
public:
    void add(const std::string& from, const std::string& to) { m_next[from].push_back(to); }

    [[nodiscard]] FlowEdges contract(const std::function<bool(const std::string&)>& isKept) const {
        FlowEdges edges;
        for (const auto& [from, next] : m_next) {
            if (from != FlowEdges::entry && !isKept(from))
                continue;
            std::set<std::string>& reached = edges.successors[from];
            std::set<std::string> seen;
            std::vector<std::string> open = next;
            while (!open.empty()) {
                const std::string place = open.back();
                open.pop_back();
                if (!seen.insert(place).second)
                    continue;
                if (place == FlowEdges::end || isKept(place))
                    reached.insert(place);
                else if (const auto further = m_next.find(place); further != m_next.end())
                    open.insert(open.end(), further->second.begin(), further->second.end());
            }
        }
        return edges;
    }
    /// Makes a place known that need not lead anywhere.
    void make(const std::string& place) { m_next[place]; }

private:
    std::map<std::string, std::vector<std::string>> m_next;
};

std::string openingOf(const StatementBase& statement) {
    const bool isTwice = is<BlockStatement>(statement) || is<DoWhileStatement>(statement);
    return (isTwice ? "opening of " : "") + flowNameOf(statement);
}

class StatementPlaces {
public:
    explicit StatementPlaces(const ControlFlowGraph& graph) {
        m_places.add(FlowEdges::entry, openingOf(*graph.getStatements().front()));
        for (const StatementBase* statement : graph.getStatements()) {
            m_places.make(flowNameOf(*statement));
            const auto& successors = graph.getSuccessors(statement);
            for (std::size_t i = 0; i < successors.size(); ++i)
                addEdge(*statement, successors[i], graph.getTransfers(statement)[i]);
            const auto* block = dynamic_cast<const BlockStatement*>(statement);
            if (block != nullptr && block->isEmpty())
                m_places.add(openingOf(*block), flowNameOf(*block));
        }
    }
    [[nodiscard]] const Places& get() const { return m_places; }

private:
    void addEdge(const StatementBase& from, const StatementBase* to, ControlTransfer transfer) {
        const std::string target = to == nullptr                                              ? FlowEdges::end
                                   : isInside(from, *to) || openingOf(*to) == flowNameOf(*to) ? flowNameOf(*to)
                                                                                              : openingOf(*to);
        const auto* block = dynamic_cast<const BlockStatement*>(&from);
        const auto* loop = dynamic_cast<const DoWhileStatement*>(&from);
        const bool isEntered = (block != nullptr && !block->isEmpty() && block->getStatement(0) == to) ||
                               (loop != nullptr && loop->getBody() == to);
        if (isEntered)
            m_places.add(openingOf(from), target);
        // The body of a loop that tests last is entered anew only where the condition may hold.
        if (!isEntered || (loop != nullptr && transfer != ControlTransfer::Next))
            m_places.add(flowNameOf(from), target);
    }

    Places m_places;
};

} // namespace

std::string flowNameOf(const StatementBase& statement) {
    const SourceRange& range = statement.getSourceRange();
    return kindOf(statement) + " " + placeName(range.beginLine, range.beginColumn);
}

std::string flowNameOf(const ExpressionBase& expression) {
    const SourceRange& range = expression.getSourceRange();
    return placeName(range.beginLine, range.beginColumn) + "-" + placeName(range.endLine, range.endColumn);
}

FlowEdges flowOf(const ControlFlowGraph& graph, const std::function<bool(const std::string&)>& isKept) {
    return StatementPlaces(graph).get().contract(isKept);
}

FlowEdges flowOf(const ControlFlowGraphExpr& graph, const std::function<bool(const std::string&)>& isKept) {
    Places places;
    for (const ControlFlowGraphExpr::BasicBlock* block : graph.getBasicBlocks()) {
        std::string last = block == graph.getEntry() ? FlowEdges::entry : FlowEdges::end;
        for (std::size_t i = 0; i < block->getExpressions().size(); ++i) {
            const std::string name = flowNameOf(*block->getExpressions()[i]);
            places.make(name);
            if (i != 0)
                places.add(last, name);
            last = name;
        }
        for (const ControlFlowGraphExpr::BasicBlock* next : block->getSuccessors())
            places.add(last,
                       next->getExpressions().empty() ? FlowEdges::end : flowNameOf(*next->getExpressions().front()));
    }
    return places.contract(isKept);
}

} // namespace Kova::Test
