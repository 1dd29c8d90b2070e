// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/StatementBase.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// Leaves the subroutine.
class ReturnStatement final : public Visitable<ReturnStatement, StatementBase> {
public:
    /// @param value null when nothing is returned.
    explicit ReturnStatement(ExpressionPtr value) { appendChild(std::move(value)); }

    [[nodiscard]] ExpressionBase* getValue() const { return childAs<ExpressionBase>(0); }
};

} // namespace Kova::Tessel
