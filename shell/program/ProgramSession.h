// SPDX-License-Identifier: MIT
#pragma once

#include "shell/program/OpenedProgram.h"
#include "shell/program/SourceReader.h"

#include <QObject>

namespace Kova::Shell {

/// The program that a window is about. Opening replaces it as a whole; what fails leaves it as it was.
class ProgramSession : public QObject {
    Q_OBJECT

public:
    explicit ProgramSession(Frontends::COptions options, QObject* parent = nullptr);

    /// Without files until the first successful open().
    [[nodiscard]] const OpenedProgram& getProgram() const { return m_program; }
    [[nodiscard]] QStringList getPaths() const;

    /// Reads these files instead of those before. @return false, and nothing changes, when none of them could be read.
    bool open(const QStringList& paths);
    /// Reads all files anew with these after them. @return as of open(), about the new ones.
    bool add(const QStringList& paths);
    /// Reads all files anew. @return as of open(); also false when there are none.
    bool reload();

Q_SIGNALS:
    /// The program will be destroyed: forget all that points into it.
    void programAboutToChange();
    /// There is another program now.
    void programChanged();
    /// Lines on what was read, whether it is shown or not, before programChanged().
    void fileRead(const Kova::Shell::OpenedProgram& program);

private:
    bool replace(const QStringList& paths, const QStringList& needed);

    SourceReader m_reader;
    OpenedProgram m_program;
};

} // namespace Kova::Shell
