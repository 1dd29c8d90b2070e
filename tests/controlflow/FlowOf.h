// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/controlflow/ControlFlowGraph.h"
#include "environment/analyses/controlflow/ControlFlowGraphExpr.h"
#include "environment/analyses/controlflow/ControlFlowGraphExprBuilder.h"
#include "tests/environment/analyses/controlflow/FlowText.h"
#include "tests/frontends/c/FirstBody.h"

#include <string>

namespace Kova::Test {

/// Control flow, as text, in a function with the parameters a, b, c and u (unsigned). The variables x, y, z are there,
/// the function g(int), and stop() and quit(int), which never return.
class FlowOf {
public:
    explicit FlowOf(const std::string& statements, const std::string& declarations = {})
        : m_body(declarations +
                 "enum { ZERO, ONE }; int x, y, z; int g(int); _Noreturn void stop(void);\n"
                 "int quit(int) __attribute__((noreturn));\n"
                 "int f(int a, int b, int c, unsigned u) {\n" +
                 statements + "\n}\n"),
          m_names(m_body.get()) {}

    /// The graph of all statements.
    [[nodiscard]] std::string statements() const { return Tests::textOf(ControlFlowGraph(m_body.get())); }
    /// The graph of a block inside. @param block as StatementNames names it.
    [[nodiscard]] std::string statementsOf(const std::string& block) const {
        return Tests::textOf(ControlFlowGraph(dynamic_cast<const Tessel::BlockStatement&>(find(block))));
    }
    /// What one statement leads to, as successorsOf writes it.
    [[nodiscard]] std::string from(const std::string& statement) const {
        return Tests::successorsOf(ControlFlowGraph(m_body.get()), &find(statement));
    }

    [[nodiscard]] std::string blocks(bool splitsOperators = true) const {
        return blocksOf(m_body.get(), splitsOperators);
    }
    [[nodiscard]] std::string blocksOf(const std::string& statement) const {
        return blocksOf(const_cast<Tessel::StatementBase&>(find(statement)), true);
    }

private:
    [[nodiscard]] const Tessel::StatementBase& find(const std::string& name) const {
        const Tessel::StatementBase* found = m_names.find(name);
        if (found == nullptr)
            throw std::runtime_error("no statement " + name);
        return *found;
    }
    [[nodiscard]] static std::string blocksOf(Tessel::StatementBase& statement, bool splitsOperators) {
        ControlFlowGraphExpr graph;
        ControlFlowGraphExprBuilder(splitsOperators).build(statement, graph);
        return Tests::textOf(graph);
    }

    FirstBody m_body;
    Tests::StatementNames m_names;
};

} // namespace Kova::Test
