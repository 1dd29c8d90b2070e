// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/DependenceTypes.h"

#include <optional>
#include <string>
#include <vector>

namespace Kova::Tessel {
class ExpressionBase;
class LoopStatement;
class TesselBase;
} // namespace Kova::Tessel

namespace DepGraph {

/// Why a dependence is assumed rather than proven.
enum class Doubt {
    None,
    NotRefined,  ///< Nothing but the order of execution has been looked at.
    Subscript,   ///< A subscript is not affine.
    Pointer,     ///< Which memory a pointer leads to is not known.
    Member,      ///< Different parts of a structure or union that may overlap.
    Bounds,      ///< How often a loop runs is not affine, or its counter is changed in its body.
    Condition,   ///< A condition is not affine.
    Jump,        ///< A jump changes the order or leaves a loop early.
    Call,        ///< What a called function does to its argument is not known.
    Opaque,      ///< A piece of the source that the front end could not represent.
    QuickTest,   ///< The quick tests do not disprove it.
    WorkLimit,   ///< The exact test was stopped after its fixed amount of work.
};

struct Assumption {
    Doubt doubt = Doubt::None;
    /// What gave rise to the doubt: a subscript, a condition, a loop. Not owned; may be null.
    const Kova::Tessel::TesselBase* where = nullptr;
};

/// One arrow as the analysis found it.
struct DependenceFacts {
    EN_DepType type = DT_FLOW;
    const Kova::Tessel::ExpressionBase* source = nullptr;
    const Kova::Tessel::ExpressionBase* target = nullptr;
    std::vector<int> carriers;
    /// The loops around both, outermost first; as long as `distance`.
    std::vector<const Kova::Tessel::LoopStatement*> commonLoops;
    std::vector<std::optional<long>> distance;
    /// For each common loop the signs that the distance takes: any of '<' (target later), '=' and '>'; "" means unknown.
    std::vector<std::string> directions;
    Assumption assumption;
    /// The values of the unknowns for which the pair exists, as "n >= 2 and m > n"; empty when it exists for all.
    std::string condition;
};

} // namespace DepGraph
