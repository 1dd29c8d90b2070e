// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/DeclarationBase.h"
#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// A member of a structure or union; a component of a Fortran derived type.
class FieldDeclaration final : public Visitable<FieldDeclaration, DeclarationBase> {
public:
    /// @param bitWidth null unless the member is a bit-field.
    FieldDeclaration(std::string name, const Type* type, ExpressionPtr bitWidth = nullptr)
        : Visitable(std::move(name)),
          m_type(type) {
        appendChild(std::move(bitWidth));
    }

    [[nodiscard]] const Type* getType() const { return m_type; }
    [[nodiscard]] ExpressionBase* getBitWidth() const { return childAs<ExpressionBase>(0); }

private:
    const Type* m_type;
};

} // namespace Kova::Tessel
