// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/ArrowLanguage_p.h"

namespace DepGraph {

namespace {

/// Numbers up to twelve are words.
std::string countIterations(long count) {
    static const std::array<const char*, 13> words = {"no",    "one",   "two",  "three", "four",   "five",  "six",
                                                      "seven", "eight", "nine", "ten",   "eleven", "twelve"};
    const auto index = static_cast<std::size_t>(count);
    const std::string number = index < words.size() ? words[index] : std::to_string(count);
    return number + (count == 1 ? " iteration" : " iterations");
}

ArrowLanguage makeEnglish() {
    ArrowLanguage words = {};
    words.readFrom = "The value read from %";
    words.writtenTo = "The value written to %";
    words.subjectEnd = "";
    words.inLine = " in line %";
    words.inSameLine = " in the same line";
    words.there = " there";
    words.as = " as %";
    words.read = {" is read", " may be read"};
    words.readAgain = {" is read again", " may be read again"};
    words.overwritten = {" is overwritten", " may be overwritten"};

    words.sameIteration = "in the same iteration";
    words.unknownIteration = "in an unknown iteration";
    words.nextIteration = "in the next iteration";
    words.laterIteration = "in a later iteration";
    words.iterationsLater = "% later";
    words.countIterations = countIterations;

    words.of = " of ";
    words.loopOver = "the loop over %";
    words.loopsOver = "the loops over %";
    words.loopInLine = "the loop in line %";
    words.loopNumber = "loop %";

    words.conjunction = " and ";
    words.disjunction = " or ";
    words.sentenceCondition = ", if %";
    words.because = ", because %";

    words.flow = "flow dependence";
    words.anti = "anti dependence";
    words.output = "output dependence";
    words.input = "input dependence";
    words.otherKind = "dependence";
    words.line = "line %";
    words.sameOccurrence = "same occurrence";
    words.withinIteration = "loop-independent";
    words.carriedByOne = "carried by loop %";
    words.carriedByMany = "carried by loops %";
    words.also = " and ";
    words.carriersUnknown = "carriers unknown";
    words.distanceVector = "distance vector %";
    words.directionVector = "direction vector %";
    words.proven = "proven";
    words.assumed = "assumed";
    words.condition = " if %";
    return words;
}

const std::array<Reason, doubtCount> sentenceReasons = {{
    {"", ""},
    {"only the order of execution has been looked at", "only the order of execution has been looked at"},
    {"the subscript % cannot be worked out in advance", "a subscript cannot be worked out in advance"},
    {"it is not known to which memory % leads", "it is not known to which memory a pointer leads"},
    {"% may overlap another part of the same structure or union", "parts of a structure or union may overlap"},
    {"it is not known how often % runs", "it is not known how often a loop runs"},
    {"it is not known when the condition % holds", "it is not known when a condition holds"},
    {"the jump in line % makes it unclear what is executed and when",
     "a jump makes it unclear what is executed and when"},
    {"it is not known what the call % does to its arguments", "it is not known what a call does to its arguments"},
    {"a piece of the program could not be understood: %", "a piece of the program could not be understood"},
    {"the quick tests cannot rule it out", "the quick tests cannot rule it out"},
    {"the exact test was stopped after a fixed amount of work",
     "the exact test was stopped after a fixed amount of work"},
}};

const std::array<Reason, doubtCount> reasons = {{
    {"", ""},
    {"not refined", "not refined"},
    {"subscript % is not affine", "a subscript is not affine"},
    {"memory behind % is unknown", "memory behind a pointer is unknown"},
    {"% may overlap other members", "members may overlap"},
    {"trip count of % is not affine", "a trip count is not affine"},
    {"condition % is not affine", "a condition is not affine"},
    {"jump in line %", "jump"},
    {"effect of the call % is unknown", "effect of a call is unknown"},
    {"source text without a representation: %", "source text without a representation"},
    {"not disproved by the quick tests (ZIV, SIV, GCD, Banerjee)",
     "not disproved by the quick tests (ZIV, SIV, GCD, Banerjee)"},
    {"operation limit reached", "operation limit reached"},
}};

} // namespace

const ArrowLanguage& getEnglish() {
    static const ArrowLanguage language = [] {
        ArrowLanguage words = makeEnglish();
        words.sentenceReasons = sentenceReasons;
        words.reasons = reasons;
        return words;
    }();
    return language;
}

} // namespace DepGraph
