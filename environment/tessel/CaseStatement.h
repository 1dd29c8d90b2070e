// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/StatementBase.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// A label of the innermost switch around it: `case value:`, `case value ... last:` or `default:`. Marks the statement
/// that follows it in its block.
class CaseStatement final : public Visitable<CaseStatement, StatementBase> {
public:
    /// @param value null for `default`. @param last null unless the label names a range of values.
    CaseStatement(ExpressionPtr value, ExpressionPtr last) {
        appendChild(std::move(value));
        appendChild(std::move(last));
    }

    [[nodiscard]] bool isDefault() const { return getValue() == nullptr; }
    [[nodiscard]] ExpressionBase* getValue() const { return childAs<ExpressionBase>(0); }
    [[nodiscard]] ExpressionBase* getLastValue() const { return childAs<ExpressionBase>(1); }
};

} // namespace Kova::Tessel
