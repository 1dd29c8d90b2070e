// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/LoopStatement.h"

namespace Kova::Tessel {

/// A loop whose condition is tested before each iteration.
class WhileStatement final : public Visitable<WhileStatement, LoopStatement> {
public:
    WhileStatement(ExpressionPtr condition, std::unique_ptr<BlockStatement> body) {
        appendChild(std::move(condition));
        appendChild(std::move(body));
    }

    [[nodiscard]] ExpressionBase* getCondition() const { return childAs<ExpressionBase>(0); }
    [[nodiscard]] BlockStatement* getBody() const override { return childAs<BlockStatement>(1); }
};

} // namespace Kova::Tessel
