// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/DeclarationBase.h"
#include "environment/tessel/ExpressionBase.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// A variable or a parameter. Child 0 is the initializer or null; the bounds of a variable-length array follow, in the
/// order in which its type names them.
class VariableDeclaration final : public Visitable<VariableDeclaration, DeclarationBase> {
public:
    /// @param type owned by the ProgramUnit; null when unknown. @param initializer may be null.
    VariableDeclaration(std::string name, const Type* type, ExpressionPtr initializer = nullptr)
        : Visitable(std::move(name)),
          m_type(type) {
        appendChild(std::move(initializer));
    }

    [[nodiscard]] const Type* getType() const { return m_type; }
    void setType(const Type* type) { m_type = type; }
    [[nodiscard]] ExpressionBase* getInitializer() const { return childAs<ExpressionBase>(0); }
    void setInitializer(ExpressionPtr initializer) { exchangeChild(0, std::move(initializer)); }
    /// Takes over a bound that the variable's type refers to.
    void appendBound(ExpressionPtr bound) { appendChild(std::move(bound)); }

    [[nodiscard]] StorageClass getStorageClass() const { return m_storage; }
    void setStorageClass(StorageClass storage) { m_storage = storage; }
    [[nodiscard]] bool isParameter() const { return m_parameter; }
    void setParameter(bool parameter) { m_parameter = parameter; }

private:
    const Type* m_type;
    StorageClass m_storage = StorageClass::None;
    bool m_parameter = false;
};

} // namespace Kova::Tessel
