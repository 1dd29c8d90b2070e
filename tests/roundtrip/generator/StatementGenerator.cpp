// SPDX-License-Identifier: MIT
#include "tests/roundtrip/generator/StatementGenerator.h"

namespace Kova::Test {

namespace {

Scope with(Scope scope, const std::string& readable) {
    scope.readable.push_back(readable);
    return scope;
}

} // namespace

std::string StatementGenerator::sequence(const Scope& scope, unsigned depth) {
    std::string text;
    for (unsigned i = 1 + m_random.below(3); i != 0; --i)
        text += statement(scope, depth);
    return text;
}

std::string StatementGenerator::block(const Scope& scope, unsigned depth) {
    return "{\n" + sequence(scope, depth - 1) + "}\n";
}

std::string StatementGenerator::change(const Scope& scope) {
    const std::string& target = m_random.pick(scope.writable);
    const std::string& other = m_random.pick(scope.writable);
    switch (m_random.below(8)) {
    case 0:
        return target + m_random.pick({"++", "--"}) + ";\n";
    case 1:
        return m_random.pick({"++", "--"}) + target + ";\n";
    case 2:
        return target + m_random.pick({" /= ", " %= "}) + "(" + value(scope) + ") | 1u;\n";
    case 3:
        return target + m_random.pick({" <<= ", " >>= "}) + "(" + value(scope) + ") & 31u;\n";
    case 4:
        return "checksum = later = " + value(scope) + ";\n";
    case 5:
        return target + " = " + value(scope) + ", " + other + " ^= " + value(scope) + ";\n";
    case 6:
        return m_random.pick({"note(" + value(scope) + ");\n", "(void) sum(2, " + value(scope) + ", 3u);\n",
                              "__asm__ volatile (\"\" : \"+r\" (checksum) : : \"memory\");\n", ";\n"});
    default:
        return target + m_random.pick({" = ", " += ", " -= ", " *= ", " &= ", " |= ", " ^= "}) + value(scope) + ";\n";
    }
}

std::string StatementGenerator::branch(const Scope& scope, unsigned depth) {
    std::string text = "if (" + m_expressions.condition(scope, 2) + ")\n" + block(scope, depth);
    if (m_random.once(3))
        text += "else if (" + value(scope) + ")\n" + block(scope, depth);
    if (m_random.once(2))
        text += "else\n" + (m_random.once(2) ? change(scope) : block(scope, depth));
    return text;
}

std::string StatementGenerator::forLoop(const Scope& scope, unsigned depth) {
    const std::string i = newName("i");
    const std::string limit = std::to_string(2 + m_random.below(3));
    const Scope inside = with(scope, i);
    const std::string body = sequence(inside, depth - 1);
    switch (m_random.below(5)) {
    case 0:
        return "{ unsigned " + i + " = 0; for (;;) { if (" + i + "++ >= " + limit + "u) break;\n" + body + "} }\n";
    case 1:
        return "for (unsigned " + i + " = 0, " + i + "_end = " + limit + "; " + i + " < " + i + "_end;)\n{ " + i +
               "++;\nif (" + m_expressions.condition(inside, 1) + ") continue;\n" + body + "}\n";
    case 2:
        return "for (struct { unsigned at, other; } " + i + "_s = { 0, 1 }; " + i + "_s.at < " + limit + "u; " + i +
               "_s.at++, " + i + "_s.other *= 3u)\n{ unsigned " + i + " = " + i + "_s.other;\n" + body + "}\n";
    case 3:
        return "{ unsigned " + i + "; for (" + i + " = " + limit + "; " + i + "--;) {\n" + body + "} }\n";
    default:
        return "for (unsigned " + i + " = 0; " + i + " < " + limit + "u; ++" + i + ") {\n" + body + "}\n";
    }
}

std::string StatementGenerator::whileLoop(const Scope& scope, unsigned depth) {
    const std::string n = newName("n");
    const std::string body = sequence(with(scope, n), depth - 1);
    const std::string start = "{ unsigned " + n + " = " + std::to_string(1 + m_random.below(4)) + "u;\n";
    if (m_random.once(2))
        return start + "while (" + n + "-- != 0u && (" + m_expressions.condition(scope, 1) + ")) {\n" + body + "} }\n";
    return start + "do {\n" + body + "} while (--" + n + ");\n}\n";
}

std::string StatementGenerator::choice(const Scope& scope, unsigned depth) {
    std::string text = "switch ((" + value(scope) + ") % 9u) {\n";
    text += "case 0:\n" + change(scope) + "break;\n";
    text += "case 1: case 2:\n" + block(scope, depth) + "/* fall through */\n";
    text += "case 'a' - 94: {\nunsigned s = 1;\n" + change(with(scope, "s")) + "}\n__attribute__((fallthrough));\n";
    if (m_random.once(2))
        text += "default:\n" + change(scope) + "break;\n";
    text += "case 4 ... 6:\n" + change(scope);
    return text + (m_random.once(2) ? "break;\ncase 7:;\n}\n" : "}\n");
}

/// The labels of a switch inside a loop inside it.
std::string StatementGenerator::casesInLoop(const Scope& scope, unsigned depth) {
    const std::string n = newName("n");
    return "{ unsigned " + n + " = 2u;\nswitch ((" + value(scope) + ") & 3u) {\ncase 0: do {\n" + change(scope) +
           "/* FALLTHRU */\ncase 1:\n" + change(scope) + "if (" + m_expressions.condition(scope, 1) +
           ") {\n__attribute__((fallthrough)); case 2:\n" + sequence(scope, depth - 1) + "}\n} while (" + n +
           "--);\ndefault:;\n} }\n";
}

std::string StatementGenerator::jumps(const Scope& scope, unsigned depth) {
    const std::string label = newName("label");
    const std::string n = newName("n");
    if (scope.canBeJumpedTo && m_random.once(3))
        return "{ static const void *const " + n + "[] = { &&" + label + "_a, &&" + label + "_b };\ngoto *" + n + "[(" +
               value(scope) + ") % 2u];\n" + label + "_a:\n" + change(scope) + label + "_b:\n" + change(scope) + "}\n";
    return "{ unsigned " + n + " = 0;\n" + label + ":\n" + sequence(scope, depth - 1) + "if (" + n + "++ < 2u) goto " +
           label + ";\nif (" + m_expressions.condition(scope, 1) + ") goto " + label + "_end;\n" +
           sequence(with(scope, n), depth - 1) + label + "_end:;\n}\n";
}

std::string StatementGenerator::declarations(const Scope& scope, unsigned depth) {
    const std::string a = newName("a");
    Scope inside = scope;
    inside.readable.insert(inside.readable.end(), {a, "(*" + a + "_p)"});
    inside.writable.insert(inside.writable.end(), {a, "(*" + a + "_p)"});
    inside.arrays.push_back(a + "_v");
    return "{ " + m_random.pick({"register ", "", "auto "}) + "unsigned " + a + " = " + value(scope) + ";\nunsigned " +
           a + "_o = 1u, *" + a + "_p = &" + a + "_o, " + a + "_v[8] = { [2] = " + value(scope) +
           ", 5u, [7] = 1u };\nstatic unsigned " + a + "_s;\n" + a + "_s++;\n" + sequence(inside, depth - 1) +
           "checksum += " + a + " ^ " + a + "_s;\n}\n";
}

std::string StatementGenerator::variableArray(const Scope& scope, unsigned depth) {
    const std::string v = newName("v");
    Scope inside = scope;
    inside.arrays.push_back(v + "[1]");
    inside.canBeJumpedTo = false;
    return "{ unsigned " + v + "_n = 8u + (" + value(scope) + ") % 3u, " + v + "[2][" + v + "_n], (*" + v + "_p)[" + v +
           "_n] = " + v + ";\nfor (unsigned k = 0; k < 2u * " + v + "_n; ++k) " + v + "_p[k / " + v + "_n][k % " + v +
           "_n] = k;\n" + sequence(inside, depth - 1) + "checksum ^= (unsigned) sizeof " + v + " + " + v +
           "[1][7];\n}\n";
}

std::string StatementGenerator::localTypes(const Scope& scope, unsigned depth) {
    const std::string r = newName("r");
    Scope inside = scope;
    inside.readable.insert(inside.readable.end(), {r + "_a.x", r + "_b->in.low", "(unsigned) " + r + "_two"});
    inside.writable.insert(inside.writable.end(), {r + "_a.x", r + "_b->x"});
    return "{ struct " + r + " { unsigned x; struct { unsigned low : 5, : 3, high : 9; } in; } " + r + "_a = { " +
           value(scope) + ", .in.low = 9 }, *" + r + "_b = &" + r + "_a;\nenum { " + r + "_one = 1, " + r +
           "_two };\n" + sequence(inside, depth - 1) + "checksum += " + r + "_b->x + " + r + "_a.in.low;\n}\n";
}

std::string StatementGenerator::statement(const Scope& scope, unsigned depth) {
    if (depth == 0)
        return change(scope);
    switch (m_random.below(12)) {
    case 0:
        return branch(scope, depth);
    case 1:
        return forLoop(scope, depth);
    case 2:
        return whileLoop(scope, depth);
    case 3:
        return choice(scope, depth);
    case 4:
        return casesInLoop(scope, depth);
    case 5:
        return jumps(scope, depth);
    case 6:
        return declarations(scope, depth);
    case 7:
        return m_random.once(2) ? variableArray(scope, depth) : localTypes(scope, depth);
    case 8:
        return block(scope, depth);
    default:
        return change(scope);
    }
}

} // namespace Kova::Test
