// SPDX-License-Identifier: MIT
#include "tests/dependences/ProgramGenerator.h"

namespace Kova::Test {

int ProgramGenerator::number(int from, int to) {
    return from + static_cast<int>(m_random() % static_cast<unsigned>(to - from + 1));
}

std::string ProgramGenerator::write() {
    m_text = "void f(int n, int m, unsigned u, int a[], int b[][40], int c[]) {\n"
             "    int i, j, k, s, t;\n"
             "    unsigned x, y, z;\n";
    writeStatements(3);
    if (m_kind == Kind::Any) {
        line("end:");
        writeAssignment();
    }
    return m_text + "}\n";
}

std::string ProgramGenerator::term() {
    if (!m_values.empty() && chance(15))
        return m_values[static_cast<std::size_t>(number(0, static_cast<int>(m_values.size()) - 1))];
    if (!m_counters.empty() && chance(70))
        return m_counters[static_cast<std::size_t>(number(0, static_cast<int>(m_counters.size()) - 1))];
    return oneOf("n", "m", "n");
}

std::string ProgramGenerator::sum() {
    std::string text = chance(75) ? term() : std::to_string(number(0, 4));
    if (chance(25))
        text = std::to_string(number(2, 3)) + " * " + text;
    if (chance(25))
        text += oneOf(" + ", " - ") + term();
    if (chance(50))
        text += oneOf(" + ", " - ") + std::to_string(number(1, 3));
    return text;
}

std::string ProgramGenerator::affine(int depth) {
    if (depth == 0 || chance(75))
        return sum();
    switch (number(0, 6)) {
    case 0:
        return "(" + affine(depth - 1) + ") / " + std::to_string(number(2, 3));
    case 1:
        return "(" + affine(depth - 1) + ") % " + oneOf("2", "3", "-3");
    case 2:
        return "-(" + affine(depth - 1) + ")";
    case 3:
        return "(" + comparison() + " ? " + affine(depth - 1) + " : " + affine(depth - 1) + ")";
    case 4:
        return "((" + affine(depth - 1) + ") & " + oneOf("1", "3", "7") + ")";
    case 5:
        return "(" + comparison() + ") + " + sum();
    default:
        return "(" + sum() + ") * " + std::to_string(number(-2, 3));
    }
}

std::string ProgramGenerator::comparison() {
    return sum() + oneOf(" < ", " <= ", " > ", " >= ", " == ", " != ") + sum();
}

std::string ProgramGenerator::condition(int depth) {
    if (m_kind == Kind::Any && chance(25))
        return oneOf("a[", "c[") + sum() + "]" + oneOf(" > 2", " != 0", "");
    if (depth == 0 || chance(60))
        return chance(15) ? "(" + affine(1) + ") % 2" : comparison();
    switch (number(0, 2)) {
    case 0:
        return "(" + condition(depth - 1) + ") && (" + condition(depth - 1) + ")";
    case 1:
        return "(" + condition(depth - 1) + ") || (" + condition(depth - 1) + ")";
    default:
        return "!(" + condition(depth - 1) + ")";
    }
}

std::string ProgramGenerator::lvalue() {
    switch (number(0, 4)) {
    case 0:
        return "s";
    case 1:
        return "b[" + affine(1) + "][" + sum() + "]";
    case 2:
        return "c[" + affine(2) + "]";
    case 3:
        return m_kind == Kind::Any && chance(50) ? "a[c[" + sum() + "]]" : "*(a + (" + sum() + "))";
    default:
        return "a[" + affine(2) + "]";
    }
}

std::string ProgramGenerator::value() {
    std::string text = chance(80) ? lvalue() : sum();
    if (chance(30))
        text += oneOf(" + ", " - ") + lvalue();
    if (chance(15))
        text = "(" + condition(1) + " ? " + text + " : " + lvalue() + ")";
    if (m_kind == Kind::Any && chance(10))
        text = "(" + lvalue() + " && " + lvalue() + ")";
    return text;
}

void ProgramGenerator::writeStatements(int count) {
    const std::size_t values = m_values.size();
    for (int i = 0; i < count; ++i)
        writeStatement();
    m_values.resize(values);
}

void ProgramGenerator::writeStatement() {
    if (m_budget-- <= 0) {
        writeAssignment();
        return;
    }
    const int choice = number(1, 100);
    if (choice <= 38)
        writeLoop();
    else if (choice <= 55)
        writeBranch();
    else if (choice <= 61)
        writeSwitch();
    else if (choice <= 69)
        writeDeclaration();
    else if (choice <= 75 && m_depth > 0)
        writeSkip();
    else
        writeAssignment();
}

void ProgramGenerator::writeAssignment() {
    const std::string target = lvalue();
    switch (number(0, 5)) {
    case 0:
        line(target + oneOf(" += ", " -= ") + value() + ";");
        break;
    case 1:
        line("(" + target + ")" + oneOf("++", "--") + ";");
        break;
    case 2:
        line(oneOf("++", "--") + target + ";");
        break;
    default:
        line(target + " = " + value() + ";");
        break;
    }
}

void ProgramGenerator::writeBranch() {
    line("if (" + condition(2) + ") {");
    ++m_indent;
    writeStatements(number(1, 2));
    --m_indent;
    if (chance(40)) {
        line(chance(50) ? "} else {" : "} else if (" + condition(1) + ") {");
        ++m_indent;
        writeStatements(1);
        --m_indent;
    }
    line("}");
}

void ProgramGenerator::writeSwitch() {
    line("switch (" + sum() + ") {");
    const int labels = number(1, 3);
    for (int i = 0; i < labels; ++i) {
        line(i == 1 && chance(60) ? "default:" : "case " + std::to_string(2 * i - 1) + ":");
        ++m_indent;
        writeAssignment();
        if (chance(70))
            line("break;");
        --m_indent;
    }
    line("}");
}

void ProgramGenerator::writeDeclaration() {
    const std::string name = "v" + std::to_string(m_declared++);
    if (chance(50)) {
        line("int " + name + " = " + affine(1) + ";");
    } else {
        line("int " + name + ";");
        line(name + " = " + affine(1) + ";");
    }
    m_values.push_back(name);
}

void ProgramGenerator::writeSkip() {
    const std::string jump =
        m_kind == Kind::Any && chance(60) ? oneOf("break;", "return;", "goto end;") : std::string("continue;");
    line("if (" + condition(1) + ")");
    line("    " + jump);
}

void ProgramGenerator::writeLoop() {
    if (m_depth == 3 || m_loops == 6) {
        writeAssignment();
        return;
    }
    ++m_loops;
    if (m_kind == Kind::Any && chance(15))
        writeWhileLoop();
    else if (chance(15))
        writeUnsignedLoop();
    else
        writeForLoop();
}

void ProgramGenerator::writeForLoop() {
    const std::string counter(1, "ijk"[m_depth]);
    const bool isUp = chance(65);
    const std::string step = std::to_string(number(2, 3));
    const std::string near = chance(60) ? std::to_string(number(-1, 2)) : sum();
    const std::string far = chance(50) ? oneOf("n", "m", "6", "5") : sum();
    std::string test =
        counter + (isUp ? oneOf(" < ", " <= ", " < ", " != ") : oneOf(" > ", " >= ", " != ")) + (isUp ? far : near);
    if (chance(15))
        test += oneOf(" && ", " || ") + (chance(70) ? counter + oneOf(" < ", " != ") + sum() : condition(0));
    std::string increment = isUp ? oneOf(counter + "++", "++" + counter, counter + " += " + step,
                                         counter + " = " + counter + " + 1", counter + " = " + step + " + " + counter)
                                 : oneOf(counter + "--", counter + " -= " + step, counter + " = " + counter + " - 1");
    line("for (" + counter + " = " + (isUp ? near : far) + "; " + test + "; " + increment + ") {");
    m_counters.push_back(counter);
    ++m_indent;
    ++m_depth;
    writeStatements(number(1, 2));
    --m_depth;
    --m_indent;
    m_counters.pop_back();
    line("}");
}

void ProgramGenerator::writeUnsignedLoop() {
    const std::string counter(1, "xyz"[m_depth]);
    if (chance(50))
        line("for (" + counter + " = " + oneOf("0", "1", "u") + "; " + counter +
             oneOf(" < u", " < 5", " <= u", " != u") + "; " + counter + oneOf("++", " += 2") + ") {");
    else if (m_kind == Kind::Affine)
        line("for (" + counter + " = " + oneOf("u", "u + 1", "5") + "; " + counter + oneOf(" > 0", " != 0", " >= 1") +
             "; " + counter + "--) {");
    else
        line("for (" + counter + " = " + oneOf("u", "u + 1", "5", "u - 1") + "; " + counter +
             oneOf(" > 0", " > 1", " != 0", " >= 2", " >= 0") + "; " + counter + oneOf("--", "--", " -= 2") + ") {");
    ++m_indent;
    ++m_depth;
    line("a[" + counter + oneOf("", " + 1", " - 1", " / 2", " % 3", " + n") + "]" + oneOf(" = ", " += ") + value() +
         ";");
    writeStatements(1);
    --m_depth;
    --m_indent;
    line("}");
}

void ProgramGenerator::writeWhileLoop() {
    const bool isAfter = chance(30);
    line(isAfter ? "do {" : "while (t < " + sum() + ") {");
    ++m_indent;
    ++m_depth;
    writeStatements(1);
    if (chance(80))
        line("t++;");
    --m_depth;
    --m_indent;
    line(isAfter ? "} while (" + oneOf("t < n", "0") + ");" : "}");
}

} // namespace Kova::Test
