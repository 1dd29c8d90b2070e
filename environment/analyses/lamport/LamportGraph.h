// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/LampArrow.h"

#include <cstddef>
#include <deque>
#include <memory>

namespace Kova::Tessel {
class BlockStatement;
}

namespace DepGraph {

class AccessModel;
class PairTest;

/// The dependences between the occurrences of variables in a block, after L. Lamport, "The Parallel Execution of DO
/// Loops" (1974): memory-based, directed by the order of execution, with the loops that carry them.
///
/// An occurrence is the name of a variable where it is printed: in `a[i][j]` the word `a` stands for the element. Names
/// that differ are taken for memory that differs. The graph refers to the block's tree and keeps none of it alive.
class LamportGraph {
public:
    /// More arrows than this are not kept: whoever draws them would run out of memory first.
    static constexpr std::size_t mostArrows = 300'000;
    enum class LeftOut {
        Nothing,
        Input, ///< Pairs of reads, which leave the order of execution open.
        Everything
    };

    LamportGraph();
    /// A graph of given arrows, in this order, for hosts with an analysis of their own. Refine() does nothing to it.
    explicit LamportGraph(std::vector<LampArrow> arrows);
    ~LamportGraph();
    LamportGraph(const LamportGraph&) = delete;
    LamportGraph& operator=(const LamportGraph&) = delete;

    /// Replaces the graph by every pair of accesses that the order of execution allows, all of them assumed.
    /// @param withInput whether to keep pairs of reads.
    void Build(Kova::Tessel::BlockStatement& block, EN_LamportGraphBuildParams parameters, bool withInput);
    /// Drops and narrows down what the method disproves. Does nothing before Build().
    void Refine(EN_RefineMethod method);
    void Clear();

    /// In the order of the source occurrences in the block, then of the targets', then of the kinds' numbers. Stays as
    /// it is until the next call of Build(), Refine() or Clear().
    [[nodiscard]] const std::vector<LampArrow*>& getArrows() const;
    /// What is missing because there would be more than mostArrows; the console has been told so.
    [[nodiscard]] LeftOut getLeftOut() const;

private:
    void findArrows(PairTest& test) const;
    [[nodiscard]] bool findArrows(PairTest& test, bool withInput) const;
    void dropArrows() const;

    std::unique_ptr<AccessModel> m_model;
    bool m_withInput = false;
    // What Build() finds is made when it is first asked for: there is much of it, and Refine() puts something else in
    // its place.
    mutable bool m_unrefined = false;
    // Keeps its elements in place while it grows.
    mutable std::deque<LampArrow> m_owned;
    mutable std::vector<LampArrow*> m_arrows;
    mutable LeftOut m_leftOut = LeftOut::Nothing;
};

} // namespace DepGraph
