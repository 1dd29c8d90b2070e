// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/DeclarationBase.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// A Fortran module; the children are its declarations.
class ModuleDeclaration final : public Visitable<ModuleDeclaration, DeclarationBase> {
public:
    explicit ModuleDeclaration(std::string name) : Visitable(std::move(name)) {}

    void append(DeclarationPtr declaration) { appendChild(std::move(declaration)); }
};

} // namespace Kova::Tessel
