// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/AccessPair_p.h"

#include <algorithm>

namespace DepGraph {

std::size_t countCommonLoops(const Access& first, const Access& second) {
    std::size_t common = 0;
    while (common < first.loops.size() && common < second.loops.size() && first.loops[common] == second.loops[common] &&
           first.positions[common] == second.positions[common])
        ++common;
    return common;
}

bool isInOrder(const std::vector<Access>& accesses, std::size_t first, std::size_t second, std::size_t commonLoops) {
    const int before = accesses[first].positions[commonLoops];
    const int after = accesses[second].positions[commonLoops];
    return before != after ? before < after : first < second;
}

AccessPair orderAccesses(const std::vector<Access>& accesses, std::size_t source, std::size_t target) {
    const Access& first = accesses[source];
    const Access& second = accesses[target];
    const std::size_t common = countCommonLoops(first, second);
    return {source, target, common,
            first.occurrence != second.occurrence && isInOrder(accesses, source, target, common), 0};
}

std::vector<int> listCarriers(const AccessPair& pair) {
    std::vector<int> carriers;
    carriers.reserve(pair.commonLoops + (pair.inOrder ? 1 : 0));
    if (pair.inOrder)
        carriers.push_back(withinIteration);
    for (std::size_t loop = pair.ownLoops + 1; loop <= pair.commonLoops; ++loop)
        carriers.push_back(static_cast<int>(loop));
    return carriers;
}

Directions getDirections(int carrier, std::size_t commonLoops) {
    if (carrier == withinIteration)
        return Directions(commonLoops, Direction::Same);
    Directions directions(commonLoops, Direction::Any);
    const auto loop = static_cast<std::size_t>(carrier - 1);
    std::fill_n(directions.begin(), loop, Direction::Same);
    directions[loop] = Direction::Later;
    return directions;
}

} // namespace DepGraph
