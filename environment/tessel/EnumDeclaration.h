// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/EnumeratorDeclaration.h"
#include "environment/tessel/TypeDeclaration.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// An enumeration; the children are its enumerators.
class EnumDeclaration final : public Visitable<EnumDeclaration, TypeDeclaration> {
public:
    explicit EnumDeclaration(std::string name) : Visitable(std::move(name)) {}

    /// False for a mere mention such as `enum color;`.
    [[nodiscard]] bool isComplete() const { return m_complete; }
    void setComplete(bool complete) { m_complete = complete; }
    void append(std::unique_ptr<EnumeratorDeclaration> enumerator) { appendChild(std::move(enumerator)); }

private:
    bool m_complete = false;
};

} // namespace Kova::Tessel
