// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// `va_arg(list, type)`: the next of a call's unnamed arguments. The expression's type is the one asked for.
class VariadicArgumentExpression final : public Visitable<VariadicArgumentExpression, ExpressionBase> {
public:
    VariadicArgumentExpression(ExpressionPtr list, const Type* type) {
        setType(type);
        appendChild(std::move(list));
    }

    [[nodiscard]] ExpressionBase* getList() const { return childAs<ExpressionBase>(0); }

    /// True for the compiler's own `__builtin_va_arg`, which needs no header.
    [[nodiscard]] bool isBuiltin() const { return m_builtin; }
    void setBuiltin(bool builtin) { m_builtin = builtin; }

private:
    bool m_builtin = false;
};

} // namespace Kova::Tessel
