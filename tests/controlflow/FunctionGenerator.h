// SPDX-License-Identifier: MIT
#pragma once

#include "tests/roundtrip/generator/Random.h"

#include <string>
#include <vector>

namespace Kova::Test {

/// Writes C files of one function each, in which control goes every way that C knows: nested branches, loops and
/// switches, jumps forward, backward and into bodies, calls that never return, conditions that are constants. Each
/// statement begins on a line of its own. The same seed gives the same text.
class FunctionGenerator {
public:
    explicit FunctionGenerator(unsigned seed) : m_random(seed) {}

    [[nodiscard]] std::string write();

private:
    /// What a jump may leave where a statement stands.
    struct Around {
        bool loop = false;
        /// Null outside of a switch; else the value of its next label.
        int* nextCase = nullptr;
        /// Labels must not stand where no jump may lead to.
        bool isInExpression = false;
    };

    void line(const std::string& text) { m_text += std::string(m_indent, ' ') + text + '\n'; }
    [[nodiscard]] std::string operand() { return m_random.pick({"a", "b", "c", "d", "a + 1", "g(b)", "c * d"}); }
    [[nodiscard]] std::string condition(unsigned depth);
    [[nodiscard]] std::string constant();
    [[nodiscard]] std::string value(unsigned depth);
    [[nodiscard]] std::string label() { return "L" + std::to_string(m_random.below(m_labels)); }

    void writeStatements(unsigned count, const Around& around, unsigned depth);
    void writeStatement(const Around& around, unsigned depth);
    void writeLabels(const Around& around);
    void writeSimple();
    void writeJump(const Around& around);
    void writeBranch(const Around& around, unsigned depth);
    void writeLoop(const Around& around, unsigned depth);
    void writeSwitch(const Around& around, unsigned depth);
    void writeStatementExpression(const Around& around, unsigned depth);
    void writeBody(const std::string& head, const Around& around, unsigned depth, const std::string& behind = {});

    Random m_random;
    std::string m_text;
    std::size_t m_indent = 4;
    unsigned m_labels = 0;
    unsigned m_placed = 0;
    bool m_computes = false;
    /// Whether conditions are without constants and calls that never return.
    bool m_isPlain = false;
    int m_variables = 0;
};

} // namespace Kova::Test
