// SPDX-License-Identifier: MIT
#pragma once

#include "shell/commandline/ExitStatus.h"

namespace Kova::Shell {

/// The whole program: reads the command line, works without a window or shows it until it is closed.
[[nodiscard]] ExitStatus runShell(int argc, char** argv);

} // namespace Kova::Shell
