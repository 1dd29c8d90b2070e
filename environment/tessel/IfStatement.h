// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/ExpressionBase.h"

namespace Kova::Tessel {

/// A branch on a condition. An `else if` is an else block that holds one if.
class IfStatement final : public Visitable<IfStatement, StatementBase> {
public:
    /// @param elseBlock null without an else.
    IfStatement(ExpressionPtr condition, std::unique_ptr<BlockStatement> thenBlock,
                std::unique_ptr<BlockStatement> elseBlock) {
        appendChild(std::move(condition));
        appendChild(std::move(thenBlock));
        appendChild(std::move(elseBlock));
    }

    [[nodiscard]] ExpressionBase* getCondition() const { return childAs<ExpressionBase>(0); }
    [[nodiscard]] BlockStatement* getThenBlock() const { return childAs<BlockStatement>(1); }
    [[nodiscard]] BlockStatement* getElseBlock() const { return childAs<BlockStatement>(2); }
};

} // namespace Kova::Tessel
