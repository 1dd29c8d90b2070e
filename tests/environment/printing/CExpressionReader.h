// SPDX-License-Identifier: MIT
#pragma once

#include "tests/environment/printing/RoundTrip.h"

#include <array>

namespace Kova::Tests {

/// Reads a C expression by the grammar of the C standard (6.5) and gives its structure as nested lists; empty when the
/// text is no expression. Knows one type, int. Shares nothing with the printer.
class CExpressionReader {
public:
    static std::string read(const std::string& text) {
        static const std::vector<std::string> operators = {
            "//", "/*", "<<=", ">>=", "<<", ">>", "<=", ">=", "==", "!=", "&&", "||", "++", "--", "->", "+=",
            "-=", "*=", "/=",  "%=",  "&=", "^=", "|=", "?",  ":",  "+",  "-",  "*",  "/",  "%",  "<",  ">",
            "&",  "^",  "|",   "!",   "~",  "=",  ",",  "(",  ")",  "[",  "]",  ".",  "{",  "}"};
        const std::optional<Tokens> tokens = Tokens::split(text, operators);
        if (!tokens)
            return {};
        CExpressionReader reader(*tokens);
        const std::string structure = reader.comma();
        return reader.m_failed || !reader.m_tokens.peek().empty() ? std::string() : structure;
    }

private:
    explicit CExpressionReader(Tokens tokens) : m_tokens(std::move(tokens)) {}

    static std::string list(const std::string& head, const std::vector<std::string>& items) {
        std::string text = "(" + head;
        for (const std::string& item : items)
            text += " " + item;
        return text + ")";
    }
    void expect(const std::string& word) { m_failed = m_failed || !m_tokens.takeIf(word); }

    std::string comma() {
        std::string left = assignment();
        while (!m_failed && m_tokens.takeIf(","))
            left = list(",", {left, assignment()});
        return left;
    }

    std::string assignment() {
        static constexpr std::array<const char*, 11> operators = {
            "=", "+=", "-=", "*=", "/=", "%=", "&=", "^=", "|=", "<<=", ">>="};
        const std::string left = conditional();
        for (const char* operation : operators)
            if (!m_failed && m_tokens.peek() == operation) {
                // The left side is a unary expression in the grammar, so nothing looser.
                m_failed = m_failed || m_lastLevel < unaryLevel;
                m_tokens.take();
                const std::string right = assignment();
                m_lastLevel = 0;
                return list(operation, {left, right});
            }
        return left;
    }

    std::string conditional() {
        const std::string condition = binary(0);
        if (m_failed || !m_tokens.takeIf("?"))
            return condition;
        const std::string first = m_tokens.peek() == ":" ? "-" : comma();
        expect(":");
        const std::string second = conditional();
        m_lastLevel = 0;
        return list("?", {condition, first, second});
    }

    /// Level 0 is the loosest.
    static int levelOf(const std::string& word) {
        static const std::vector<std::vector<std::string>> levels = {
            {"||"},       {"&&"},     {"|"},          {"^"}, {"&"}, {"==", "!="}, {"<", ">", "<=", ">="},
            {"<<", ">>"}, {"+", "-"}, {"*", "/", "%"}};
        for (std::size_t level = 0; level < levels.size(); ++level)
            for (const std::string& operation : levels[level])
                if (operation == word)
                    return static_cast<int>(level);
        return -1;
    }

    std::string binary(int minimum) {
        std::string left = cast();
        while (!m_failed && levelOf(m_tokens.peek()) >= minimum) {
            const std::string operation = m_tokens.take();
            const std::string right = binary(levelOf(operation) + 1);
            left = list(operation, {left, right});
            m_lastLevel = 0;
        }
        return left;
    }

    std::string cast() {
        if (m_tokens.peek() == "(" && m_tokens.peek(1) == "int" && m_tokens.peek(2) == ")" && m_tokens.peek(3) != "{") {
            skip(3);
            const std::string operand = cast();
            m_lastLevel = castLevel;
            return list("cast", {operand});
        }
        return unary();
    }

    std::string unary() {
        static constexpr std::array<const char*, 8> prefixes = {"+", "-", "!", "~", "*", "&", "__real__", "__imag__"};
        const std::string word = m_tokens.peek();
        std::string result;
        if (word == "++" || word == "--") {
            m_tokens.take();
            result = list("pre" + word, {unary()});
        } else if (word == "sizeof") {
            m_tokens.take();
            const bool isType = m_tokens.peek() == "(" && m_tokens.peek(1) == "int" && m_tokens.peek(3) != "{";
            if (isType)
                skip(3);
            result = isType ? std::string("(sizeof int)") : list("sizeof", {unary()});
        } else {
            for (const char* prefix : prefixes)
                if (word == prefix) {
                    m_tokens.take();
                    result = list("u" + word, {cast()});
                    break;
                }
        }
        if (result.empty())
            return postfix();
        m_lastLevel = unaryLevel;
        return result;
    }

    std::string postfix() {
        std::string base = primary();
        while (!m_failed) {
            const std::string word = m_tokens.peek();
            if (word == "[") {
                m_tokens.take();
                base = list("[]", {base, comma()});
                expect("]");
            } else if (word == "(") {
                m_tokens.take();
                base = list("call", withArguments(base, ")"));
            } else if (word == "." || word == "->") {
                m_tokens.take();
                base = list(word, {base, m_tokens.take()});
            } else if (word == "++" || word == "--") {
                m_tokens.take();
                base = list("post" + word, {base});
            } else {
                break;
            }
        }
        m_lastLevel = unaryLevel;
        return base;
    }

    std::vector<std::string> withArguments(const std::string& first, const std::string& end) {
        std::vector<std::string> items = {first};
        while (!m_failed && !m_tokens.takeIf(end)) {
            if (items.size() > 1)
                expect(",");
            items.push_back(assignment());
        }
        return items;
    }

    std::string primary() {
        if (m_tokens.peek() == "(" && m_tokens.peek(1) == "int") {
            skip(2);
            expect(")");
            expect("{");
            return list("compound", withArguments("int", "}"));
        }
        if (m_tokens.takeIf("(")) {
            const std::string inner = comma();
            expect(")");
            return inner;
        }
        const std::string word = m_tokens.take();
        const bool isName = !word.empty() && std::isalnum(static_cast<unsigned char>(word[0])) != 0;
        m_failed = m_failed || !isName || word == "int" || word == "sizeof";
        return word;
    }

    void skip(int words) {
        for (int i = 0; i < words; ++i)
            m_tokens.take();
    }

    static constexpr int castLevel = 1;
    static constexpr int unaryLevel = 2;

    Tokens m_tokens;
    int m_lastLevel = 0; // of what was read last: unaryLevel when it can be assigned to
    bool m_failed = false;
};

} // namespace Kova::Tests
