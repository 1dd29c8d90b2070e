// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <string>

namespace Kova::Shell {

/// Writes to standard output and makes sure that it arrived.
/// @return false, after a message on standard error, when it did not: on a full disk, say.
[[nodiscard]] bool printOut(const QByteArray& text);

/// Writes `kova-shell: text` to standard error.
void printMessage(const QString& text);

/// Writes a line to standard error as it is.
void printErrorLine(const std::string& line);

} // namespace Kova::Shell
