// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/Visitable.h"

#include <string>
#include <utility>

namespace Kova::Tessel {

/// GNU `&&label`: where a label stands, for a computed goto.
class LabelAddressExpression final : public Visitable<LabelAddressExpression, ExpressionBase> {
public:
    explicit LabelAddressExpression(std::string labelName) : m_labelName(std::move(labelName)) {}

    [[nodiscard]] const std::string& getLabelName() const { return m_labelName; }

private:
    std::string m_labelName;
};

} // namespace Kova::Tessel
