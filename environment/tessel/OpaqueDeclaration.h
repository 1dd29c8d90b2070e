// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/DeclarationBase.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// A declaration that the tree has no class for, such as a static assertion, or a directive among declarations: prints
/// as its source text.
class OpaqueDeclaration final : public Visitable<OpaqueDeclaration, DeclarationBase> {
public:
    /// @param text as in the source, with its semicolon; a directive has none.
    explicit OpaqueDeclaration(std::string text) : Visitable(std::string()), m_text(std::move(text)) {}

    [[nodiscard]] const std::string& getText() const { return m_text; }
    /// True for a line of the preprocessor, such as `#pragma weak f`, which needs a line of its own.
    [[nodiscard]] bool isDirective() const { return !m_text.empty() && m_text.front() == '#'; }

private:
    std::string m_text;
};

} // namespace Kova::Tessel
