// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace Kova::Tessel {

/// What a front end has to say of its input.
struct Diagnostic {
    enum class Level { Note, Warning, Error };

    Level level = Level::Error;
    /// As the user or an include directive named it; may be empty when the message is of no file.
    std::string file;
    /// Count from 1; 0 when the message is of the file as a whole.
    std::uint32_t line = 0;
    std::uint32_t column = 0;
    std::string text;
};

/// `note`, `warning`, `error`.
[[nodiscard]] const char* toString(Diagnostic::Level level);

/// `file:line:column: level: text`, without the parts that are unknown.
[[nodiscard]] std::string toString(const Diagnostic& diagnostic);

} // namespace Kova::Tessel
