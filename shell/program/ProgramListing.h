// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>

namespace Kova::Shell {

class OpenedProgram;

/// The program as `--list` prints it: "files" (path, language, and read: "complete", "partial" or "unreadable" for
/// those that the user named, "included" for headers), "subroutines" (name, file, firstLine, lastLine and their loops
/// in program order, each with kind, firstLine, lastLine and depth, 1 = in no other loop), "diagnostics" (file, line,
/// column, level, text).
[[nodiscard]] QJsonObject listProgram(const OpenedProgram& program);

} // namespace Kova::Shell
