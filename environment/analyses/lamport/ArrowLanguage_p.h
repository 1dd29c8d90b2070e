// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/DependenceFacts.h"

#include <array>
#include <string>

namespace DepGraph {

/// How a language says why: with the name of what is to blame in the place of '%', and without it.
struct Reason {
    const char* named;
    const char* unnamed;
};

/// What happens to the value at the arrow's target.
struct Event {
    const char* certain;
    const char* possible;
};

constexpr std::size_t doubtCount = static_cast<std::size_t>(Doubt::WorkLimit) + 1;

/// The words of a language. '%' stands for what a phrase speaks of; phrases that follow others begin with the blank or
/// comma that parts them.
struct ArrowLanguage {
    /// Sentences: "The value written to a[i] in line 5 is read as a[i - 1] in line 7, ...".
    const char* readFrom;
    const char* writtenTo;
    const char* subjectEnd;
    const char* inLine;
    const char* inSameLine;
    const char* there;
    const char* as;
    Event read;
    Event readAgain;
    Event overwritten;

    /// Times: ", in the same iteration of the loop over i or in a later iteration of the loop over j".
    const char* sameIteration;
    const char* unknownIteration;
    const char* nextIteration;
    const char* laterIteration;
    /// '%' is a number of iterations, as made by countIterations.
    const char* iterationsLater;
    std::string (*countIterations)(long count);

    /// Loops, in the form that follows `of` and that reasons use.
    const char* of;
    const char* loopOver;
    const char* loopsOver;
    const char* loopInLine;
    const char* loopNumber;

    const char* conjunction;
    const char* disjunction;
    const char* sentenceCondition;
    const char* because;

    /// Developers' lines: "flow dependence: a[i] (line 5) -> a[i - 1] (line 7); carried by loop 1 (i); ...".
    const char* flow;
    const char* anti;
    const char* output;
    const char* input;
    const char* otherKind;
    const char* line;
    const char* sameOccurrence;
    const char* withinIteration;
    const char* carriedByOne;
    const char* carriedByMany;
    /// Between withinIteration and carriedBy.
    const char* also;
    const char* carriersUnknown;
    const char* distanceVector;
    const char* directionVector;
    const char* proven;
    const char* assumed;
    const char* condition;

    /// Indexed by Doubt; the first is not used.
    std::array<Reason, doubtCount> sentenceReasons;
    std::array<Reason, doubtCount> reasons;
};

[[nodiscard]] const ArrowLanguage& getEnglish();
[[nodiscard]] const ArrowLanguage& getRussian();

} // namespace DepGraph
