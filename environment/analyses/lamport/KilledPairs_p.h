// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/DependenceFinder_p.h"
#include "environment/analyses/lamport/ExactTest_p.h"

namespace DepGraph {

/// Takes the pairs of iterations out of a relation between which somebody surely writes the element (W. Pugh, D.
/// Wonnacott, "Eliminating False Data Dependences using the Omega Test", 1992).
class KilledPairs {
public:
    /// All kept by reference. @param exact tells which accesses meet at all.
    KilledPairs(const std::vector<Access>& accesses, const DependenceFinder& finder, ExactTest& exact);

    /// From the iterations of a source to those of a target that use what it used, nobody else having written it;
    /// further dimensions may follow the loops'.
    /// @param writes accesses without an assumption that may come between.
    /// @throws isl::exception when isl has come to its limit.
    [[nodiscard]] isl::map findLiving(std::size_t source, std::size_t target, const std::vector<std::size_t>& writes);

    /// How many writes have been taken out of relations so far.
    [[nodiscard]] std::size_t countSteps() const { return m_steps; }

private:
    using Members = std::vector<const Kova::Tessel::DeclarationBase*>;

    void startVariable(std::size_t access);
    [[nodiscard]] isl::map findElements(std::size_t access);
    [[nodiscard]] const isl::map& findBefore(std::size_t first, std::size_t second);
    [[nodiscard]] isl::map findMeetings(std::size_t first, std::size_t second);

    const std::vector<Access>& m_accesses;
    const DependenceFinder& m_finder;
    ExactTest& m_exact;
    std::size_t m_steps = 0;

    // All that follows is of one variable at a time.
    const std::vector<std::size_t>* m_variable = nullptr;
    /// The most subscripts that an access has.
    std::size_t m_subscripts = 0;
    /// The different member lists: each is a part that can be written by itself.
    std::vector<Members> m_parts;
    /// Whether each access touches just one element, so that who meets two others lets these meet as well.
    bool m_single = true;
    std::unordered_map<std::size_t, isl::map> m_before;
};

} // namespace DepGraph
