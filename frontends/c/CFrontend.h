// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace Kova::Tessel {
class ProgramUnit;
}

namespace Kova::Frontends {

/// How C files are to be read, as compilers take it on their command lines.
struct COptions {
    /// Searched for user headers, in this order.
    std::vector<std::string> includeDirectories;
    /// `NAME` (meaning 1) or `NAME=VALUE`.
    std::vector<std::string> definitions;
    /// "c17", "gnu89" and the like; empty for gnu17.
    std::string standard;
};

/// Reads C files into a program.
class CFrontend {
public:
    enum class Result {
        /// Read without errors; there may be warnings.
        Complete,
        /// There were errors; what could be read is in the program.
        Partial,
        /// The file is missing, is no C text or cannot be read, or nothing was found in it for errors; the program has
        /// no unit of it.
        Unreadable
    };

    explicit CFrontend(COptions options) : m_options(std::move(options)) {}

    /// Reads one file and appends its translation unit to the program. What is to be said of it is appended to the
    /// program's diagnostics. Never throws for what stands in the file.
    Result read(const std::string& path, Tessel::ProgramUnit& program) const;

    /// Empty when the options can be used; otherwise what is wrong with them, for people.
    [[nodiscard]] std::string checkOptions() const;

private:
    COptions m_options;
};

} // namespace Kova::Frontends
