// SPDX-License-Identifier: MIT
#pragma once

#include "tests/environment/printing/RoundTrip.h"

#include <algorithm>

namespace Kova::Tests {

/// Reads a Fortran expression by the grammar of the Fortran standard (levels 1 to 5) and gives its structure as nested
/// lists; empty when the text is no expression. Elements and calls look alike. Shares nothing with the printer.
class FortranExpressionReader {
public:
    static std::string read(const std::string& text) {
        static const std::vector<std::string> operators = {
            ".NEQV.", ".AND.", ".EQV.", ".NOT.", ".OR.", "**", "//", "<=", ">=", "==", "/=", "<",
            ">",      "+",     "-",     "*",     "/",    "(",  ")",  "[",  "]",  "%",  ",",  ":"};
        const std::optional<Tokens> tokens = Tokens::split(text, operators);
        if (!tokens)
            return {};
        FortranExpressionReader reader(*tokens);
        const std::string structure = reader.expression();
        return reader.m_failed || !reader.m_tokens.peek().empty() ? std::string() : structure;
    }

private:
    explicit FortranExpressionReader(Tokens tokens) : m_tokens(std::move(tokens)) {}

    using Rule = std::string (FortranExpressionReader::*)();

    /// operand [op operand]...
    std::string leftAssociative(Rule operand, const std::vector<std::string>& operators) {
        return continued((this->*operand)(), operand, operators);
    }
    std::string continued(std::string left, Rule operand, const std::vector<std::string>& operators) {
        while (!m_failed && isOneOf(m_tokens.peek(), operators)) {
            const std::string operation = m_tokens.take();
            const std::string right = (this->*operand)();
            left = "(" + operation + " " + left + " " + right + ")";
        }
        return left;
    }
    static bool isOneOf(const std::string& word, const std::vector<std::string>& words) {
        return std::find(words.begin(), words.end(), word) != words.end();
    }

    std::string expression() {
        return leftAssociative(&FortranExpressionReader::equivalenceOperand, {".EQV.", ".NEQV."});
    }
    std::string equivalenceOperand() { return leftAssociative(&FortranExpressionReader::orOperand, {".OR."}); }
    std::string orOperand() { return leftAssociative(&FortranExpressionReader::andOperand, {".AND."}); }
    std::string andOperand() {
        if (m_tokens.takeIf(".NOT."))
            return "(.NOT. " + comparison() + ")";
        return comparison();
    }
    std::string comparison() {
        const std::string left = concatenation();
        if (m_failed || !isOneOf(m_tokens.peek(), {"<", ">", "<=", ">=", "==", "/="}))
            return left;
        const std::string operation = m_tokens.take();
        const std::string right = concatenation();
        return "(" + operation + " " + left + " " + right + ")";
    }
    std::string concatenation() { return leftAssociative(&FortranExpressionReader::sum, {"//"}); }
    std::string sum() {
        std::string left;
        if (isOneOf(m_tokens.peek(), {"+", "-"})) {
            const std::string sign = m_tokens.take();
            left = "(u" + sign + " " + product() + ")";
        } else {
            left = product();
        }
        return continued(left, &FortranExpressionReader::product, {"+", "-"});
    }
    std::string product() { return leftAssociative(&FortranExpressionReader::power, {"*", "/"}); }
    std::string power() {
        const std::string base = primary();
        if (m_failed || !m_tokens.takeIf("**"))
            return base;
        return "(** " + base + " " + power() + ")";
    }

    std::string primary() {
        if (m_tokens.takeIf("(")) {
            const std::string inner = expression();
            expect(")");
            return inner;
        }
        if (m_tokens.takeIf("["))
            return "(list" + items("]") + ")";
        std::string name = m_tokens.take();
        m_failed = m_failed || name.empty() || std::isalnum(static_cast<unsigned char>(name[0])) == 0;
        while (!m_failed) {
            if (m_tokens.takeIf("("))
                name = "(of " + name + items(")") + ")";
            else if (m_tokens.takeIf("%"))
                name = "(% " + name + " " + m_tokens.take() + ")";
            else
                break;
        }
        return name;
    }

    std::string items(const std::string& end) {
        std::string all;
        while (!m_failed && !m_tokens.takeIf(end)) {
            if (!all.empty())
                expect(",");
            all += " " + item();
        }
        return all;
    }
    std::string item() {
        const std::string first = sectionPart();
        if (m_failed || !m_tokens.takeIf(":"))
            return first;
        const std::string last = sectionPart();
        return "(: " + first + " " + last + " " + (m_tokens.takeIf(":") ? sectionPart() : "-") + ")";
    }
    std::string sectionPart() { return isOneOf(m_tokens.peek(), {":", ",", ")"}) ? "-" : expression(); }

    void expect(const std::string& word) { m_failed = m_failed || !m_tokens.takeIf(word); }

    Tokens m_tokens;
    bool m_failed = false;
};

} // namespace Kova::Tests
