// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace Kova::Shell {

class Subject;

/// The text of a subject as the program's printer writes it, each line with its end. A program of one file is that
/// file's text alone; of several, each stands under a comment with its name.
[[nodiscard]] QByteArray printedTextOf(const Subject& subject);

} // namespace Kova::Shell
