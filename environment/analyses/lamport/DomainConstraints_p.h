// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/LinearForm_p.h"

namespace DepGraph {

/// form = 0, or form >= 0.
struct DomainConstraint {
    LinearForm form;
    bool equality = false;
};

/// Iterations for which all constraints hold.
using DomainPart = std::vector<DomainConstraint>;

/// The set as the union of few parts without quotients; nothing when it is none.
[[nodiscard]] std::optional<std::vector<DomainPart>> readParts(const isl::set& domain, UnknownNumbers& unknowns);

} // namespace DepGraph
