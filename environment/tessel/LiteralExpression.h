// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/Visitable.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace Kova::Tessel {

/// A constant as the source writes it: a number, a character, a string (several adjacent strings are one literal), a
/// Fortran logical.
class LiteralExpression final : public Visitable<LiteralExpression, ExpressionBase> {
public:
    enum class Kind { Integer, Floating, Character, String, Logical };

    /// @param text as in the source, with quotes, prefixes and suffixes.
    LiteralExpression(Kind kind, std::string text) : m_kind(kind), m_text(std::move(text)) {}

    [[nodiscard]] Kind getKind() const { return m_kind; }
    [[nodiscard]] const std::string& getText() const { return m_text; }

    /// The value of an integer, character or logical; none when it does not fit or is not known.
    [[nodiscard]] std::optional<std::int64_t> getIntegerValue() const { return m_integerValue; }
    void setIntegerValue(std::optional<std::int64_t> value) { m_integerValue = value; }

private:
    Kind m_kind;
    std::string m_text;
    std::optional<std::int64_t> m_integerValue;
};

} // namespace Kova::Tessel
