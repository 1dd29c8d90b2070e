// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/AccessShapes_p.h"
#include "environment/analyses/lamport/SubscriptEquation_p.h"

namespace DepGraph {

/// What arithmetic alone says of where two accesses meet: subscripts without iteration numbers (ZIV), of one loop (SIV,
/// decided exactly), the GCD test and Banerjee's bounds for each direction, after distances that a subscript fixes have
/// been put into the others (the idea of G. Goff, K. Kennedy, C.-W. Tseng, "Practical Dependence Testing", 1991).
///
/// Loops are the rectangle of their constant bounds here; conditions and the unknowns' values play no part.
class QuickTests {
public:
    /// @param commonLoops how many loops, from the outermost, are around both.
    QuickTests(const AccessShape& source, const AccessShape& target, std::size_t commonLoops);

    /// False only when no source iteration meets a target iteration of those directions.
    [[nodiscard]] bool mayMeet(const Directions& directions) const;
    /// Whether mayMeet() is the whole truth: what it does not deny happens whatever the unknowns are. Then
    /// directions of different loops do not depend on each other.
    [[nodiscard]] bool isExact() const { return m_exact; }
    /// Bounds of target - source in a common loop, taken when isExact(); nothing when there is no such pair.
    [[nodiscard]] std::optional<IterationRange> findDistances(std::size_t loop, Direction direction) const {
        return m_pairs[loop].findDistances(direction);
    }

private:
    void readEquations(const AccessShape& source, const AccessShape& target);
    void spreadDistances();
    [[nodiscard]] std::optional<std::pair<std::size_t, long>>
    findFixedDistance(const SubscriptEquation& equation) const;
    void separate();
    [[nodiscard]] bool placeEquation(const SubscriptEquation::Single& equation, std::vector<bool>& sourceTaken,
                                     std::vector<bool>& targetTaken);

    IterationRanges m_ranges;
    std::vector<SubscriptEquation> m_equations;
    /// For each common loop what the subscripts of this loop alone demand.
    std::vector<IterationPairs> m_pairs;
    bool m_disproved;
    bool m_exact;
};

} // namespace DepGraph
