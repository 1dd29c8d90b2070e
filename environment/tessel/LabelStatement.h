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

private:
    std::string m_name;
};

} // namespace Kova::Tessel
