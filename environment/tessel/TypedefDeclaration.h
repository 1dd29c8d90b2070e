// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/TypeDeclaration.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// Another name for a type. Its children are the bounds of a variable-length array, as the type names them.
class TypedefDeclaration final : public Visitable<TypedefDeclaration, TypeDeclaration> {
public:
    /// @param type owned by the ProgramUnit; null when unknown.
    TypedefDeclaration(std::string name, const Type* type) : Visitable(std::move(name)), m_type(type) {}

    [[nodiscard]] const Type* getType() const { return m_type; }
    void setType(const Type* type) { m_type = type; }
    void appendBound(ExpressionPtr bound) { appendChild(std::move(bound)); }

private:
    const Type* m_type;
};

} // namespace Kova::Tessel
