// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/StatementBase.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// An expression evaluated for its effects: an assignment, a call.
class ExpressionStatement final : public Visitable<ExpressionStatement, StatementBase> {
public:
    explicit ExpressionStatement(ExpressionPtr expression) { appendChild(std::move(expression)); }

    [[nodiscard]] ExpressionBase* getExpression() const { return childAs<ExpressionBase>(0); }
};

} // namespace Kova::Tessel
