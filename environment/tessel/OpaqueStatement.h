// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/StatementBase.h"
#include "environment/tessel/TextPlace.h"
#include "environment/tessel/Visitable.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Kova::Tessel {

/// A statement that the tree has no class for, such as inline assembly: prints as its source text. Its children are
/// the expressions found inside, so that analyses see the names and calls; what it does with them is not known. What
/// only speaks to the compiler is a statement of its own, too: a directive (`#pragma omp simd`), an attribute that
/// stands alone (`__attribute__((fallthrough));`) or before the statement that follows (`__attribute__((musttail))`).
class OpaqueStatement final : public Visitable<OpaqueStatement, StatementBase> {
public:
    /// @param text as in the source, without a final line end.
    explicit OpaqueStatement(std::string text) : m_text(std::move(text)) {}

    [[nodiscard]] const std::string& getText() const { return m_text; }
    /// @param place what of the text the operand is and prints instead of; none when that is not known.
    void appendOperand(ExpressionPtr operand, std::optional<TextPlace> place = std::nullopt) {
        appendChild(std::move(operand));
        m_places.push_back(place);
    }
    /// One for each operand, see appendOperand.
    [[nodiscard]] const std::vector<std::optional<TextPlace>>& getOperandPlaces() const { return m_places; }

    /// True for a line of the preprocessor, which needs a line of its own.
    [[nodiscard]] bool isDirective() const { return !m_text.empty() && m_text.front() == '#'; }
    /// True for what does nothing when the program runs: directives and attributes.
    [[nodiscard]] bool isHint() const {
        return isDirective() || m_text.rfind("__attribute__", 0) == 0 || m_text.rfind("[[", 0) == 0;
    }

private:
    std::string m_text;
    std::vector<std::optional<TextPlace>> m_places;
};

} // namespace Kova::Tessel
