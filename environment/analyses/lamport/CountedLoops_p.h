// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/AffineReader_p.h"

namespace Kova::Tessel {
class AssignmentExpression;
class ForStatement;
} // namespace Kova::Tessel

namespace DepGraph {

/// A variable that a loop's header sets and then steps by a constant, and that nothing else in the loop changes.
struct HeaderCounter {
    const Kova::Tessel::VariableDeclaration* variable;
    Kova::Tessel::ExpressionBase* lower;
    /// Not zero.
    isl::val step;
};

/// Finds the counters of a block's loops by the form of the headers.
class CountedLoops {
public:
    CountedLoops(Kova::Tessel::BlockStatement& block, const BlockFacts& facts, AffineReader& reader);

    [[nodiscard]] const std::vector<HeaderCounter>& getCounters(const Kova::Tessel::ForStatement& loop) const;
    /// Whether all the words of a variable lie in loops that it counts: nothing but their own control flows through it.
    [[nodiscard]] bool isExplained(const Kova::Tessel::DeclarationBase& variable) const;

private:
    using Counters = std::vector<HeaderCounter>;

    [[nodiscard]] Counters readHeader(const Kova::Tessel::ForStatement& loop, AffineReader& reader) const;
    [[nodiscard]] bool isChangedBeside(const Kova::Tessel::ForStatement& loop,
                                       const Kova::Tessel::VariableDeclaration& variable) const;
    [[nodiscard]] bool isInLoopOver(const Kova::Tessel::VariableReference& word) const;

    const BlockFacts& m_facts;
    // Looked up, never walked.
    std::unordered_map<const Kova::Tessel::ForStatement*, Counters> m_counters;
    std::unordered_map<const Kova::Tessel::DeclarationBase*, bool> m_explained;
};

} // namespace DepGraph
