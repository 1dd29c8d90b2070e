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
    /// The branch of an `else if`; null for any other else and without one. Its else block is written as the word
    /// alone, without braces.
    [[nodiscard]] IfStatement* getElseIf() const {
        const BlockStatement* block = getElseBlock();
        const bool holdsOne = block != nullptr && block->getChildCount() == 1;
        return holdsOne ? dynamic_cast<IfStatement*>(block->getStatement(0)) : nullptr;
    }
};

} // namespace Kova::Tessel
