// SPDX-License-Identifier: MIT
#pragma once

#include "tests/roundtrip/generator/Random.h"
#include "tests/roundtrip/generator/Scope.h"

#include <string>

namespace Kova::Test {

/// Writes expressions of type unsigned int: without side effects, and defined whatever the variables hold. Every
/// operand of an operator is in parentheses, so that how the operators bind is the printer's business alone.
class ExpressionGenerator {
public:
    explicit ExpressionGenerator(Random& random) : m_random(random) {}

    /// @param depth how many operators may stand inside each other.
    [[nodiscard]] std::string value(const Scope& scope, unsigned depth);
    /// Of type int, 0 or 1.
    [[nodiscard]] std::string condition(const Scope& scope, unsigned depth);
    [[nodiscard]] std::string literal();
    /// A string literal of at least eight characters.
    [[nodiscard]] std::string text();

private:
    [[nodiscard]] std::string leaf(const Scope& scope);
    [[nodiscard]] std::string binary(const Scope& scope, unsigned depth);
    [[nodiscard]] std::string unary(const Scope& scope, unsigned depth);
    [[nodiscard]] std::string choice(const Scope& scope, unsigned depth);
    [[nodiscard]] std::string access(const Scope& scope, unsigned depth);
    [[nodiscard]] std::string call(const Scope& scope, unsigned depth);
    [[nodiscard]] std::string cast(const Scope& scope, unsigned depth);
    [[nodiscard]] std::string size(const Scope& scope, unsigned depth);
    [[nodiscard]] std::string extension(const Scope& scope, unsigned depth);

    Random& m_random;
};

} // namespace Kova::Test
