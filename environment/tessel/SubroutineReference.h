// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

class SubroutineDeclaration;

/// A subroutine named in an expression, as what is called or as a value.
class SubroutineReference final : public Visitable<SubroutineReference, ExpressionBase> {
public:
    /// @param subroutine not owned; the translation unit's implementation where it has one, else a prototype.
    explicit SubroutineReference(SubroutineDeclaration& subroutine) : m_subroutine(subroutine) {}

    [[nodiscard]] SubroutineDeclaration& getSubroutine() const { return m_subroutine; }

private:
    SubroutineDeclaration& m_subroutine;
};

} // namespace Kova::Tessel
