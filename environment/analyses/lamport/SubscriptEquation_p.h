// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/IterationPairs_p.h"
#include "environment/analyses/lamport/LinearForm_p.h"
#include "environment/analyses/lamport/WideInteger_p.h"

#include <cstddef>

namespace DepGraph {

/// For each loop around both accesses, outermost first.
using Directions = std::vector<Direction>;

/// The iteration numbers of the loops around the source and around the target, those of common loops first.
struct IterationRanges {
    const std::vector<IterationRange>& source;
    const std::vector<IterationRange>& target;
};

/// That a subscript has the same value at the source as at the target, as a linear equation.
class SubscriptEquation {
public:
    SubscriptEquation(const LinearForm& source, const LinearForm& target);

    /// Whether it holds whatever the iterations are.
    [[nodiscard]] bool isTrivial() const;
    /// False only when it has no solution with these directions: the GCD test and Banerjee's bounds for direction
    /// vectors (U. Banerjee, "Dependence Analysis for Supercomputing", 1988; M. Wolfe, "Optimizing Supercompilers for
    /// Supercomputers", 1989). Without iteration numbers left it is the ZIV test.
    [[nodiscard]] bool mayHold(const Directions& directions, const IterationRanges& ranges) const;

    /// Puts source + distance for the target's iteration number of a common loop.
    void substitute(std::size_t loop, long distance);

    /// source's factor * its iteration number - target's factor * its iteration number + constant = 0.
    struct Single {
        /// Nothing where the side has no iteration number with a factor.
        std::optional<std::size_t> sourceLoop;
        std::optional<std::size_t> targetLoop;
        long sourceFactor = 0;
        long targetFactor = 0;
        long constant = 0;
    };
    /// The equation when at most one iteration number of the source and one of the target have factors; nothing when
    /// more have, when an unknown is left, or when a number is beyond 2^40.
    [[nodiscard]] std::optional<Single> findSingle() const;

private:
    [[nodiscard]] bool passesGcd(const Directions& directions) const;
    [[nodiscard]] bool passesBounds(const Directions& directions, const IterationRanges& ranges) const;

    WideInteger m_constant;
    std::vector<WideInteger> m_source;
    std::vector<WideInteger> m_target;
    std::vector<std::pair<int, long>> m_unknowns;
};

} // namespace DepGraph
