// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace Kova::GUI::GenericGraph {

/// A file of a fixed name in a folder that everybody writes to. Only a plain file of the present user is opened: what
/// somebody else has put there, a link above all, is neither followed nor changed.
class ExchangeFile {
public:
    explicit ExchangeFile(const char* path) : m_path(path) {}

    /// True when somebody has put something else there.
    [[nodiscard]] bool isForeign() const;
    /// Replaces the content. @return false when the file cannot be opened or written.
    [[nodiscard]] bool write(const std::string& content) const;
    /// None when the file cannot be opened.
    [[nodiscard]] std::optional<std::string> read() const;

private:
    const char* m_path;
};

} // namespace Kova::GUI::GenericGraph
