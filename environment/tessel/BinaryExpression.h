// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/Operators.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// An operator between two operands, assignments apart.
class BinaryExpression final : public Visitable<BinaryExpression, ExpressionBase> {
public:
    BinaryExpression(BinaryOperator operation, ExpressionPtr left, ExpressionPtr right) : m_operation(operation) {
        appendChild(std::move(left));
        appendChild(std::move(right));
    }

    [[nodiscard]] BinaryOperator getOperator() const { return m_operation; }
    [[nodiscard]] ExpressionBase* getLeft() const { return childAs<ExpressionBase>(0); }
    [[nodiscard]] ExpressionBase* getRight() const { return childAs<ExpressionBase>(1); }

private:
    BinaryOperator m_operation;
};

} // namespace Kova::Tessel
