// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/LinearSystem_p.h"
#include "environment/analyses/lamport/PairFacts_p.h"
#include "environment/analyses/lamport/QuickTests_p.h"

namespace DepGraph {

/// Where two accesses meet, found by eliminating iteration numbers one by one: the same as isl finds, for what is
/// linear and has factors of 1 nearly everywhere.
class EliminationFacts {
public:
    /// Shapes and tests are kept by reference.
    EliminationFacts(const AccessShape& source, const AccessShape& target, std::size_t commonLoops,
                     const QuickTests& tests);

    /// False when this is beyond elimination; nothing else may be asked then.
    /// @param carriers those that the order allows.
    [[nodiscard]] bool decide(const std::vector<int>& carriers);

    /// Without the condition; nothing when the accesses never meet.
    [[nodiscard]] std::optional<PairFacts> getFacts() const;
    /// The numbers of the unknowns, ascending, that getConditions() is about.
    [[nodiscard]] const std::vector<int>& getUnknowns() const { return m_unknowns; }
    /// What the unknowns have to fulfil: all rows of one of these.
    [[nodiscard]] const std::vector<std::vector<LinearSystem::Row>>& getConditions() const { return m_conditions; }

private:
    [[nodiscard]] bool readSystems();
    [[nodiscard]] LinearSystem makeSystem(const DomainPart& source, const DomainPart& target) const;
    [[nodiscard]] LinearSystem::Row makeRow(const LinearForm* source, const LinearForm* target) const;
    void cut(LinearSystem& system, const Directions& directions) const;
    [[nodiscard]] bool decideCarrier(int carrier);
    [[nodiscard]] bool addDistances(const LinearSystem& system, const Directions& directions);

    const AccessShape& m_source;
    const AccessShape& m_target;
    std::size_t m_commonLoops;
    const QuickTests& m_tests;
    std::size_t m_sourceLoops;
    std::size_t m_loops;
    std::vector<int> m_unknowns;
    /// One for each two parts of the domains. Variables: the source's iteration numbers, the target's, the unknowns.
    std::vector<LinearSystem> m_systems;
    std::vector<int> m_carriers;
    DistanceCollector m_collector;
    std::vector<std::vector<LinearSystem::Row>> m_conditions;
};

} // namespace DepGraph
