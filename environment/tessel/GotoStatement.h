// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/StatementBase.h"
#include "environment/tessel/Visitable.h"

#include <string>
#include <utility>

namespace Kova::Tessel {

class LabelStatement;

/// A jump to a label of the same subroutine, or to a computed address (`goto *p`).
class GotoStatement final : public Visitable<GotoStatement, StatementBase> {
public:
    explicit GotoStatement(std::string labelName) : m_labelName(std::move(labelName)) { appendChild(nullptr); }
    explicit GotoStatement(ExpressionPtr address) { appendChild(std::move(address)); }

    /// Empty for a computed goto.
    [[nodiscard]] const std::string& getLabelName() const { return m_labelName; }
    /// Null for a computed goto, and when the label does not exist. Not owned.
    [[nodiscard]] LabelStatement* getLabel() const { return m_label; }
    void setLabel(LabelStatement* label) { m_label = label; }
    /// Null unless the goto is computed.
    [[nodiscard]] ExpressionBase* getAddress() const { return childAs<ExpressionBase>(0); }

private:
    std::string m_labelName;
    LabelStatement* m_label = nullptr;
};

} // namespace Kova::Tessel
