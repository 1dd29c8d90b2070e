// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/Operators.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// An operator before or after one operand.
class UnaryExpression final : public Visitable<UnaryExpression, ExpressionBase> {
public:
    UnaryExpression(UnaryOperator operation, ExpressionPtr operand) : m_operation(operation) {
        appendChild(std::move(operand));
    }

    [[nodiscard]] UnaryOperator getOperator() const { return m_operation; }
    [[nodiscard]] ExpressionBase* getOperand() const { return childAs<ExpressionBase>(0); }

private:
    UnaryOperator m_operation;
};

} // namespace Kova::Tessel
