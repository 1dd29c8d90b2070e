// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/LoopStatement.h"

namespace Kova::Tessel {

/// A loop whose condition is tested after each iteration.
class DoWhileStatement final : public Visitable<DoWhileStatement, LoopStatement> {
public:
    DoWhileStatement(std::unique_ptr<BlockStatement> body, ExpressionPtr condition) {
        appendChild(std::move(body));
        appendChild(std::move(condition));
    }

    [[nodiscard]] BlockStatement* getBody() const override { return childAs<BlockStatement>(0); }
    [[nodiscard]] ExpressionBase* getCondition() const { return childAs<ExpressionBase>(1); }
};

} // namespace Kova::Tessel
