// SPDX-License-Identifier: MIT
#pragma once

#include "shell/program/OpenedProgram.h"

#include <QByteArray>
#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryDir>

namespace Kova::Shell::Testing {

/// A directory of source files that goes with the object.
class SourceFolder {
public:
    /// Writes a file, over one of that name. @return its path.
    QString write(const QString& name, const QByteArray& content) const;
    [[nodiscard]] QString path(const QString& name) const { return m_directory.filePath(name); }

private:
    QTemporaryDir m_directory;
};

/// The files read with default options.
[[nodiscard]] OpenedProgram readProgram(const QStringList& paths);

[[nodiscard]] QByteArray contentOf(const QString& path);

/// What a run of the real program left behind.
struct Finished {
    /// -1 when it crashed or did not end in time.
    int status = -1;
    QByteArray out;
    QByteArray error;
};

/// The environment of a machine without a display.
[[nodiscard]] QProcessEnvironment withoutDisplay();

/// Runs kova-shell to its end. @param outFile receives standard output when given.
[[nodiscard]] Finished runProgram(const QStringList& arguments, const QString& outFile = QString(),
                                  const QProcessEnvironment& environment = withoutDisplay());

/// Where kova-shell is.
[[nodiscard]] QString programPath();

} // namespace Kova::Shell::Testing
