// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/graphcore/LayoutManager.h"

namespace Kova::GUI::GenericGraph {

/// A uniform random number in [0, 1], from the C library's generator.
[[nodiscard]] VISUALIZATION_EXPORT double rrand();

/// Scatters the nodes, visible or not, over a square that leaves about 150 x 150 graph units to each. No two nodes
/// share a centre.
///
/// Every run reseeds the C library's random generator, so that the same graph always gets the same picture; whoever
/// else draws from that generator sees it start again.
class VISUALIZATION_EXPORT RandomLayout : public LayoutManager {
public:
    void layOut(const std::vector<NodeBase*>& nodes) override;
};

} // namespace Kova::GUI::GenericGraph
