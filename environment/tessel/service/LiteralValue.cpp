// SPDX-License-Identifier: MIT
#include "environment/tessel/service/LiteralValue.h"

#include "environment/tessel/LiteralExpression.h"

#include <charconv>
#include <string_view>

namespace Kova::Tessel::Service {

namespace {

/// All digits of the text in the base; none when there are other characters, or none.
std::optional<std::int64_t> readDigits(std::string_view digits, int base) {
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
    const bool isRead = error == std::errc() && end == digits.data() + digits.size() && !digits.empty();
    return isRead && value >= 0 ? std::optional(value) : std::nullopt;
}

std::optional<std::int64_t> readInteger(std::string_view text) {
    // Fortran names the kind behind an underscore.
    text = text.substr(0, text.find('_'));
    const bool isHexadecimal = text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
    const bool isBinary = text.size() > 2 && text[0] == '0' && (text[1] == 'b' || text[1] == 'B');
    while (!text.empty() && std::string_view("uUlLzZ").find(text.back()) != std::string_view::npos)
        text.remove_suffix(1);
    if (isHexadecimal || isBinary)
        return readDigits(text.substr(2), isHexadecimal ? 16 : 2);
    return readDigits(text, text.size() > 1 && text[0] == '0' ? 8 : 10);
}

std::optional<std::int64_t> readEscape(std::string_view escape) {
    constexpr std::string_view letters = "abfnrtv\\'\"?";
    constexpr std::string_view meanings = "\a\b\f\n\r\t\v\\'\"?";
    if (escape.size() == 1)
        if (const std::size_t position = letters.find(escape[0]); position != std::string_view::npos)
            return meanings[position];
    const std::optional<std::int64_t> value =
        escape[0] == 'x' ? readDigits(escape.substr(1), 16) : readDigits(escape, 8);
    return value && *value < 128 ? value : std::nullopt;
}

std::optional<std::int64_t> readCharacter(std::string_view text) {
    if (text.size() < 3 || text.front() != '\'' || text.back() != '\'')
        return std::nullopt;
    const std::string_view inside = text.substr(1, text.size() - 2);
    if (inside.size() == 1 && inside[0] != '\\')
        return static_cast<unsigned char>(inside[0]) < 128 ? std::optional<std::int64_t>(inside[0]) : std::nullopt;
    return inside.size() > 1 && inside[0] == '\\' ? readEscape(inside.substr(1)) : std::nullopt;
}

} // namespace

std::optional<std::int64_t> valueOf(const LiteralExpression& literal) {
    if (literal.getIntegerValue())
        return literal.getIntegerValue();
    switch (literal.getKind()) {
    case LiteralExpression::Kind::Integer:
        return readInteger(literal.getText());
    case LiteralExpression::Kind::Character:
        return readCharacter(literal.getText());
    default:
        return std::nullopt;
    }
}

} // namespace Kova::Tessel::Service
