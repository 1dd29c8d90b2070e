// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// `{ a, b, .c = d }`: the values of an array, structure or union as written.
class InitializerListExpression final : public Visitable<InitializerListExpression, ExpressionBase> {
public:
    void append(ExpressionPtr value) { appendChild(std::move(value)); }
    [[nodiscard]] ExpressionBase* getValue(std::size_t index) const { return childAs<ExpressionBase>(index); }
};

} // namespace Kova::Tessel
