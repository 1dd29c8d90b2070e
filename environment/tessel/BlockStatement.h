// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/StatementBase.h"
#include "environment/tessel/StatementIterator.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// Statements in braces, one after the other. Bodies of subroutines, loops and branches are always blocks, whether
/// the source wrote braces or not; labels are statements of their own before the statement that they mark.
class BlockStatement final : public Visitable<BlockStatement, StatementBase> {
public:
    [[nodiscard]] StatementIterator getFirst() const { return {this, 0}; }
    [[nodiscard]] bool isEmpty() const { return getChildCount() == 0; }
    /// Null for an index outside [0, getChildCount()).
    [[nodiscard]] StatementBase* getStatement(std::size_t index) const { return childAs<StatementBase>(index); }

    void append(StatementPtr statement) { appendChild(std::move(statement)); }
    /// @param index in [0, getChildCount()].
    void insert(std::size_t index, StatementPtr statement) { insertChild(index, std::move(statement)); }
    /// @param index in [0, getChildCount()).
    [[nodiscard]] StatementPtr take(std::size_t index) {
        return StatementPtr(static_cast<StatementBase*>(takeChild(index).release()));
    }
};

} // namespace Kova::Tessel
