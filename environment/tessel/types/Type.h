// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace Kova::Tessel {

/// What a value or function is. Types are immutable, owned and made unique by a TypeTable: equal types of one program
/// are the same object, except those that refer to bounds in the tree.
class Type {
public:
    enum class Kind { Basic, Pointer, Array, Function, Declared, Opaque };

    /// Bits of getQualifiers().
    enum Qualifier : std::uint8_t { NoQualifier = 0, Const = 1, Volatile = 2, Restrict = 4, Atomic = 8 };

    virtual ~Type() = default;
    Type(const Type&) = delete;
    Type& operator=(const Type&) = delete;

    [[nodiscard]] Kind getKind() const { return m_kind; }
    [[nodiscard]] std::uint8_t getQualifiers() const { return m_qualifiers; }
    [[nodiscard]] bool isConst() const { return (m_qualifiers & Const) != 0; }

protected:
    Type(Kind kind, std::uint8_t qualifiers) : m_kind(kind), m_qualifiers(qualifiers) {}

private:
    Kind m_kind;
    std::uint8_t m_qualifiers;
};

} // namespace Kova::Tessel
