// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

class SubroutineDeclaration;

/// A call. Child 0 is what is called, the arguments follow.
class SubroutineCallExpression final : public Visitable<SubroutineCallExpression, ExpressionBase> {
public:
    explicit SubroutineCallExpression(ExpressionPtr callee) { appendChild(std::move(callee)); }

    [[nodiscard]] ExpressionBase* getCallee() const { return childAs<ExpressionBase>(0); }
    /// The subroutine that is called by its name, be it written `f()`, `(*f)()` or `(&f)()`, or be `f` what a generic
    /// selection chooses; null for a call through a pointer.
    [[nodiscard]] SubroutineDeclaration* getSubroutine() const;

    [[nodiscard]] std::size_t getArgumentCount() const { return getChildCount() - 1; }
    [[nodiscard]] ExpressionBase* getArgument(std::size_t index) const { return childAs<ExpressionBase>(index + 1); }
    void appendArgument(ExpressionPtr argument) { appendChild(std::move(argument)); }
};

} // namespace Kova::Tessel
