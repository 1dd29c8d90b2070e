// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Kova::Test {

/// A valid C program (GNU dialect) that comes to its end and prints a checksum of all that it did. Nothing in it is
/// undefined or depends on addresses. The same seed gives the same program.
[[nodiscard]] std::string generateProgram(unsigned seed);

} // namespace Kova::Test
