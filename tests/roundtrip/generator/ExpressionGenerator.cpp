// SPDX-License-Identifier: MIT
#include "tests/roundtrip/generator/ExpressionGenerator.h"

#include <cstdio>

namespace Kova::Test {

std::string ExpressionGenerator::literal() {
    const unsigned n = m_random.below(1000);
    const char escapes[][8] = {"'a'", "'\\n'", "'\\''", "'\"'", "'\\\\'", "'\\x41'", "'\\101'", "'\\0'", "'?'"};
    char spelled[40];
    switch (m_random.below(9)) {
    case 0:
        std::snprintf(spelled, sizeof spelled, "0x%Xu", n * 4099);
        return spelled;
    case 1:
        std::snprintf(spelled, sizeof spelled, "0%oU", n);
        return spelled;
    case 2:
        return "(unsigned) " + std::string(escapes[m_random.below(9)]);
    case 3:
        return "(unsigned) " + std::to_string(n) + m_random.pick({".5", ".25e1", ".f", ".0L"});
    case 4:
        return "(unsigned) " + std::to_string(n) + m_random.pick({"ull", "LL", "l", "ul", ""});
    case 5:
        return "0b" + std::string(n % 2 == 0 ? "1011" : "1") + "u";
    case 6:
        return "(unsigned) 0x1." + std::to_string(n % 10) + "p4";
    default:
        return std::to_string(n) + "u";
    }
}

std::string ExpressionGenerator::text() {
    std::string text = "\"";
    for (int i = 0; i < 8; ++i)
        text += m_random.pick({"a", "Z", "7", " ", "\\n", "\\t", "\\\\", "\\\"", "\\x1f\" \"", "\\7\" \"", "\\033",
                               "?\\?=", "'", "%%", "\\u00e9", "\xc3\xa4", "/*", "//"});
    return text + (m_random.once(3) ? "\"\n        \"" : "") + "\"";
}

std::string ExpressionGenerator::leaf(const Scope& scope) {
    return m_random.once(3) || scope.readable.empty() ? literal() : m_random.pick(scope.readable);
}

std::string ExpressionGenerator::binary(const Scope& scope, unsigned depth) {
    const std::string a = "(" + value(scope, depth - 1) + ")";
    const std::string b = "(" + value(scope, depth - 1) + ")";
    switch (m_random.below(8)) {
    case 0:
        return a + m_random.pick({" / ", " % "}) + "(" + b + " | 1u)";
    case 1:
        return a + m_random.pick({" << ", " >> "}) + "(" + b + " & 31u)";
    default:
        return a + m_random.pick({" + ", " - ", " * ", " & ", " | ", " ^ "}) + b;
    }
}

std::string ExpressionGenerator::unary(const Scope& scope, unsigned depth) {
    const std::string operand = value(scope, depth - 1);
    if (m_random.once(4))
        return "(unsigned) !(" + operand + ")";
    return m_random.pick({"-", "~", "+", "- -", "-~"}) + "(" + operand + ")";
}

std::string ExpressionGenerator::condition(const Scope& scope, unsigned depth) {
    if (depth > 1 && m_random.once(2))
        return "(" + condition(scope, depth - 1) + ")" + m_random.pick({" && ", " || ", " == ", " != ", " < ", " & "}) +
               "(" + condition(scope, depth - 1) + ")";
    const unsigned inner = depth > 0 ? depth - 1 : 0;
    return "(" + value(scope, inner) + ")" + m_random.pick({" < ", " <= ", " > ", " >= ", " == ", " != "}) + "(" +
           value(scope, inner) + ")";
}

std::string ExpressionGenerator::choice(const Scope& scope, unsigned depth) {
    const std::string first = value(scope, depth - 1);
    const std::string second = value(scope, depth - 1);
    switch (m_random.below(4)) {
    case 0:
        return "(" + first + ") ?: (" + second + ")";
    case 1:
        return "_Generic(" + leaf(scope) + m_random.pick({", unsigned: ", ", int: 0u, unsigned int: "}) + "(" + first +
               "), default: (" + second + "))";
    case 2:
        return "(unsigned) (" + condition(scope, depth - 1) + ")";
    default:
        return "(" + condition(scope, depth - 1) + ") ? (" + first + ") : (" + second + ")";
    }
}

std::string ExpressionGenerator::access(const Scope& scope, unsigned depth) {
    const std::string index = "(" + value(scope, depth - 1) + ") % 8u";
    const std::string& array = m_random.pick(scope.arrays);
    switch (m_random.below(6)) {
    case 0:
        return "*(" + array + " + (" + index + "))";
    case 1:
        return "(" + index + ")[" + array + "]";
    case 2:
        return "((unsigned[]) { " + leaf(scope) + ", [3 ... 5] = " + leaf(scope) + ", [7] = 1u })[" + index + "]";
    case 3:
        return "(unsigned) (unsigned char) " + text() + "[" + index + "]";
    case 4:
        return "((struct point) { .y = " + leaf(scope) + ", .x = " + value(scope, depth - 1) + " })" +
               m_random.pick({".x", ".y"});
    default:
        return array + "[" + index + "]";
    }
}

std::string ExpressionGenerator::call(const Scope& scope, unsigned depth) {
    const std::string arguments = "(" + value(scope, depth - 1) + ", " + value(scope, depth - 1) + ")";
    switch (m_random.below(5)) {
    case 0:
        return "operations[(" + leaf(scope) + ") % 3u]" + arguments;
    case 1:
        return "(*operations[" + std::to_string(m_random.below(3)) + "])" + arguments;
    case 2:
        return "make_point" + arguments + m_random.pick({".x", ".y"});
    case 3:
        return "choose_operation(" + leaf(scope) + ")" + arguments;
    default:
        return (scope.functions.empty() ? "mix" : m_random.pick(scope.functions)) + arguments;
    }
}

std::string ExpressionGenerator::cast(const Scope& scope, unsigned depth) {
    const std::string operand = value(scope, depth - 1);
    if (m_random.once(4))
        return "(unsigned) ((double) ((" + operand + ") & 1023u) * 0.5)";
    return "(unsigned) " +
           m_random.pick({"(unsigned char)", "(signed char)", "(short)", "(long long)", "(const unsigned)", "(word)"}) +
           " (" + operand + ")";
}

std::string ExpressionGenerator::size(const Scope& scope, unsigned depth) {
    const std::string asked = m_random.pick({"sizeof (struct point)", "sizeof (unsigned (*)[8])",
                                             "sizeof (operation *[3])", "_Alignof(double)", "sizeof (const char *)",
                                             "sizeof *operations", "__alignof__ (union number)"});
    return "(unsigned) " + (m_random.once(3) ? "sizeof (+(" + value(scope, depth - 1) + "))" : asked);
}

std::string ExpressionGenerator::extension(const Scope& scope, unsigned depth) {
    const std::string name = "t" + std::to_string(m_random.below(100)) + "_" + std::to_string(depth);
    return "({ unsigned " + name + " = " + value(scope, depth - 1) + "; " + name + " " +
           m_random.pick({"+=", "^=", "*=", "|="}) + " " + leaf(scope) + "; " + name + "; })";
}

std::string ExpressionGenerator::value(const Scope& scope, unsigned depth) {
    if (depth == 0)
        return leaf(scope);
    switch (m_random.below(12)) {
    case 0:
        return unary(scope, depth);
    case 1:
    case 2:
        return choice(scope, depth);
    case 3:
    case 4:
        return access(scope, depth);
    case 5:
        return call(scope, depth);
    case 6:
        return cast(scope, depth);
    case 7:
        return m_random.once(2) ? size(scope, depth) : leaf(scope);
    case 8:
        return m_random.once(2) ? extension(scope, depth) : binary(scope, depth);
    default:
        return binary(scope, depth);
    }
}

} // namespace Kova::Test
