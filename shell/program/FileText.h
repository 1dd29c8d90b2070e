// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Kova::Shell {

/// The text of a source file, for people to read.
struct FileText {
    QString text;
    /// Why there is no text, for people; empty when there is.
    QString error;
};

/// Reads a file as UTF-8; what is none, and characters that text documents take for marks of their own, become
/// replacement characters, so that lines are those of the file. Only ordinary files are read, and only such as can be
/// shown in reasonable time: up to 16 MiB, 500,000 lines, and 200,000 bytes a line.
[[nodiscard]] FileText readFileText(const QString& path);

} // namespace Kova::Shell
