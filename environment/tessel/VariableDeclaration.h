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

    /// What C writes between the first brackets of a parameter besides its length, such as `static const`, or instead of
    /// it (`*`); empty for nothing.
    [[nodiscard]] const std::string& getBracketWords() const { return m_bracketWords; }
    void setBracketWords(std::string words) { m_bracketWords = std::move(words); }
    /// True for an array whose first brackets are empty in the source although its type knows the length, as of
    /// `int a[] = { 1, 2 };`.
    [[nodiscard]] bool isLengthLeftOut() const { return m_lengthLeftOut; }
    void setLengthLeftOut(bool leftOut) { m_lengthLeftOut = leftOut; }

private:
    const Type* m_type;
    StorageClass m_storage = StorageClass::None;
    bool m_parameter = false;
    bool m_lengthLeftOut = false;
    std::string m_bracketWords;
};

} // namespace Kova::Tessel
