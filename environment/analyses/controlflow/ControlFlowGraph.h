// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/controlflow/ControlTransfer.h"

#include <unordered_map>
#include <vector>

namespace Kova::Tessel {
class BlockStatement;
class StatementBase;
} // namespace Kova::Tessel

/// Which statements of a block may be executed right after which.
///
/// A block is passed twice: at its opening brace, from which control goes on to the first statement, and at its closing
/// brace, which the last statement leads to and from which control goes on behind the block. So the successors of a
/// block are its first statement and what follows the block: for the body of a loop the loop itself, which decides on
/// the next round. A loop leads to its body and to what follows; a switch leads to its labels, not to its body. What
/// stands in the header of a loop belongs to the loop. Statements inside an expression lead back to the statement
/// around it: `x = ({ f(); y; });` leads to the inner block and, when that has come back to it, to the next statement.
/// The block of an `else if` is written without braces, so control goes from one if to the next.
///
/// Conditions that are constants, calls that never return and short-circuit operators are taken into account, so that
/// control goes nowhere behind `while (1)` without a break. Statements that control never reaches are kept with their
/// successors. An empty block has nothing that could transfer control, hence no successors of its own when it is the
/// block that is looked at.
///
/// Refers to the program's tree and keeps none of it alive.
class ControlFlowGraph {
public:
    explicit ControlFlowGraph(const Kova::Tessel::BlockStatement& block);
    ~ControlFlowGraph();
    ControlFlowGraph(const ControlFlowGraph&) = delete;
    ControlFlowGraph& operator=(const ControlFlowGraph&) = delete;

    /// The block, then the statements inside in program order.
    [[nodiscard]] const std::vector<const Kova::Tessel::StatementBase*>& getStatements() const { return m_statements; }
    /// Without repetitions; empty for null and statements that are not the graph's. A block has what its opening leads
    /// to before what its end leads to, and any other statement where control leaves it several times the same; each
    /// time come first those that are reached without a jump, then those jumped to, both in program order. A successor
    /// that is not among getStatements() is outside of the block; null, the last one, stands for the end of the
    /// subroutine.
    [[nodiscard]] const std::vector<const Kova::Tessel::StatementBase*>&
    getSuccessors(const Kova::Tessel::StatementBase* statement) const;
    /// One for each successor, in their order. Where there are several ways to a successor, Back goes before the
    /// others, and of those the first counts.
    [[nodiscard]] const std::vector<ControlTransfer>& getTransfers(const Kova::Tessel::StatementBase* statement) const;

private:
    struct Leaving {
        std::vector<const Kova::Tessel::StatementBase*> successors;
        std::vector<ControlTransfer> transfers;
    };
    class Projection;

    [[nodiscard]] const Leaving& find(const Kova::Tessel::StatementBase* statement) const;

    std::vector<const Kova::Tessel::StatementBase*> m_statements;
    // Looked up, never walked.
    std::unordered_map<const Kova::Tessel::StatementBase*, Leaving> m_leaving;
};
