// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/Operators.h"
#include "environment/tessel/Visitable.h"

#include <optional>

namespace Kova::Tessel {

/// `target = value`, or `target op= value`, which reads its target first.
class AssignmentExpression final : public Visitable<AssignmentExpression, ExpressionBase> {
public:
    /// @param operation the operator of a compound assignment; none for a plain one.
    AssignmentExpression(ExpressionPtr target, ExpressionPtr value,
                         std::optional<BinaryOperator> operation = std::nullopt)
        : m_operation(operation) {
        appendChild(std::move(target));
        appendChild(std::move(value));
    }

    [[nodiscard]] ExpressionBase* getTarget() const { return childAs<ExpressionBase>(0); }
    [[nodiscard]] ExpressionBase* getValue() const { return childAs<ExpressionBase>(1); }
    [[nodiscard]] bool isCompound() const { return m_operation.has_value(); }
    [[nodiscard]] std::optional<BinaryOperator> getOperator() const { return m_operation; }

private:
    std::optional<BinaryOperator> m_operation;
};

} // namespace Kova::Tessel
