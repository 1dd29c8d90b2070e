// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/AccessModel_p.h"
#include "environment/analyses/lamport/SubscriptEquation_p.h"

namespace DepGraph {

/// The number that stands among carriers for one and the same iteration of all common loops.
constexpr int withinIteration = -1;

/// One access that may be executed before another, by their positions in a list of accesses.
struct AccessPair {
    std::size_t source = 0;
    std::size_t target = 0;
    /// How many loops, from the outermost, are around both.
    std::size_t commonLoops = 0;
    /// Whether the source comes first within one iteration of all common loops, and is another occurrence.
    bool inOrder = false;
    /// How many of the common loops are around the variable's declaration: each of their iterations has a variable of
    /// its own.
    std::size_t ownLoops = 0;
};

/// How many loops, from the outermost, are around both accesses.
[[nodiscard]] std::size_t countCommonLoops(const Access& first, const Access& second);
/// Whether one access comes before another within one iteration of their common loops. Where the language leaves that
/// open, their order in the list holds.
[[nodiscard]] bool isInOrder(const std::vector<Access>& accesses, std::size_t first, std::size_t second,
                             std::size_t commonLoops);
[[nodiscard]] AccessPair orderAccesses(const std::vector<Access>& accesses, std::size_t source, std::size_t target);

/// The carriers that the order of execution allows, ascending: withinIteration or a number of a loop, from 1.
[[nodiscard]] std::vector<int> listCarriers(const AccessPair& pair);

/// The directions of the common loops that a carrier stands for.
[[nodiscard]] Directions getDirections(int carrier, std::size_t commonLoops);

} // namespace DepGraph
