// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/TextPlace.h"
#include "environment/tessel/Visitable.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Kova::Tessel {

/// An expression that the tree has no class for: prints as its source text. Its children are the expressions found
/// inside, so that analyses see the names and calls; what it does with them is not known.
class OpaqueExpression final : public Visitable<OpaqueExpression, ExpressionBase> {
public:
    explicit OpaqueExpression(std::string text) : m_text(std::move(text)) {}

    [[nodiscard]] const std::string& getText() const { return m_text; }
    /// @param place what of the text the operand is and prints instead of; none when that is not known.
    void appendOperand(ExpressionPtr operand, std::optional<TextPlace> place = std::nullopt) {
        appendChild(std::move(operand));
        m_places.push_back(place);
    }
    /// One for each operand, see appendOperand.
    [[nodiscard]] const std::vector<std::optional<TextPlace>>& getOperandPlaces() const { return m_places; }

private:
    std::string m_text;
    std::vector<std::optional<TextPlace>> m_places;
};

} // namespace Kova::Tessel
