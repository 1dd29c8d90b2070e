// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/ArrowLanguage_p.h"
#include "environment/analyses/lamport/ArrowParts_p.h"

#include <string>
#include <vector>

namespace DepGraph {

/// Puts what is known of an arrow into words of a language.
class ArrowDescription {
public:
    /// Both are referred to and must outlive the description.
    ArrowDescription(const ArrowParts& parts, const ArrowLanguage& words) : m_parts(parts), m_words(words) {}

    /// One sentence for students.
    [[nodiscard]] std::string makeSentence() const;
    /// A line for people who build compilers: kind, occurrences, carriers, vectors, proof.
    [[nodiscard]] std::string makeDeveloperLine() const;

private:
    [[nodiscard]] std::string subject() const;
    [[nodiscard]] std::string predicate() const;
    [[nodiscard]] std::string time() const;
    [[nodiscard]] std::vector<std::string> laterIterations() const;
    [[nodiscard]] std::string ofAllLoops() const;
    [[nodiscard]] std::string nameOf(const LoopPart& loop) const;
    [[nodiscard]] const char* kind() const;
    [[nodiscard]] std::string occurrence(const std::string& access, unsigned line) const;
    [[nodiscard]] std::string carriers() const;
    [[nodiscard]] std::string vectors() const;
    [[nodiscard]] std::string proof() const;
    [[nodiscard]] std::string reason(const Reason& reason) const;
    [[nodiscard]] std::string condition() const;

    const ArrowParts& m_parts;
    const ArrowLanguage& m_words;
};

} // namespace DepGraph
