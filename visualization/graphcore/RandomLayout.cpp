// SPDX-License-Identifier: MIT
#include "visualization/graphcore/RandomLayout.h"

#include "visualization/graphcore/NodeBase.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <set>

namespace Kova::GUI::GenericGraph {
namespace {

constexpr unsigned Seed = 0;
constexpr double SideOfOneNode = 150.0;

} // namespace

double rrand() {
    return std::rand() / 2147483647.0;
}

void RandomLayout::layOut(const std::vector<NodeBase*>& nodes) {
    std::srand(Seed);
    const double side = std::sqrt(static_cast<double>(nodes.size())) * SideOfOneNode;
    std::set<std::int64_t> taken;
    for (NodeBase* node : nodes) {
        int x = 0;
        int y = 0;
        do {
            // In two statements: x is drawn first.
            x = static_cast<int>(rrand() * side);
            y = static_cast<int>(rrand() * side);
        } while (!taken.insert(std::int64_t{x} * 10000 + y).second);
        node->moveTo(x, y);
    }
}

} // namespace Kova::GUI::GenericGraph
