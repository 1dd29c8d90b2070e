// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/BlockStatement.h"

namespace Kova::GUI::ControlFlowGraph {

/// Whether a statement, null for none, stands in a block with nothing but statements between them. The block itself
/// does not.
[[nodiscard]] inline bool isInside(const Tessel::StatementBase* statement, const Tessel::BlockStatement& block) {
    // The common case: control comes from the statement that the block is part of.
    if (statement == block.getParent())
        return false;
    while (statement != nullptr && statement->getParent() != &block)
        statement = dynamic_cast<const Tessel::StatementBase*>(statement->getParent());
    return statement != nullptr;
}

} // namespace Kova::GUI::ControlFlowGraph
