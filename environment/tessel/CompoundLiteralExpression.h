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

    /// True for an array whose first brackets are empty in the source: `(int[]) { 1, 2 }`.
    [[nodiscard]] bool isLengthLeftOut() const { return m_lengthLeftOut; }
    void setLengthLeftOut(bool leftOut) { m_lengthLeftOut = leftOut; }

private:
    bool m_lengthLeftOut = false;
};

} // namespace Kova::Tessel
