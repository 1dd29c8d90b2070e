// SPDX-License-Identifier: MIT
#pragma once

#include <cctype>
#include <map>
#include <stdexcept>
#include <string>

namespace Kova::Tests {

/// Evaluates the text of a condition: comparisons of sums with floor(a/b) and a mod b, joined by "and" and "or".
class ConditionReader {
public:
    using Values = std::map<std::string, long>;

    /// The empty condition always holds. @throws std::runtime_error on text that cannot be read.
    [[nodiscard]] static bool holds(const std::string& text, const Values& values) {
        if (text.empty())
            return true;
        ConditionReader reader(text, values);
        const bool result = reader.readDisjunction();
        if (reader.m_position != text.size())
            reader.fail();
        return result;
    }

private:
    ConditionReader(const std::string& text, const Values& values) : m_text(text), m_values(values) {}

    [[noreturn]] void fail() const {
        throw std::runtime_error("cannot read '" + m_text + "' from " + std::to_string(m_position));
    }
    bool accept(const std::string& word) {
        if (m_text.compare(m_position, word.size(), word) != 0)
            return false;
        m_position += word.size();
        return true;
    }
    void expect(const std::string& word) {
        if (!accept(word))
            fail();
    }

    bool readDisjunction() {
        bool result = readConjunction();
        while (accept(" or ")) {
            const bool next = readConjunction();
            result = result || next;
        }
        return result;
    }
    bool readConjunction() {
        bool result = readComparison();
        while (accept(" and ")) {
            const bool next = readComparison();
            result = result && next;
        }
        return result;
    }
    bool readComparison() {
        if (accept("false"))
            return false;
        const long left = readSum();
        if (accept(" >= "))
            return left >= readSum();
        if (accept(" <= "))
            return left <= readSum();
        if (accept(" > "))
            return left > readSum();
        expect(" = ");
        return left == readSum();
    }
    long readSum() {
        long sum = accept("-") ? -readProduct() : readProduct();
        for (;;) {
            if (accept(" + "))
                sum += readProduct();
            else if (accept(" - "))
                sum -= readProduct();
            else if (accept(" mod "))
                sum = modulo(sum, readProduct());
            else
                return sum;
        }
    }
    long readProduct() {
        const long factor = readOperand();
        return accept("*") ? factor * readOperand() : factor;
    }
    long readOperand() {
        if (accept("floor(")) {
            const long numerator = readSum();
            expect("/");
            const long denominator = readOperand();
            expect(")");
            return (numerator - modulo(numerator, denominator)) / denominator;
        }
        if (accept("(")) {
            const long value = readSum();
            expect(")");
            return value;
        }
        std::string word;
        while (m_position < m_text.size() && std::isalnum(static_cast<unsigned char>(m_text[m_position])) != 0)
            word += m_text[m_position++];
        if (word.empty())
            fail();
        return std::isdigit(static_cast<unsigned char>(word[0])) != 0 ? std::stol(word) : m_values.at(word);
    }
    static long modulo(long value, long modulus) { return ((value % modulus) + modulus) % modulus; }

    const std::string& m_text;
    const Values& m_values;
    std::size_t m_position = 0;
};

} // namespace Kova::Tests
