// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/types/Type.h"

namespace Kova::Tessel {

class TypeDeclaration;

/// A type that a declaration gives: a structure, union, enumeration or typedef.
class DeclaredType final : public Type {
public:
    DeclaredType(const TypeDeclaration& declaration, std::uint8_t qualifiers)
        : Type(Kind::Declared, qualifiers),
          m_declaration(declaration) {}

    [[nodiscard]] const TypeDeclaration& getDeclaration() const { return m_declaration; }

private:
    const TypeDeclaration& m_declaration;
};

} // namespace Kova::Tessel
