// SPDX-License-Identifier: MIT
#pragma once

#include <isl/cpp.h>

#include <vector>

namespace Kova::Tessel {
class DeclarationBase;
class LoopStatement;
} // namespace Kova::Tessel

namespace DepGraph {

/// The loops around a point of a block, outermost first, with the values of their counters.
class LoopNest {
public:
    struct Counter {
        const Kova::Tessel::DeclarationBase* variable;
        /// A function of the iteration numbers of the loops up to the counter's own.
        isl::pw_aff value;
    };

    [[nodiscard]] unsigned getDepth() const { return static_cast<unsigned>(m_loops.size()); }
    [[nodiscard]] const std::vector<const Kova::Tessel::LoopStatement*>& getLoops() const { return m_loops; }

    void enter(const Kova::Tessel::LoopStatement& loop) {
        m_loops.push_back(&loop);
        m_counters.emplace_back();
    }
    void leave() {
        m_loops.pop_back();
        m_counters.pop_back();
    }
    /// Counters of the innermost loop.
    void setCounters(std::vector<Counter> counters) { m_counters.back() = std::move(counters); }
    [[nodiscard]] const std::vector<Counter>& getCounters() const { return m_counters.back(); }

    /// The value as a function of all the loops' iteration numbers; null when the variable is no counter.
    [[nodiscard]] isl::pw_aff findCounter(const Kova::Tessel::DeclarationBase& variable) const;
    /// The outer loops alone.
    [[nodiscard]] LoopNest upTo(unsigned depth) const;

private:
    std::vector<const Kova::Tessel::LoopStatement*> m_loops;
    std::vector<std::vector<Counter>> m_counters;
};

} // namespace DepGraph
