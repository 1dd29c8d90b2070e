// SPDX-License-Identifier: MIT
#pragma once

#include "environment/printing/PieceList.h"
#include "environment/printing/SourceText.h"
#include "environment/tessel/TextPlace.h"

#include <optional>
#include <string>
#include <vector>

namespace Kova::Backends {

/// Source text that stands for a node on one line, with the node's operands printed in their places. An operand whose
/// place is not known, or is none in the text, has an empty piece before the text, as has all that is below it; when
/// this is so of every operand, their names are looked for in the text, see splitAtNames.
/// An operand that the text already has in parentheses gets no others.
/// @param places one for each child of the node, in any order.
[[nodiscard]] PieceList splitAtOperands(const std::string& text, TextStyle style, Tessel::TesselBase& node,
                                        const std::vector<std::optional<Tessel::TextPlace>>& places);

} // namespace Kova::Backends
