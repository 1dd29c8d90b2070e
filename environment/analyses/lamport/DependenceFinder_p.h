// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/PairFacts_p.h"

#include <functional>
#include <unordered_map>

namespace DepGraph {

/// Finds the arrows among accesses, with any test of pairs.
class DependenceFinder {
public:
    /// @param accesses kept by reference.
    /// @param declarations of variables of the block, with the loops around them.
    /// @param disorder the jump that makes the order of execution unknown; null when the order is known.
    /// @param withInput whether pairs of reads count.
    DependenceFinder(const std::vector<Access>& accesses, const std::vector<Access>& declarations,
                     const Kova::Tessel::TesselBase* disorder, bool withInput);

    /// Calls `use` for each arrow: by the position of the source occurrence, then of the target's, then by kind; until
    /// `use` returns false.
    void find(PairTest& test, const std::function<bool(DependenceFacts)>& use) const;

    /// Whether they may share memory and their pair is asked for.
    [[nodiscard]] bool isWanted(std::size_t source, std::size_t target) const;
    [[nodiscard]] AccessPair makePair(std::size_t source, std::size_t target) const;
    /// The accesses, ascending, that use the same variable as the given one, itself included.
    [[nodiscard]] const std::vector<std::size_t>& getAccessesOf(std::size_t access) const {
        return m_ofVariable[m_variables[access]];
    }

private:
    /// An arrow with the position of its target occurrence.
    struct Found {
        std::size_t target;
        DependenceFacts facts;
    };

    void findFrom(std::size_t source, PairTest& test, std::vector<Found>& found) const;
    [[nodiscard]] std::optional<PairFacts> testPair(PairTest& test, const AccessPair& pair) const;
    [[nodiscard]] DependenceFacts makeFacts(const AccessPair& pair, PairFacts facts) const;
    [[nodiscard]] Assumption assume(const AccessPair& pair, Doubt doubt) const;

    const std::vector<Access>& m_accesses;
    const Kova::Tessel::TesselBase* m_disorder;
    bool m_withInput;
    /// For each access the number of its variable and the position of its occurrence, both from 0 as they are met.
    std::vector<std::size_t> m_variables;
    std::vector<std::size_t> m_occurrences;
    std::vector<std::vector<std::size_t>> m_ofVariable;
    /// For each variable how many loops of the block are around its declaration.
    std::vector<std::size_t> m_ownLoops;
};

} // namespace DepGraph
