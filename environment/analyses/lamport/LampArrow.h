// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/DependenceFacts.h"
#include "environment/analyses/lamport/DependenceTypes.h"

#include <string>
#include <vector>

namespace DepGraph {

/// All dependences of one kind from one occurrence to another: the source is executed before the target.
class LampArrow {
public:
    explicit LampArrow(DependenceFacts facts) : m_facts(std::move(facts)) {}

    /// The names that the program text shows for the two accesses. Never null, not owned; equal when an occurrence
    /// depends on itself.
    [[nodiscard]] const Kova::Tessel::ExpressionBase* getSource() const { return m_facts.source; }
    [[nodiscard]] const Kova::Tessel::ExpressionBase* getTarget() const { return m_facts.target; }
    [[nodiscard]] EN_DepType getType() const { return m_facts.type; }
    /// Numbers of the loops that carry it, ascending: 1 is the outermost loop inside the block. -1, which comes first,
    /// stands for source and target in one and the same iteration of all their common loops. Empty when nothing is known.
    [[nodiscard]] std::vector<int> getCarriers() const { return m_facts.carriers; }
    /// For each common loop, outermost first, by how many iterations the target is later; nothing where that varies.
    [[nodiscard]] const std::vector<std::optional<long>>& getDistance() const { return m_facts.distance; }
    /// Whether the pair is known to exist for some values of the block's unknowns; otherwise it is assumed.
    [[nodiscard]] bool isProven() const { return m_facts.assumption.doubt == Doubt::None; }
    [[nodiscard]] const DependenceFacts& getFacts() const { return m_facts; }

    /// What a person is told about the arrow, in UTF-8.
    [[nodiscard]] std::string GetTag(EN_PrintModes mode) const;

private:
    DependenceFacts m_facts;
};

} // namespace DepGraph
