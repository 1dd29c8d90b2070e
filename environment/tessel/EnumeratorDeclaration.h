// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/DeclarationBase.h"
#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/Visitable.h"

#include <cstdint>

namespace Kova::Tessel {

/// A named constant of an enumeration.
class EnumeratorDeclaration final : public Visitable<EnumeratorDeclaration, DeclarationBase> {
public:
    /// @param expression the value as written, null when it follows from the enumerator before.
    EnumeratorDeclaration(std::string name, std::int64_t value, ExpressionPtr expression)
        : Visitable(std::move(name)),
          m_value(value) {
        appendChild(std::move(expression));
    }

    [[nodiscard]] std::int64_t getValue() const { return m_value; }
    [[nodiscard]] ExpressionBase* getExpression() const { return childAs<ExpressionBase>(0); }

private:
    std::int64_t m_value;
};

} // namespace Kova::Tessel
