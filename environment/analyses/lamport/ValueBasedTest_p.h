// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/DependenceFinder_p.h"
#include "environment/analyses/lamport/ExactTest_p.h"
#include "environment/analyses/lamport/KilledPairs_p.h"

namespace DepGraph {

/// Of the pairs that meet, those between which nobody else surely writes the element: last writes before a read, next
/// writes after one (P. Feautrier, "Dataflow Analysis of Array and Scalar References", 1991). An access with an
/// assumption never ends what came before it.
class ValueBasedTest final : public PairTest {
public:
    struct Limits {
        /// What isl may spend on one pair.
        unsigned long operations = 1'000'000;
        /// How many writes may be taken out of pairs in all.
        std::size_t steps = 200'000;
    };

    /// All but the context kept by reference. @param exact tells which pairs meet at all.
    ValueBasedTest(isl::ctx context, const std::vector<Access>& accesses, const AccessShapes& shapes,
                   const DependenceFinder& finder, ExactTest& exact, Limits limits);

    [[nodiscard]] std::optional<PairFacts> test(const AccessPair& pair) override;
    /// Without an order nobody is between.
    [[nodiscard]] std::optional<PairFacts> testUnordered(const AccessPair& pair) override {
        return m_exact.testUnordered(pair);
    }

private:
    /// The source accesses that a target depends on, with what is found of each pair.
    using Flows = std::unordered_map<std::size_t, PairFacts>;
    struct Source {
        AccessPair pair;
        PairFacts memoryBased;
    };

    [[nodiscard]] std::vector<Source> findSources(std::size_t target);
    [[nodiscard]] Flows findFlows(std::size_t target);
    [[nodiscard]] std::vector<std::size_t> findWrites(std::size_t target, const std::vector<Source>& sources) const;
    [[nodiscard]] std::optional<PairFacts> findFlow(Source& source, const std::vector<std::size_t>& writes);
    [[nodiscard]] bool isStraight(std::size_t target, const std::vector<Source>& sources) const;
    [[nodiscard]] Flows scanStraight(std::size_t target, std::vector<Source> sources) const;
    [[nodiscard]] bool covers(std::size_t write, const AccessPair& pair) const;

    isl::ctx m_context;
    const std::vector<Access>& m_accesses;
    const AccessShapes& m_shapes;
    const DependenceFinder& m_finder;
    ExactTest& m_exact;
    Limits m_limits;
    KilledPairs m_killed;
    /// For each access what it depends on, once it has been asked for.
    std::vector<std::optional<Flows>> m_flows;
};

} // namespace DepGraph
