// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// A range of indices of a Fortran array or string: `lower:upper:stride`, each part of which may be left out.
class SectionExpression final : public Visitable<SectionExpression, ExpressionBase> {
public:
    SectionExpression(ExpressionPtr lower, ExpressionPtr upper, ExpressionPtr stride) {
        appendChild(std::move(lower));
        appendChild(std::move(upper));
        appendChild(std::move(stride));
    }

    [[nodiscard]] ExpressionBase* getLower() const { return childAs<ExpressionBase>(0); }
    [[nodiscard]] ExpressionBase* getUpper() const { return childAs<ExpressionBase>(1); }
    [[nodiscard]] ExpressionBase* getStride() const { return childAs<ExpressionBase>(2); }
};

} // namespace Kova::Tessel
