// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/DeclarationBase.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// A declaration that the tree has no class for, such as a static assertion: prints as its source text.
class OpaqueDeclaration final : public Visitable<OpaqueDeclaration, DeclarationBase> {
public:
    /// @param text as in the source, with its semicolon.
    explicit OpaqueDeclaration(std::string text) : Visitable(std::string()), m_text(std::move(text)) {}

    [[nodiscard]] const std::string& getText() const { return m_text; }

private:
    std::string m_text;
};

} // namespace Kova::Tessel
