// SPDX-License-Identifier: MIT
#pragma once

#include "environment/printing/PieceList.h"

#include <string>

namespace Kova::Backends {

/// Source text that stands for a node, cut so that each name that an expression below the node mentions is a piece of
/// its own for that expression: the first such word that no other expression has, outside of constants. What is below
/// the node and has no word, because a macro brought it in or because it is no name, gets an empty piece before the
/// text.
[[nodiscard]] PieceList splitAtNames(const std::string& text, Tessel::TesselBase& node);

} // namespace Kova::Backends
