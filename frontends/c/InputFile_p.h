// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Kova::Frontends {

/// A source file's text, or why there is none.
struct InputFile {
    std::string text;
    /// Empty when the file was read; otherwise what is wrong with it, for people.
    std::string error;
};

/// Reads a file once, from its beginning to its end, so that a pipe can be read as well. Directories, devices and
/// files that hold a NUL byte, which no C text does, are refused.
[[nodiscard]] InputFile readInputFile(const std::string& path);

} // namespace Kova::Frontends
