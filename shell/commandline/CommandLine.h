// SPDX-License-Identifier: MIT
#pragma once

#include "shell/commandline/Options.h"

namespace Kova::Shell {

/// What came of reading a command line.
struct ParsedCommandLine {
    enum class Outcome { Run, Help, Version, Error };

    Outcome outcome = Outcome::Run;
    /// What is wrong, for people; with Outcome::Error only.
    QString error;
    Options options;
};

/// Reads a command line; needs no application object.
/// @param arguments with the program's name first.
[[nodiscard]] ParsedCommandLine parseCommandLine(const QStringList& arguments);

/// The text of --help.
[[nodiscard]] QString helpText();
/// The text of --version.
[[nodiscard]] QString versionText();

} // namespace Kova::Shell
