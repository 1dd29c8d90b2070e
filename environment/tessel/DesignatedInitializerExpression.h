// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/Visitable.h"

#include <string>
#include <vector>

namespace Kova::Tessel {

/// `.field[index] = value` inside an initializer list. Child 0 is the value; the indices of its array designators
/// follow, two for a range.
class DesignatedInitializerExpression final : public Visitable<DesignatedInitializerExpression, ExpressionBase> {
public:
    struct Designator {
        enum class Kind { Field, Index, IndexRange };
        Kind kind;
        /// The field's name; empty for an index.
        std::string field;
    };

    explicit DesignatedInitializerExpression(ExpressionPtr value) { appendChild(std::move(value)); }

    [[nodiscard]] ExpressionBase* getValue() const { return childAs<ExpressionBase>(0); }
    [[nodiscard]] const std::vector<Designator>& getDesignators() const { return m_designators; }
    /// The indices of all array designators, in order: one of an Index, first and last of an IndexRange.
    [[nodiscard]] ExpressionBase* getIndex(std::size_t number) const { return childAs<ExpressionBase>(number + 1); }

    void appendField(std::string name) { m_designators.push_back({Designator::Kind::Field, std::move(name)}); }
    void appendIndex(ExpressionPtr index) {
        m_designators.push_back({Designator::Kind::Index, {}});
        appendChild(std::move(index));
    }
    void appendIndexRange(ExpressionPtr first, ExpressionPtr last) {
        m_designators.push_back({Designator::Kind::IndexRange, {}});
        appendChild(std::move(first));
        appendChild(std::move(last));
    }

private:
    std::vector<Designator> m_designators;
};

} // namespace Kova::Tessel
