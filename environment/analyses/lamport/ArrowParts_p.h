// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/DependenceFacts.h"

#include <optional>
#include <string>
#include <vector>

namespace DepGraph {

/// A loop as descriptions name it.
struct LoopPart {
    int number = 0;
    /// Empty when the loop has no counter.
    std::string counter;
    /// In the source file; 0 when unknown.
    unsigned line = 0;
    /// Whether another loop around both accesses has a counter of the same name.
    bool ambiguous = false;
};

struct CarrierPart {
    LoopPart loop;
    /// By how many iterations of this loop the target is later: positive; none where that varies or is not known.
    std::optional<long> distance;
};

/// What descriptions say about an arrow, before it becomes words.
struct ArrowParts {
    explicit ArrowParts(const DependenceFacts& facts);

    EN_DepType type;
    std::string source;
    std::string target;
    /// In the source file; 0 when unknown.
    unsigned sourceLine;
    unsigned targetLine;
    bool sameOccurrence;
    /// All loops around both accesses, outermost first.
    std::vector<LoopPart> loops;
    bool withinIteration = false;
    std::vector<CarrierPart> carriers;
    /// Nothing is known of carriers.
    bool carriersUnknown;
    /// "(1, *)"; empty when there is no loop around both.
    std::string distance;
    bool someDistanceKnown;
    /// "(<, *)": '=' same iteration, '<' later one, "<=" and ">=" either, "!=" both but never the same, '*' any,
    /// '?' not known; empty when there is no loop around both or every distance is given.
    std::string directions;
    std::string condition;
    Doubt doubt;
    /// What the doubt is about: an expression as text, a number of a line; empty when there is nothing to name.
    std::string doubtful;
    /// What the doubt is about when that is a loop.
    std::optional<LoopPart> doubtfulLoop;
};

} // namespace DepGraph
