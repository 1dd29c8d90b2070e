// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// A conversion that the source writes: `(type) operand`. The expression's type is the one converted to; bounds that
/// the type mentions are children after the operand.
class CastExpression final : public Visitable<CastExpression, ExpressionBase> {
public:
    CastExpression(const Type* type, ExpressionPtr operand) {
        setType(type);
        appendChild(std::move(operand));
    }

    [[nodiscard]] ExpressionBase* getOperand() const { return childAs<ExpressionBase>(0); }
    void appendBound(ExpressionPtr bound) { appendChild(std::move(bound)); }
};

} // namespace Kova::Tessel
