// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Kova::Shell {

/// "1 call", "2 calls".
[[nodiscard]] inline QString counted(std::size_t count, const QString& what) {
    return QString("%1 %2%3").arg(count).arg(what, count == 1 ? "" : "s");
}

} // namespace Kova::Shell
