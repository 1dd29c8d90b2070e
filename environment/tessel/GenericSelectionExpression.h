// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/Visitable.h"

#include <vector>

namespace Kova::Tessel {

/// `_Generic(control, type: value, default: value)`. Child 0 is the control, which is not evaluated; the values follow.
/// Only the chosen value is evaluated.
class GenericSelectionExpression final : public Visitable<GenericSelectionExpression, ExpressionBase> {
public:
    /// @param chosen the number of the association that the control's type picks.
    GenericSelectionExpression(ExpressionPtr control, std::size_t chosen) : m_chosen(chosen) {
        appendChild(std::move(control));
    }

    [[nodiscard]] ExpressionBase* getControl() const { return childAs<ExpressionBase>(0); }
    [[nodiscard]] std::size_t getAssociationCount() const { return m_types.size(); }
    /// Null for `default`.
    [[nodiscard]] const Type* getAssociationType(std::size_t index) const { return m_types.at(index); }
    [[nodiscard]] ExpressionBase* getAssociationValue(std::size_t index) const {
        return childAs<ExpressionBase>(index + 1);
    }
    [[nodiscard]] std::size_t getChosen() const { return m_chosen; }

    void appendAssociation(const Type* type, ExpressionPtr value) {
        m_types.push_back(type);
        appendChild(std::move(value));
    }

private:
    std::vector<const Type*> m_types;
    std::size_t m_chosen;
};

} // namespace Kova::Tessel
