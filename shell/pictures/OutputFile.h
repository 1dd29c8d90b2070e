// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

namespace Kova::Shell {

/// Writes a whole file or leaves what was there: the content goes to a new file in the same directory, which then takes
/// the name. A link is followed. A device or pipe is written to as it is, for it cannot be replaced.
/// @return empty when done, otherwise the system's reason.
[[nodiscard]] QString writeFile(const QString& path, const QByteArray& content);

/// True for what exists and is neither a regular file nor a directory; links are followed.
[[nodiscard]] bool isDevice(const QString& path);

} // namespace Kova::Shell
