// SPDX-License-Identifier: MIT
#pragma once

namespace Kova::GUI::TextGraph {

/// The two ends of an edge.
enum class EdgeSide : int { From = 0, To = 1 };

} // namespace Kova::GUI::TextGraph
