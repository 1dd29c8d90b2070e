// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

class EnumeratorDeclaration;

/// A constant of an enumeration named in an expression.
class EnumeratorReference final : public Visitable<EnumeratorReference, ExpressionBase> {
public:
    explicit EnumeratorReference(EnumeratorDeclaration& enumerator) : m_enumerator(enumerator) {}

    [[nodiscard]] EnumeratorDeclaration& getEnumerator() const { return m_enumerator; }

private:
    EnumeratorDeclaration& m_enumerator;
};

} // namespace Kova::Tessel
