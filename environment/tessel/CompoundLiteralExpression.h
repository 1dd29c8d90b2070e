// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// `(type) { values }`: an unnamed object. The expression's type is the object's.
class CompoundLiteralExpression final : public Visitable<CompoundLiteralExpression, ExpressionBase> {
public:
    CompoundLiteralExpression(const Type* type, ExpressionPtr initializer) {
        setType(type);
        appendChild(std::move(initializer));
    }

    [[nodiscard]] ExpressionBase* getInitializer() const { return childAs<ExpressionBase>(0); }
};

} // namespace Kova::Tessel
