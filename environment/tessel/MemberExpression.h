// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

class FieldDeclaration;

/// A member of a structure or union: `base.field`, or `base->field`; `base%field` in Fortran.
class MemberExpression final : public Visitable<MemberExpression, ExpressionBase> {
public:
    enum class Access { Direct, ThroughPointer };

    /// @param field not owned; outlives the expression.
    MemberExpression(ExpressionPtr base, Access access, FieldDeclaration& field) : m_field(field), m_access(access) {
        appendChild(std::move(base));
    }

    [[nodiscard]] ExpressionBase* getBase() const { return childAs<ExpressionBase>(0); }
    [[nodiscard]] Access getAccess() const { return m_access; }
    [[nodiscard]] FieldDeclaration& getField() const { return m_field; }

private:
    FieldDeclaration& m_field;
    Access m_access;
};

} // namespace Kova::Tessel
