// SPDX-License-Identifier: MIT
#pragma once

#include "environment/printing/Precedence.h"

#include <cstddef>
#include <string>

namespace Kova::Backends {

/// How source text marks comments and lines that go on.
enum class TextStyle { C, Fortran };

/// True for what names, words and numbers consist of; every byte of UTF-8 beyond ASCII is.
[[nodiscard]] bool isWordCharacter(char c);

/// The position behind the character or string constant that begins at a quote. Text without its closing quote ends it.
[[nodiscard]] std::size_t skipQuoted(const std::string& text, std::size_t begin);

/// Source text on one line: a blank stands for each line end with the blanks around it, and for each comment.
[[nodiscard]] std::string toOneLine(const std::string& text, TextStyle style);

/// How tightly source text that nobody parsed can be trusted to hold together. One word, with at most one bracketed
/// group behind it, or one bracketed group alone is primary: `x`, `offsetof(s, m)`, `(a + b)`. Anything else might hold
/// operators of any kind and is an operand in parentheses only; as an argument or initializer it needs none unless
/// there is a comma outside brackets.
[[nodiscard]] Precedence precedenceOfText(const std::string& text);

} // namespace Kova::Backends
