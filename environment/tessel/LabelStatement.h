// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/StatementBase.h"
#include "environment/tessel/Visitable.h"

#include <string>
#include <utility>

namespace Kova::Tessel {

/// A target of goto, by name; in Fortran the digits of a statement label. Marks the statement that follows it.
class LabelStatement final : public Visitable<LabelStatement, StatementBase> {
public:
    explicit LabelStatement(std::string name) : m_name(std::move(name)) {}

    [[nodiscard]] const std::string& getName() const { return m_name; }

    /// Attributes as the source wrote them, such as `__attribute__((unused))`; empty without any.
    [[nodiscard]] const std::string& getAttributes() const { return m_attributes; }
    void setAttributes(std::string attributes) { m_attributes = std::move(attributes); }

private:
    std::string m_name;
    std::string m_attributes;
};

} // namespace Kova::Tessel
