// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/DeclarationBase.h"
#include "environment/tessel/StatementBase.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// Declarations among statements; `int i, j;` is one statement with two declarations.
class DeclarationStatement final : public Visitable<DeclarationStatement, StatementBase> {
public:
    void append(DeclarationPtr declaration) { appendChild(std::move(declaration)); }
    [[nodiscard]] DeclarationBase* getDeclaration(std::size_t index) const { return childAs<DeclarationBase>(index); }
};

} // namespace Kova::Tessel
