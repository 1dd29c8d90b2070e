// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace Kova::Frontends {

/// Finds lines and columns in a text. Clang's own search goes back to the line's begin for each column of a file's
/// last line, which takes the square of its length when a generated program is one long line.
class LineTable {
public:
    struct Place {
        std::uint32_t line;
        std::uint32_t column;
    };

    explicit LineTable(std::string_view text);

    /// Lines and columns count from 1, columns in bytes. @param offset in bytes, the text's end included.
    [[nodiscard]] Place find(std::uint32_t offset);

private:
    std::vector<std::uint32_t> m_lineStarts;
    // Questions come roughly in the order of the text.
    std::size_t m_lastLine = 0;
};

} // namespace Kova::Frontends
