// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Kova::Tessel {
class TesselBase;
}

namespace Kova::Backends {

class PieceLanguage;

/// All that a node prints as in a language, on one line.
[[nodiscard]] std::string printOnOneLine(const Tessel::TesselBase& node, PieceLanguage& language);

} // namespace Kova::Backends
