// SPDX-License-Identifier: MIT
#pragma once

#include "frontends/c/CFrontend.h"

#include <string>

namespace Kova::Tessel {
class ProgramUnit;
class TesselBase;
} // namespace Kova::Tessel

namespace Kova::Test {

/// The text that the program text builder prints of a node, with a line end behind every line.
[[nodiscard]] std::string printedText(Tessel::TesselBase& node);

/// Reads a file of C and prints it. @throws RuntimeError with the messages when there were errors.
[[nodiscard]] std::string printedFile(const std::string& path, const Frontends::COptions& options = {});

} // namespace Kova::Test
