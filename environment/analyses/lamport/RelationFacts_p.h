// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/PairFacts_p.h"
#include "environment/analyses/lamport/QuickTests_p.h"

namespace DepGraph {

/// Cuts a relation from iterations of the source to iterations of the target by carriers and describes what is left.
class RelationFacts {
public:
    /// @param tests of the same pair; kept by reference.
    RelationFacts(isl::map relation, std::size_t commonLoops, const QuickTests& tests);

    /// @param carriers those that the order allows, ascending.
    /// @return nothing when the relation is empty under each of them.
    /// @throws isl::exception when isl has come to its limit.
    [[nodiscard]] std::optional<PairFacts> describe(const std::vector<int>& carriers);

private:
    void describeCarrier(int carrier, const isl::map& part);
    void addDistance(std::size_t loop, Direction direction, const isl::map& part, isl::set& distances);

    isl::map m_relation;
    std::size_t m_commonLoops;
    const QuickTests& m_tests;
    PairFacts m_facts;
    DistanceCollector m_collector;
    isl::set m_unknowns;
};

} // namespace DepGraph
