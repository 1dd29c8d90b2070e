// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// GNU `({ statements; })`: its value is that of the last statement.
class StatementExpression final : public Visitable<StatementExpression, ExpressionBase> {
public:
    explicit StatementExpression(std::unique_ptr<BlockStatement> block) { appendChild(std::move(block)); }

    [[nodiscard]] BlockStatement* getBlock() const { return childAs<BlockStatement>(0); }
};

} // namespace Kova::Tessel
