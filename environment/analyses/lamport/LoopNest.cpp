// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/IslSpaces_p.h"
#include "environment/analyses/lamport/LoopNest_p.h"

namespace DepGraph {

isl::pw_aff LoopNest::findCounter(const Kova::Tessel::DeclarationBase& variable) const {
    for (auto loop = m_counters.rbegin(); loop != m_counters.rend(); ++loop)
        for (const Counter& counter : *loop)
            if (counter.variable == &variable)
                return lifted(counter.value, getDepth());
    return {};
}

LoopNest LoopNest::upTo(unsigned depth) const {
    LoopNest outer = *this;
    outer.m_loops.resize(depth);
    outer.m_counters.resize(depth);
    return outer;
}

} // namespace DepGraph
