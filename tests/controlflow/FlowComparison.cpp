// SPDX-License-Identifier: MIT
#include "tests/controlflow/FlowComparison.h"

#include "environment/analyses/controlflow/ControlFlowGraphExprBuilder.h"
#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/TranslationUnit.h"
#include "environment/tessel/service/Preorder.h"
#include "tests/controlflow/TreeFlow.h"

#include <algorithm>

namespace Kova::Test {

using namespace Tessel;

namespace {

class Comparer {
public:
    Comparer(const ClangFlow& clang, FlowComparison& result) : m_clang(clang), m_result(result) {}

    void compare(const std::string& name, BlockStatement& body, const std::string& place) {
        m_name = name;
        compareStatements(body, place);
        compareExpressions(body, place);
        ++m_result.functions;
    }

private:
    void compareStatements(const BlockStatement& body, const std::string& place);
    void compareExpressions(BlockStatement& body, const std::string& place);
    void report(const char* what, const std::string& edges) {
        if (!edges.empty())
            m_result.differences += m_name + "(), " + what + ":\n" + edges;
    }

    const ClangFlow& m_clang;
    FlowComparison& m_result;
    std::string m_name;
};

void Comparer::compareStatements(const BlockStatement& body, const std::string& place) {
    const ControlFlowGraph graph(body);
    std::set<std::string> names;
    for (const StatementBase* statement : graph.getStatements()) {
        const bool isNew = names.insert(flowNameOf(*statement)).second;
        // A macro may write several statements that stand where it is used.
        if (!isNew) {
            ++m_result.ambiguous;
            return;
        }
    }
    m_result.statements += static_cast<unsigned>(names.size());
    // What an empty block does not transfer is not in its graph.
    if (body.isEmpty())
        return;
    const FlowEdges expected = m_clang.flowOfStatements(place);
    const FlowEdges found = flowOf(graph, [&](const std::string& name) { return expected.has(name); });
    report("statements: only Clang has", expected.without(found));
    report("statements: Clang has not", found.without(expected));
}

void Comparer::compareExpressions(BlockStatement& body, const std::string& place) {
    ControlFlowGraphExpr graph;
    ControlFlowGraphExprBuilder(true).build(body, graph);
    std::set<std::string> listed;
    for (const ControlFlowGraphExpr::BasicBlock* block : graph.getBasicBlocks())
        for (const ExpressionBase* expression : block->getExpressions())
            if (!listed.insert(flowNameOf(*expression)).second) {
                ++m_result.ambiguous;
                return;
            }
    m_result.expressions += static_cast<unsigned>(listed.size());
    const FlowEdges expected = m_clang.flowOfExpressions(place, listed);
    for (const std::string& name : listed)
        if (!expected.has(name))
            ++m_result.unknown;
    const FlowEdges found = flowOf(graph, [&](const std::string& name) { return expected.has(name); });
    // What a constant keeps from being evaluated, as the x of `while (0 && x)`, leads to where it would: Clang takes
    // the whole condition for the constant and lets x lead to nowhere but behind the loop.
    const FlowEdges reached = expected.closure().fromEntry();
    report("expressions: only Clang reaches", reached.without(found.closure()));
    report("expressions: Clang does not reach", found.closure().fromEntry().without(reached));
    // Clang lets the operands of && and || meet before an operator around them decides, this graph need not.
    report("expressions: Clang does not go", found.fromEntry().without(expected));
    for (const ControlFlowGraphExpr::BasicBlock* block : graph.getBasicBlocks())
        for (const ExpressionBase* expression : block->getExpressions()) {
            const std::string name = flowNameOf(*expression);
            if (expected.has(name) && block->isReachable() != reached.has(name))
                report("marked wrongly", name + (block->isReachable() ? " as reached\n" : " as not reached\n"));
        }
}

} // namespace

FlowComparison compareFlow(const ProgramUnit& program, const ClangFlow& clang) {
    FlowComparison result;
    Comparer comparer(clang, result);
    const std::vector<std::string> bodies = clang.getBodies();
    const std::set<std::string> places(bodies.begin(), bodies.end());
    TranslationUnit& unit = *program.getTranslationUnit(program.getChildCount() - 1);
    for (std::size_t i = 0; i < unit.getChildCount(); ++i) {
        const auto* function = dynamic_cast<const SubroutineDeclaration*>(unit.getChild(i));
        if (function == nullptr || !function->hasImplementation())
            continue;
        const SourceRange& range = function->getBody()->getSourceRange();
        const std::string place = placeName(range.beginLine, range.beginColumn);
        if (places.count(place) != 0)
            comparer.compare(function->getName(), *function->getBody(), place);
    }
    return result;
}

} // namespace Kova::Test
