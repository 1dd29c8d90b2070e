// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/CountedLoops_p.h"
#include "environment/analyses/lamport/Course_p.h"

namespace Kova::Tessel {
class DoWhileStatement;
class WhileStatement;
} // namespace Kova::Tessel

namespace DepGraph {

/// How often a loop runs: its iterations are those up to the first one whose condition fails.
struct LoopIterations {
    /// Where the condition is tested, once more than the body runs.
    Reach tests;
    Reach body;
};

/// Enters loops and finds their iterations.
class LoopReader {
public:
    LoopReader(Course& course, const CountedLoops& loops) : m_course(course), m_loops(loops) {}

    /// Enters a loop after its initialization.
    [[nodiscard]] LoopIterations enter(const Kova::Tessel::ForStatement& loop);
    /// Enters a loop of which no more is known than its condition.
    [[nodiscard]] LoopIterations enter(const Kova::Tessel::WhileStatement& loop);
    [[nodiscard]] LoopIterations enter(const Kova::Tessel::DoWhileStatement& loop);

private:
    struct Lower {
        const HeaderCounter* counter;
        isl::pw_aff value;
    };

    [[nodiscard]] std::vector<Lower> readLowers(const Kova::Tessel::ForStatement& loop);
    void setCounters(const std::vector<Lower>& lowers);
    /// The iterations of the outer loops, each with all numbers from 0.
    [[nodiscard]] Reach countFromZero(const Reach& outer) const;
    [[nodiscard]] LoopIterations readIterations(const Kova::Tessel::ForStatement& loop,
                                                const std::vector<Lower>& lowers, const Reach& all);
    /// The vectors where the counters have values that their types hold.
    [[nodiscard]] isl::set withinTypes(const std::vector<Lower>& lowers, isl::set vectors) const;
    [[nodiscard]] bool isConstant(const Kova::Tessel::ExpressionBase* condition, bool value);

    Course& m_course;
    const CountedLoops& m_loops;
};

} // namespace DepGraph
