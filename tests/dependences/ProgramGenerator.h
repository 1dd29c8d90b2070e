// SPDX-License-Identifier: MIT
#pragma once

#include <random>
#include <string>
#include <vector>

namespace Kova::Test {

/// Writes functions `void f(int n, int m, unsigned u, int a[], int b[][40], int c[])` of nested loops and branches,
/// with the loop counters i, j, k and x, y, z (unsigned). The same seed gives the same text.
class ProgramGenerator {
public:
    enum class Kind {
        /// All that decides what is executed and accessed is affine, and no jump leaves a loop.
        Affine,
        /// Values from memory decide as well; loops of all kinds; jumps forward out of loops.
        Any
    };

    ProgramGenerator(unsigned seed, Kind kind) : m_random(seed), m_kind(kind) {}

    [[nodiscard]] std::string write();

private:
    [[nodiscard]] int number(int from, int to);
    [[nodiscard]] bool chance(int percent) { return number(1, 100) <= percent; }
    template <class... Texts>
    [[nodiscard]] std::string oneOf(Texts... texts) {
        const std::vector<std::string> all{texts...};
        return all[static_cast<std::size_t>(number(0, static_cast<int>(all.size()) - 1))];
    }

    [[nodiscard]] std::string term();
    [[nodiscard]] std::string sum();
    [[nodiscard]] std::string affine(int depth);
    [[nodiscard]] std::string comparison();
    [[nodiscard]] std::string condition(int depth);
    [[nodiscard]] std::string lvalue();
    [[nodiscard]] std::string value();
    void line(const std::string& text) { m_text += std::string(4 * (1 + m_indent), ' ') + text + '\n'; }

    void writeStatements(int count);
    void writeStatement();
    void writeAssignment();
    void writeBranch();
    void writeSwitch();
    void writeDeclaration();
    void writeLoop();
    void writeForLoop();
    void writeUnsignedLoop();
    void writeWhileLoop();
    void writeSkip();

    std::mt19937 m_random;
    Kind m_kind;
    std::string m_text;
    std::size_t m_indent = 0;
    std::vector<std::string> m_counters;
    std::vector<std::string> m_values;
    int m_declared = 0;
    int m_loops = 0;
    int m_budget = 14;
    /// Loops around the present point.
    int m_depth = 0;
};

} // namespace Kova::Test
