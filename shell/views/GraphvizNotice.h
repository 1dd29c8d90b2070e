// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Kova::Shell {

/// Whether there is a program `dot` to be run.
[[nodiscard]] bool hasGraphviz();

/// Says on the console of a tag, once in a run of the program, that a picture was made without Graphviz, why, and how
/// to get it.
void tellWithoutGraphviz(const std::string& tag);

} // namespace Kova::Shell
