// SPDX-License-Identifier: MIT
#pragma once

#include <unordered_set>
#include <vector>

namespace Kova::Tessel {
class ExpressionBase;
class TesselBase;
} // namespace Kova::Tessel

namespace ControlFlow {

/// What of a program's expressions is evaluated apart from the rest.
class EvaluationFacts {
public:
    /// @param splitsOperators whether operators that evaluate an operand or not are taken apart.
    EvaluationFacts(Kova::Tessel::TesselBase& root, bool splitsOperators);

    /// Whether an expression is nothing but the parts that it is taken apart into: an operator that evaluates an
    /// operand or not, statements, or a comma around one of these.
    [[nodiscard]] bool isTakenApart(const Kova::Tessel::ExpressionBase& expression) const;
    /// The expressions below one that is not taken apart that are, in the order of evaluation, without those inside of
    /// others.
    [[nodiscard]] std::vector<Kova::Tessel::ExpressionBase*> partsOf(Kova::Tessel::ExpressionBase& expression) const;
    /// Whether control does not get behind an expression, parts that are taken apart left out of account: it always
    /// calls what never returns.
    [[nodiscard]] bool neverEnds(Kova::Tessel::ExpressionBase& expression) const;

private:
    [[nodiscard]] bool isBranch(const Kova::Tessel::TesselBase& node) const;

    bool m_splitsOperators;
    /// Expressions with a branch below them. Looked up, never walked.
    std::unordered_set<const Kova::Tessel::TesselBase*> m_around;
};

} // namespace ControlFlow
