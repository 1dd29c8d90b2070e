// SPDX-License-Identifier: MIT
#include "tests/controlflow/FunctionGenerator.h"

namespace Kova::Test {

std::string FunctionGenerator::write() {
    m_labels = 1 + m_random.below(4);
    m_computes = m_random.once(8);
    m_text = "int g(int);\n"
             "void h(void);\n"
             "_Noreturn int stop(void);\n"
             "int quit(int) __attribute__((noreturn));\n"
             "enum { ZERO, ONE, TWO };\n"
             "int f(int a, int b, int c, int d, unsigned u) {\n";
    if (m_computes) {
        line("void *p = &&" + label() + ";");
        if (m_random.once(2))
            line("p = a ? &&" + label() + " : p;");
    }
    writeStatements(3 + m_random.below(6), {}, 4);
    while (m_placed < m_labels)
        line("L" + std::to_string(m_placed++) + ":");
    line(m_random.once(2) ? "h();" : ";");
    if (m_random.once(2))
        line("return " + value(1) + ";");
    m_text += "}\n";
    return m_text;
}

std::string FunctionGenerator::constant() {
    return m_random.pick(
        {"0", "1", "ZERO", "TWO", "1 - 1", "2 > 1", "0u - 1 < 1", "sizeof(a) == 3", "'x'", "!0", "!ONE"});
}

std::string FunctionGenerator::condition(unsigned depth) {
    switch (m_random.below(depth == 0 ? 4 : 12)) {
    case 0:
        return !m_isPlain && m_random.once(2) ? constant() : operand();
    case 1:
        // Of a variable alone Clang knows that it is not both true and false: `!a || a`.
        return "!" + m_random.pick({"g(a)", "g(c)", "(a + b)", "(c = d)"});
    case 2:
        return operand() + m_random.pick({" < ", " == ", " != "}) + operand();
    case 4:
    case 5:
        return condition(depth - 1) + " && " + condition(0);
    case 6:
        return "(" + condition(depth - 1) + ") && (" + condition(depth - 1) + ")";
    case 7:
    case 8:
        return "(" + condition(depth - 1) + ") || (" + condition(depth - 1) + ")";
    case 9:
        return "(" + operand() + " ? " + operand() + " : " + operand() + ")";
    case 10:
        return !m_isPlain && m_random.once(3) ? "(stop(), " + operand() + ")" : "(h(), " + operand() + ")";
    case 11:
        return !m_isPlain && m_random.once(3) ? "quit(" + operand() + ")" : "(a = " + operand() + ")";
    default:
        return operand();
    }
}

std::string FunctionGenerator::value(unsigned depth) {
    switch (m_random.below(depth == 0 ? 2 : 8)) {
    case 2:
        return "(" + condition(depth - 1) + ") && (" + operand() + ")";
    case 3:
        return operand() + " || " + value(depth - 1);
    case 4:
        return "(" + condition(depth - 1) + ") ? " + value(depth - 1) + " : " + operand();
    case 5:
        return operand() + " ?: " + operand();
    case 6:
        return "g((" + value(depth - 1) + "))";
    case 7:
        return "(" + operand() + ", " + value(depth - 1) + ")";
    default:
        return operand();
    }
}

void FunctionGenerator::writeStatements(unsigned count, const Around& around, unsigned depth) {
    for (unsigned i = 0; i < count; ++i)
        writeStatement(around, depth);
}

void FunctionGenerator::writeLabels(const Around& around) {
    if (!around.isInExpression && m_placed < m_labels && m_random.once(6))
        line("L" + std::to_string(m_placed++) + ":");
    if (around.nextCase == nullptr || !m_random.once(3))
        return;
    // At most one default, which is the value -1.
    if (*around.nextCase >= 0 && m_random.once(4)) {
        line("default:");
        *around.nextCase = -*around.nextCase - 1;
    } else {
        const int next = *around.nextCase >= 0 ? *around.nextCase : -*around.nextCase - 1;
        line(m_random.once(4) ? "case " + std::to_string(next) + " ... " + std::to_string(next + 1) + ":"
                              : "case " + std::to_string(next) + ":");
        *around.nextCase += *around.nextCase >= 0 ? 2 : -2;
    }
}

void FunctionGenerator::writeStatement(const Around& around, unsigned depth) {
    writeLabels(around);
    switch (m_random.below(depth == 0 ? 6 : 14)) {
    case 4:
    case 5:
        writeJump(around);
        break;
    case 6:
    case 7:
    case 8:
        writeBranch(around, depth - 1);
        break;
    case 9:
    case 10:
        writeLoop(around, depth - 1);
        break;
    case 11:
        writeSwitch(around, depth - 1);
        break;
    case 12:
        writeBody("", around, depth - 1);
        break;
    case 13:
        if (m_random.once(2)) {
            writeStatementExpression(around, depth - 1);
            break;
        }
        [[fallthrough]];
    default:
        writeSimple();
    }
}

void FunctionGenerator::writeSimple() {
    switch (m_random.below(10)) {
    case 0:
        line("h();");
        break;
    case 1:
        // A declaration cannot follow a label.
        line(";");
        line("int v" + std::to_string(m_variables++) + " = " + value(2) + ";");
        break;
    case 2:
        line(condition(2) + ";");
        break;
    case 3:
        line("g(" + value(2) + ");");
        break;
    case 4:
        line("d += " + value(1) + ", b--;");
        break;
    default:
        line(m_random.pick({"a", "b", "c"}) + " = " + value(2) + ";");
    }
}

void FunctionGenerator::writeJump(const Around& around) {
    switch (m_random.below(9)) {
    case 0:
        line(m_random.once(2) ? "return " + value(1) + ";" : "return 0;");
        break;
    case 1:
        line(m_random.pick({"stop();", "quit(a);", "a = quit(1) + b;"}));
        break;
    case 2:
    case 3:
        line(around.loop || around.nextCase != nullptr ? "break;" : "h();");
        break;
    case 4:
    case 5:
        line(around.loop ? "continue;" : "c--;");
        break;
    case 6:
        line(m_computes ? "goto *p;" : "goto " + label() + ";");
        break;
    default:
        line("goto " + label() + ";");
    }
}

void FunctionGenerator::writeBody(const std::string& head, const Around& around, unsigned depth,
                                  const std::string& behind) {
    line(head + (head.empty() ? "{" : " {"));
    m_indent += 4;
    writeStatements(m_random.below(4), around, depth);
    m_indent -= 4;
    // A label needs a statement to mark.
    line("    ;");
    line("}" + behind);
}

void FunctionGenerator::writeBranch(const Around& around, unsigned depth) {
    writeBody("if (" + condition(2) + ")", around, depth);
    while (m_random.once(4))
        writeBody("else if (" + condition(2) + ")", around, depth);
    if (m_random.once(2))
        writeBody("else", around, depth);
}

void FunctionGenerator::writeLoop(const Around& around, unsigned depth) {
    Around inside = around;
    inside.loop = true;
    // Labels of the switch around may stand in here: the body is entered in the middle.
    switch (m_random.below(4)) {
    case 0:
        writeBody("while (" + condition(2) + ")", inside, depth);
        break;
    case 1: {
        // In such a loop, and no other, Clang lets `a && quit()` and `a || 0` come to a value before it asks for it, so
        // that either may hold whatever a is.
        m_isPlain = true;
        const std::string behind = " while (" + (m_random.once(4) ? constant() : condition(2)) + ");";
        m_isPlain = false;
        writeBody("do", inside, depth, behind);
        break;
    }
    default:
        writeBody("for (" + (m_random.once(3) ? "" : "a = " + value(1)) + "; " +
                      (m_random.once(3) ? "" : condition(2)) + "; " + (m_random.once(3) ? "" : "b = " + value(1)) + ")",
                  inside, depth);
    }
}

void FunctionGenerator::writeSwitch(const Around& around, unsigned depth) {
    int nextCase = 0;
    Around inside = around;
    inside.nextCase = &nextCase;
    line("switch (" + (m_random.once(6) ? std::string("2") : value(1)) + ") {");
    m_indent += 4;
    writeStatements(m_random.below(7), inside, depth);
    m_indent -= 4;
    line("    ;");
    line("}");
}

void FunctionGenerator::writeStatementExpression(const Around& around, unsigned depth) {
    Around inside = around;
    inside.isInExpression = true;
    // Whatever is done first is done once: the place at which the whole statement begins.
    inside.nextCase = nullptr;
    line("a = ({ h();");
    m_indent += 4;
    writeStatements(1 + m_random.below(3), inside, depth);
    m_indent -= 4;
    line("    b; });");
}

} // namespace Kova::Test
