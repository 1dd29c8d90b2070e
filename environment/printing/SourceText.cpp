// SPDX-License-Identifier: MIT
#include "environment/printing/SourceText.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace Kova::Backends {

namespace {

bool isBlank(char c) {
    return std::isspace(static_cast<unsigned char>(c)) != 0;
}

/// The position behind the comment that begins there; begin itself when none does.
std::size_t skipComment(const std::string& text, std::size_t begin, TextStyle style) {
    const bool untilLineEnd = style == TextStyle::C ? text.compare(begin, 2, "//") == 0 : text[begin] == '!';
    if (untilLineEnd)
        return std::min(text.find('\n', begin), text.size());
    if (style == TextStyle::C && text.compare(begin, 2, "/*") == 0) {
        const std::size_t end = text.find("*/", begin + 2);
        return end == std::string::npos ? text.size() : end + 2;
    }
    return begin;
}

/// The position behind blanks, comments and marks of lines that go on; begin itself when none begin there.
std::size_t skipGap(const std::string& text, std::size_t begin, TextStyle style, bool& hasLineEnd) {
    std::size_t i = begin;
    while (i < text.size()) {
        const std::size_t behindComment = skipComment(text, i, style);
        const bool continued = style == TextStyle::Fortran && text[i] == '&';
        if (behindComment == i && !isBlank(text[i]) && !continued)
            break;
        hasLineEnd = hasLineEnd || behindComment != i || text[i] == '\n' || text[i] == '\r';
        i = std::max(behindComment, i + 1);
    }
    return i;
}

/// What stands outside of all brackets and constants of a text.
struct Outline {
    std::size_t groups = 0;
    bool endsWithGroup = false;
    bool hasComma = false;
    /// The text before the first group.
    std::string head;
};

Outline outlineOf(const std::string& text) {
    Outline outline;
    int depth = 0;
    for (std::size_t i = 0; i < text.size();) {
        const char c = text[i];
        const bool opens = c == '(' || c == '[';
        const bool closes = c == ')' || c == ']';
        if (opens && depth++ == 0)
            ++outline.groups;
        if (closes)
            --depth;
        if (!isBlank(c))
            outline.endsWithGroup = closes && depth == 0;
        outline.hasComma = outline.hasComma || (c == ',' && depth == 0);
        const std::size_t next = c == '"' || c == '\'' ? skipQuoted(text, i) : i + 1;
        if (outline.groups == 0)
            outline.head.append(text, i, next - i);
        i = next;
    }
    return outline;
}

/// Words that are operators on the parentheses that follow them.
bool isOperatorWord(const std::string& word) {
    static constexpr std::array<const char*, 10> words = {"sizeof",      "_Alignof",     "alignof", "__alignof",
                                                          "__alignof__", "__real__",     "__real",  "__imag__",
                                                          "__imag",      "__extension__"};
    return std::find(words.begin(), words.end(), word) != words.end();
}

} // namespace

bool isWordCharacter(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return std::isalnum(byte) != 0 || c == '_' || c == '$' || byte >= 0x80;
}

std::size_t skipQuoted(const std::string& text, std::size_t begin) {
    std::size_t i = begin + 1;
    while (i < text.size() && text[i] != text[begin])
        i += text[i] == '\\' ? 2 : 1;
    return std::min(i + 1, text.size());
}

std::string toOneLine(const std::string& text, TextStyle style) {
    std::string line;
    for (std::size_t i = 0; i < text.size();) {
        bool hasLineEnd = false;
        const std::size_t behindGap = skipGap(text, i, style, hasLineEnd);
        if (behindGap != i && hasLineEnd)
            line += ' ';
        else
            line.append(text, i, behindGap - i);
        i = behindGap;
        if (i == text.size())
            break;
        const std::size_t next = text[i] == '"' || text[i] == '\'' ? skipQuoted(text, i) : i + 1;
        line.append(text, i, next - i);
        i = next;
    }
    return line;
}

Precedence precedenceOfText(const std::string& text) {
    const Outline outline = outlineOf(text);
    std::string word = outline.head;
    while (!word.empty() && isBlank(word.back()))
        word.pop_back();
    word.erase(word.begin(), std::find_if_not(word.begin(), word.end(), isBlank));
    const bool isWord = std::all_of(word.begin(), word.end(), isWordCharacter) && !isOperatorWord(word);
    const bool isGroup = outline.groups == 1 && outline.endsWithGroup;
    if (isWord && (isGroup || (outline.groups == 0 && !word.empty())))
        return Precedence::Primary;
    return outline.hasComma ? Precedence::Comma : Precedence::Assignment;
}

} // namespace Kova::Backends
