// SPDX-License-Identifier: MIT
#pragma once

#include <QSet>
#include <QString>

namespace Kova::Shell {

/// Gives names that are safe in every file system, each of them once, also where case does not count.
class FileNames {
public:
    /// @param wanted any text. @return letters, digits, '.', '_' and '-' of ASCII, at most 100 of them, neither empty
    /// nor starting with '.'; with a number added where the name was given before.
    [[nodiscard]] QString obtain(const QString& wanted);

private:
    QSet<QString> m_taken; // looked up, never walked
};

} // namespace Kova::Shell
