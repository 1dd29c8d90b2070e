// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>

namespace Kova::Tessel {

/// A file that program text came from; owned by the ProgramUnit, shared by all nodes of the file.
class SourceFile {
public:
    explicit SourceFile(std::string path) : m_path(std::move(path)) {}

    /// The path as the user or an include directive gave it.
    [[nodiscard]] const std::string& getPath() const { return m_path; }

private:
    std::string m_path;
};

} // namespace Kova::Tessel
