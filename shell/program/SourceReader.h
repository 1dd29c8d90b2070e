// SPDX-License-Identifier: MIT
#pragma once

#include "frontends/c/CFrontend.h"
#include "shell/program/OpenedProgram.h"

#include <QStringList>

namespace Kova::Shell {

/// Reads source files into a program, each with the front end that its name asks for.
class SourceReader {
public:
    explicit SourceReader(Frontends::COptions options) : m_options(std::move(options)) {}

    /// Empty when the options can be used; otherwise what is wrong with them, for people.
    [[nodiscard]] QString checkOptions() const;

    /// Reads the files in order. A file named twice, by whatever path, is read once. Never throws for what stands in
    /// the files; what is to be said of them is among the program's diagnostics.
    [[nodiscard]] OpenedProgram read(const QStringList& paths) const;

private:
    [[nodiscard]] OpenedFile::State readFile(const QString& path, Tessel::ProgramUnit& program) const;

    Frontends::COptions m_options;
};

} // namespace Kova::Shell
