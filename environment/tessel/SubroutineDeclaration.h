// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/DeclarationBase.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// A function, subroutine or main program. The children are the parameters in order, then the body (null for a
/// prototype).
class SubroutineDeclaration final : public Visitable<SubroutineDeclaration, DeclarationBase> {
public:
    enum class Kind { Function, Subroutine, MainProgram };

    /// @param type the function type, owned by the ProgramUnit; null when unknown.
    SubroutineDeclaration(std::string name, const Type* type, Kind kind = Kind::Function)
        : Visitable(std::move(name)),
          m_type(type),
          m_kind(kind) {
        appendChild(nullptr);
    }

    /// False for a prototype.
    [[nodiscard]] bool hasImplementation() const { return getBody() != nullptr; }
    [[nodiscard]] BlockStatement* getBody() const { return childAs<BlockStatement>(getParameterCount()); }
    void setBody(std::unique_ptr<BlockStatement> body) { exchangeChild(getParameterCount(), std::move(body)); }

    [[nodiscard]] std::size_t getParameterCount() const { return getChildCount() - 1; }
    /// Null for an index outside [0, getParameterCount()).
    [[nodiscard]] VariableDeclaration* getParameter(std::size_t index) const {
        return index < getParameterCount() ? childAs<VariableDeclaration>(index) : nullptr;
    }
    void appendParameter(std::unique_ptr<VariableDeclaration> parameter) {
        insertChild(getParameterCount(), std::move(parameter));
    }

    [[nodiscard]] const Type* getType() const { return m_type; }
    void setType(const Type* type) { m_type = type; }
    [[nodiscard]] Kind getKind() const { return m_kind; }
    [[nodiscard]] StorageClass getStorageClass() const { return m_storage; }
    void setStorageClass(StorageClass storage) { m_storage = storage; }
    [[nodiscard]] bool isInline() const { return m_inline; }
    void setInline(bool isInline) { m_inline = isInline; }
    /// True when a call never comes back, as of exit().
    [[nodiscard]] bool isNoReturn() const { return m_noReturn; }
    void setNoReturn(bool noReturn) { m_noReturn = noReturn; }
    /// True when a macro that takes arguments has the same name, so that only parentheses around the name keep a call
    /// or a declaration from being taken for the macro's use.
    [[nodiscard]] bool isNamedAsMacro() const { return m_namedAsMacro; }
    void setNamedAsMacro(bool named) { m_namedAsMacro = named; }
    /// True when other files of the program mean the same subroutine by this name.
    [[nodiscard]] bool hasExternalLinkage() const { return m_storage != StorageClass::Static; }

private:
    const Type* m_type;
    Kind m_kind;
    StorageClass m_storage = StorageClass::None;
    bool m_inline = false;
    bool m_noReturn = false;
    bool m_namedAsMacro = false;
};

} // namespace Kova::Tessel
