// SPDX-License-Identifier: MIT
#pragma once

#include <isl/cpp.h>

#include <optional>
#include <vector>

namespace Kova::Tessel {
class DeclarationBase;
class LoopStatement;
} // namespace Kova::Tessel

namespace DepGraph {

/// The loops around a point of a block, outermost first, with the variables whose values are known there.
class LoopNest {
public:
    struct Known {
        const Kova::Tessel::DeclarationBase* variable;
        /// A function of the iteration numbers of the loops up to the one that it is known in.
        isl::pw_aff value;
    };

    LoopNest() : m_known(1) {}

    [[nodiscard]] unsigned getDepth() const { return static_cast<unsigned>(m_loops.size()); }
    [[nodiscard]] const std::vector<const Kova::Tessel::LoopStatement*>& getLoops() const { return m_loops; }

    void enter(const Kova::Tessel::LoopStatement& loop) {
        m_loops.push_back(&loop);
        m_known.emplace_back();
    }
    /// Forgets what was known inside.
    void leave() {
        m_loops.pop_back();
        m_known.pop_back();
    }
    /// From now on, until the innermost loop is left.
    void setKnown(const Kova::Tessel::DeclarationBase& variable, isl::pw_aff value) {
        m_known.back().push_back({&variable, std::move(value)});
    }
    /// Forgets what is known in the innermost loop alone.
    void forgetInnermost() { m_known.back().clear(); }

    /// As a function of all the loops' iteration numbers.
    [[nodiscard]] std::optional<isl::pw_aff> findValue(const Kova::Tessel::DeclarationBase& variable) const;

private:
    std::vector<const Kova::Tessel::LoopStatement*> m_loops;
    /// One list more than loops: the first is for what is known outside of all.
    std::vector<std::vector<Known>> m_known;
};

} // namespace DepGraph
