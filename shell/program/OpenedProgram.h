// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <memory>
#include <string>
#include <vector>

namespace Kova::Tessel {
class ProgramUnit;
}

namespace Kova::Shell {

/// A file that the user named, and how much of it could be read.
struct OpenedFile {
    enum class State { Complete, Partial, Unreadable };

    QString path;
    State state = State::Unreadable;
};

/// What came of reading the user's files: the program, which is there even when nothing could be read, and the files in
/// the order in which they were named.
class OpenedProgram {
public:
    OpenedProgram();
    ~OpenedProgram();
    OpenedProgram(OpenedProgram&& other) noexcept;
    OpenedProgram& operator=(OpenedProgram&& other) noexcept;
    OpenedProgram(const OpenedProgram&) = delete;
    OpenedProgram& operator=(const OpenedProgram&) = delete;

    [[nodiscard]] Tessel::ProgramUnit& getUnit() const { return *m_unit; }
    [[nodiscard]] const std::vector<OpenedFile>& getFiles() const { return m_files; }
    void appendFile(const OpenedFile& file) { m_files.push_back(file); }

    /// True when no file left anything to look at.
    [[nodiscard]] bool isEmpty() const;
    /// True when some file left nothing to look at.
    [[nodiscard]] bool hasUnreadableFile() const;
    /// `file:line:column: level: text` of everything that the front ends had to say.
    [[nodiscard]] std::vector<std::string> getDiagnosticTexts() const;

private:
    std::unique_ptr<Tessel::ProgramUnit> m_unit;
    std::vector<OpenedFile> m_files;
};

} // namespace Kova::Shell
