// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace Kova::Tessel {

class SourceFile;

/// Where a node stands in its source file. Lines and columns count from 1, columns in bytes; 0 means unknown. The end
/// is the first byte of the last token. What a macro expands to stands where the macro is used.
struct SourceRange {
    const SourceFile* file = nullptr;
    std::uint32_t beginLine = 0;
    std::uint32_t beginColumn = 0;
    std::uint32_t endLine = 0;
    std::uint32_t endColumn = 0;

    [[nodiscard]] bool isKnown() const { return file != nullptr && beginLine != 0; }
    [[nodiscard]] bool containsLine(std::uint32_t line) const { return beginLine <= line && line <= endLine; }
};

/// `file:line:column` of the begin, as far as it is known; empty when nothing is.
[[nodiscard]] std::string toString(const SourceRange& range);

} // namespace Kova::Tessel
