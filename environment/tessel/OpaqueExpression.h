// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/Visitable.h"

#include <string>
#include <utility>

namespace Kova::Tessel {

/// An expression that the tree has no class for: prints as its source text. Its children are the expressions found
/// inside, so that analyses see the names and calls; what it does with them is not known.
class OpaqueExpression final : public Visitable<OpaqueExpression, ExpressionBase> {
public:
    explicit OpaqueExpression(std::string text) : m_text(std::move(text)) {}

    [[nodiscard]] const std::string& getText() const { return m_text; }
    void appendOperand(ExpressionPtr operand) { appendChild(std::move(operand)); }

private:
    std::string m_text;
};

} // namespace Kova::Tessel
