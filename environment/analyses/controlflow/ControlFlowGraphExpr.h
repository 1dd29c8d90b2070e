// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/controlflow/ControlTransfer.h"

#include <memory>
#include <vector>

namespace Kova::Tessel {
class ExpressionBase;
}

class ControlFlowGraphExprBuilder;

/// The control flow of a statement as basic blocks of expressions, made by ControlFlowGraphExprBuilder. Refers to the
/// program's tree and keeps none of it alive.
class ControlFlowGraphExpr {
public:
    /// Expressions that are evaluated one after the other, whenever the first one is, unless a call does not return.
    class BasicBlock {
    public:
        /// In evaluation order; none in the graph's entry and exit, at least one in every other block.
        [[nodiscard]] const std::vector<const Kova::Tessel::ExpressionBase*>& getExpressions() const {
            return m_expressions;
        }
        /// The way where a condition holds before the one where it does not; the labels of a switch in program order.
        [[nodiscard]] const std::vector<BasicBlock*>& getSuccessors() const { return m_successors; }
        /// One for each successor, in their order.
        [[nodiscard]] const std::vector<ControlTransfer>& getTransfers() const { return m_transfers; }
        /// False when no way leads here from the graph's entry.
        [[nodiscard]] bool isReachable() const { return m_reachable; }

    private:
        friend class ControlFlowGraphExpr;
        friend class ControlFlowGraphExprBuilder;

        std::vector<const Kova::Tessel::ExpressionBase*> m_expressions;
        std::vector<BasicBlock*> m_successors;
        std::vector<ControlTransfer> m_transfers;
        bool m_reachable = false;
    };

    /// An empty graph, without blocks.
    ControlFlowGraphExpr();
    ~ControlFlowGraphExpr();
    ControlFlowGraphExpr(const ControlFlowGraphExpr&) = delete;
    ControlFlowGraphExpr& operator=(const ControlFlowGraphExpr&) = delete;

    /// The entry, the blocks in the order in which the program writes what they evaluate first, the exit. The increment
    /// of a for comes behind the body.
    [[nodiscard]] const std::vector<BasicBlock*>& getBasicBlocks() const { return m_blocks; }
    /// Null in an empty graph, as the exit is.
    [[nodiscard]] BasicBlock* getEntry() const { return m_blocks.empty() ? nullptr : m_blocks.front(); }
    [[nodiscard]] BasicBlock* getExit() const { return m_blocks.empty() ? nullptr : m_blocks.back(); }

private:
    friend class ControlFlowGraphExprBuilder;

    BasicBlock& append();
    void clear();

    std::vector<std::unique_ptr<BasicBlock>> m_owned;
    std::vector<BasicBlock*> m_blocks;
};
