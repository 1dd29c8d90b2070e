// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

class VariableDeclaration;

/// A variable named in an expression: the occurrence that analyses speak of.
class VariableReference final : public Visitable<VariableReference, ExpressionBase> {
public:
    /// @param variable not owned; outlives the reference.
    explicit VariableReference(VariableDeclaration& variable) : m_variable(variable) {}

    [[nodiscard]] VariableDeclaration& getVariable() const { return m_variable; }

private:
    VariableDeclaration& m_variable;
};

} // namespace Kova::Tessel
