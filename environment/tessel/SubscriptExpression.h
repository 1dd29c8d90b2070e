// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// An element of an array: `base[index]` in C, `base(i, j)` in Fortran.
class SubscriptExpression final : public Visitable<SubscriptExpression, ExpressionBase> {
public:
    SubscriptExpression(ExpressionPtr base, ExpressionPtr index) {
        appendChild(std::move(base));
        appendChild(std::move(index));
    }

    [[nodiscard]] ExpressionBase* getBase() const { return childAs<ExpressionBase>(0); }
    /// 1 in C; the rank of the array in Fortran.
    [[nodiscard]] std::size_t getIndexCount() const { return getChildCount() - 1; }
    [[nodiscard]] ExpressionBase* getIndex(std::size_t number = 0) const { return childAs<ExpressionBase>(number + 1); }
    void appendIndex(ExpressionPtr index) { appendChild(std::move(index)); }
};

} // namespace Kova::Tessel
