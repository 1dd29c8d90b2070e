// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/IslSpaces_p.h"
#include "environment/analyses/lamport/LoopNest_p.h"

namespace DepGraph {

std::optional<isl::pw_aff> LoopNest::findValue(const Kova::Tessel::DeclarationBase& variable) const {
    for (auto loop = m_known.rbegin(); loop != m_known.rend(); ++loop)
        for (auto known = loop->rbegin(); known != loop->rend(); ++known)
            if (known->variable == &variable)
                return lifted(known->value, getDepth());
    return std::nullopt;
}

} // namespace DepGraph
