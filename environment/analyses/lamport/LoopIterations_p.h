// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/CountedLoops_p.h"

namespace DepGraph {

/// Iterations of the program at one point, and whether these are all and no more.
struct Reach {
    isl::set domain;
    Assumption assumption;

    void doubt(Doubt doubt, const Kova::Tessel::TesselBase* where) {
        if (assumption.doubt == Doubt::None)
            assumption = {doubt, where};
    }
};

/// How often a loop runs: its iterations are those before the first one whose condition fails.
struct LoopIterations {
    /// Where the condition is tested: after each iteration once more than the body runs.
    Reach tests;
    Reach body;
};

} // namespace DepGraph
