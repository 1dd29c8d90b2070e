// SPDX-License-Identifier: MIT
#pragma once

#include "tests/roundtrip/generator/ExpressionGenerator.h"

#include <string>

namespace Kova::Test {

/// Writes statements that come to their end: every loop and backward jump has a counter of its own that nothing else
/// changes. Names of counters, labels and variables are unique in the program.
class StatementGenerator {
public:
    explicit StatementGenerator(Random& random) : m_random(random), m_expressions(random) {}

    /// Some statements, without braces around them.
    /// @param depth how many statements may stand inside each other.
    [[nodiscard]] std::string sequence(const Scope& scope, unsigned depth);

private:
    [[nodiscard]] std::string statement(const Scope& scope, unsigned depth);
    [[nodiscard]] std::string block(const Scope& scope, unsigned depth);
    [[nodiscard]] std::string change(const Scope& scope);
    [[nodiscard]] std::string branch(const Scope& scope, unsigned depth);
    [[nodiscard]] std::string forLoop(const Scope& scope, unsigned depth);
    [[nodiscard]] std::string whileLoop(const Scope& scope, unsigned depth);
    [[nodiscard]] std::string choice(const Scope& scope, unsigned depth);
    [[nodiscard]] std::string casesInLoop(const Scope& scope, unsigned depth);
    [[nodiscard]] std::string jumps(const Scope& scope, unsigned depth);
    [[nodiscard]] std::string declarations(const Scope& scope, unsigned depth);
    [[nodiscard]] std::string variableArray(const Scope& scope, unsigned depth);
    [[nodiscard]] std::string localTypes(const Scope& scope, unsigned depth);

    [[nodiscard]] std::string newName(const char* prefix) { return prefix + std::to_string(m_names++); }
    [[nodiscard]] std::string value(const Scope& scope) { return m_expressions.value(scope, 2); }

    Random& m_random;
    ExpressionGenerator m_expressions;
    unsigned m_names = 0;
};

} // namespace Kova::Test
