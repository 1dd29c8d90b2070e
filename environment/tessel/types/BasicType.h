// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/types/Type.h"

#include <string>
#include <utility>

namespace Kova::Tessel {

/// An arithmetic type of the language, or void.
class BasicType final : public Type {
public:
    enum class Category { Void, Boolean, Character, SignedInteger, UnsignedInteger, Floating, Complex };

    /// @param name as the language spells it: "unsigned long", "DOUBLE PRECISION".
    /// @param bits the size of a value; 0 for void or when unknown.
    BasicType(std::string name, Category category, unsigned bits, std::uint8_t qualifiers)
        : Type(Kind::Basic, qualifiers),
          m_name(std::move(name)),
          m_category(category),
          m_bits(bits) {}

    [[nodiscard]] const std::string& getName() const { return m_name; }
    [[nodiscard]] Category getCategory() const { return m_category; }
    [[nodiscard]] unsigned getBits() const { return m_bits; }

private:
    std::string m_name;
    Category m_category;
    unsigned m_bits;
};

} // namespace Kova::Tessel
