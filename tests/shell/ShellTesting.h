// SPDX-License-Identifier: MIT
#pragma once

#include "shell/program/OpenedProgram.h"

#include <QByteArray>
#include <QJsonObject>
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

/// The object in a JSON text; one with the key "invalid" when it is none.
[[nodiscard]] QJsonObject parse(const QByteArray& text);

/// A text field of every object in a list of an object: namesIn(list, "subroutines", "name").
[[nodiscard]] QStringList namesIn(const QJsonObject& list, const QString& what, const QString& field);

/// True when every line is of one of the two forms that messages have.
[[nodiscard]] bool hasMessageForm(const QByteArray& error);

/// Where kova-shell is.
[[nodiscard]] QString programPath();

} // namespace Kova::Shell::Testing
