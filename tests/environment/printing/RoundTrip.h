// SPDX-License-Identifier: MIT
#pragma once

#include <cctype>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// What the tests that read printed expressions back have in common.
namespace Kova::Tests {

/// The words of a printed expression, the longest operator first; none when some text is no word of the language.
class Tokens {
public:
    /// @param operators longer ones before those that they begin with.
    static std::optional<Tokens> split(const std::string& text, const std::vector<std::string>& operators) {
        Tokens tokens;
        for (std::size_t i = 0; i < text.size();) {
            if (text[i] == ' ') {
                ++i;
                continue;
            }
            const std::size_t length = lengthAt(text, i, operators);
            if (length == 0)
                return std::nullopt;
            tokens.m_words.push_back(text.substr(i, length));
            i += length;
        }
        return tokens;
    }

    /// Empty at the end.
    [[nodiscard]] const std::string& peek(std::size_t ahead = 0) const {
        static const std::string none;
        return m_next + ahead < m_words.size() ? m_words[m_next + ahead] : none;
    }
    std::string take() { return m_next < m_words.size() ? m_words[m_next++] : std::string(); }
    bool takeIf(const std::string& word) {
        const bool found = peek() == word;
        m_next += found ? 1 : 0;
        return found;
    }

private:
    static std::size_t lengthAt(const std::string& text, std::size_t begin, const std::vector<std::string>& operators) {
        std::size_t end = begin;
        while (end < text.size() && (std::isalnum(static_cast<unsigned char>(text[end])) != 0 || text[end] == '_'))
            ++end;
        if (end != begin)
            return end - begin;
        for (const std::string& word : operators)
            if (text.compare(begin, word.size(), word) == 0)
                return word.size();
        return 0;
    }

    std::vector<std::string> m_words;
    std::size_t m_next = 0;
};

/// The pairs of parentheses of a text, as positions.
inline std::vector<std::pair<std::size_t, std::size_t>> parenthesesOf(const std::string& text) {
    std::vector<std::pair<std::size_t, std::size_t>> pairs;
    std::vector<std::size_t> open;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '(')
            open.push_back(i);
        if (text[i] == ')' && !open.empty()) {
            pairs.emplace_back(open.back(), i);
            open.pop_back();
        }
    }
    return pairs;
}

} // namespace Kova::Tests
