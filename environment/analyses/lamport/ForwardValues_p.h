// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/JumpFacts_p.h"

namespace Kova::Tessel {
class AssignmentExpression;
} // namespace Kova::Tessel

namespace DepGraph {

/// Finds variables that get one value before all their uses, so that each use stands for that value.
class ForwardValues {
public:
    ForwardValues(const BlockFacts& facts, const JumpFacts& jumps) : m_facts(facts), m_jumps(jumps) {}

    /// Whether the initializer of a variable that the block declares is its value wherever it is used.
    [[nodiscard]] bool isForwarded(const Kova::Tessel::VariableDeclaration& variable) const;
    /// Whether the assigned value is the target's wherever it is used, from the next statement on.
    /// @param assignment a statement of its own.
    [[nodiscard]] bool isForwarded(const Kova::Tessel::AssignmentExpression& assignment) const;

private:
    [[nodiscard]] bool isStable(const Kova::Tessel::VariableDeclaration& variable) const;

    const BlockFacts& m_facts;
    const JumpFacts& m_jumps;
};

} // namespace DepGraph
