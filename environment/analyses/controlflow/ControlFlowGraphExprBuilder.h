// SPDX-License-Identifier: MIT
#pragma once

class ControlFlowGraphExpr;

namespace Kova::Tessel {
class StatementBase;
}

/// Makes basic blocks of what a statement evaluates.
///
/// Blocks hold whole expressions: those of expression statements, conditions, selectors, initializers and array lengths
/// of declarations, return values. Constants that the program does not evaluate when it gets there are no part: labels'
/// values, indices of designated initializers, initializers of static variables. Operators that evaluate an operand or
/// not can be told to split: then the operands of `&&`, `||` and `?:` are expressions in blocks of their own and the
/// operator is the edges between them, and so a comma around such an operator. An expression around them follows its
/// operands, as a whole, in the block in which they come together: `x = a && b;` gives the blocks `a`, `b` and
/// `x = a && b`. Operands whose order the language leaves open are taken from left to right. Statements inside an
/// expression come before it.
///
/// Every way out of the statement leads to the exit: falling out of it, return, and jumps to places outside. Jumps from
/// outside to a label inside come from the entry. A call that never returns leads nowhere.
class ControlFlowGraphExprBuilder {
public:
    /// @param splitsOperators whether `&&`, `||` and `?:` make blocks.
    explicit ControlFlowGraphExprBuilder(bool splitsOperators) : m_splitsOperators(splitsOperators) {}
    ~ControlFlowGraphExprBuilder() = default;

    /// Replaces what the graph holds.
    void build(Kova::Tessel::StatementBase& statement, ControlFlowGraphExpr& graph) const;

private:
    class Assembly;

    bool m_splitsOperators;
};
