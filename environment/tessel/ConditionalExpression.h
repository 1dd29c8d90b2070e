// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// `condition ? first : second`; GNU C may leave the middle out, which then is the condition's value.
class ConditionalExpression final : public Visitable<ConditionalExpression, ExpressionBase> {
public:
    /// @param first null when left out.
    ConditionalExpression(ExpressionPtr condition, ExpressionPtr first, ExpressionPtr second) {
        appendChild(std::move(condition));
        appendChild(std::move(first));
        appendChild(std::move(second));
    }

    [[nodiscard]] ExpressionBase* getCondition() const { return childAs<ExpressionBase>(0); }
    [[nodiscard]] ExpressionBase* getFirst() const { return childAs<ExpressionBase>(1); }
    [[nodiscard]] ExpressionBase* getSecond() const { return childAs<ExpressionBase>(2); }
};

} // namespace Kova::Tessel
