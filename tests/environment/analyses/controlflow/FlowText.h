// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/controlflow/ControlFlowGraph.h"
#include "environment/analyses/controlflow/ControlFlowGraphExpr.h"

#include <map>
#include <string>
#include <unordered_map>

namespace Kova::Tests {

/// Short names of a subroutine's statements: `a = 1`, `if c`, `else of c`, `L:`; a block is named by what it is the
/// body of, `{while c}`, `{}` without such. Equal names are told apart by their number: `break`, `break#2`.
class StatementNames {
public:
    /// @param any statement inside of a block.
    explicit StatementNames(const Tessel::StatementBase& any);

    /// "END" for null.
    [[nodiscard]] const std::string& of(const Tessel::StatementBase* statement) const;
    /// Null for a name that there is none of.
    [[nodiscard]] const Tessel::StatementBase* find(const std::string& name) const;

private:
    std::unordered_map<const Tessel::StatementBase*, std::string> m_names;
    std::map<std::string, const Tessel::StatementBase*> m_statements;
};

/// `: ` and the successors of a statement behind signs for the ways to them: + true, - false, ^ back, @ jump, nothing
/// for next. Those outside of the graph are in angle brackets.
[[nodiscard]] std::string successorsOf(const ControlFlowGraph& graph, const Tessel::StatementBase* statement);
/// A line for each statement of the graph with its successors.
[[nodiscard]] std::string textOf(const ControlFlowGraph& graph);

/// A line for each block: its number, `!` when it is not reached, its expressions in brackets, its successors with the
/// signs of successorsOf. The entry and the exit have these words for numbers.
[[nodiscard]] std::string textOf(const ControlFlowGraphExpr& graph);

} // namespace Kova::Tests
