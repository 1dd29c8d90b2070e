// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/TypeDeclaration.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// A structure or union; a derived type in Fortran. The children are its fields and the types declared among them.
class RecordDeclaration final : public Visitable<RecordDeclaration, TypeDeclaration> {
public:
    enum class Kind { Struct, Union };

    RecordDeclaration(std::string name, Kind kind) : Visitable(std::move(name)), m_kind(kind) {}

    [[nodiscard]] Kind getKind() const { return m_kind; }
    /// False for a mere mention such as `struct node;`.
    [[nodiscard]] bool isComplete() const { return m_complete; }
    void setComplete(bool complete) { m_complete = complete; }
    /// What no field is aligned to more bytes than, as `#pragma pack` has it; 0 without a limit.
    [[nodiscard]] unsigned getPacking() const { return m_packing; }
    void setPacking(unsigned bytes) { m_packing = bytes; }
    /// A FieldDeclaration or a TypeDeclaration.
    void append(DeclarationPtr member) { appendChild(std::move(member)); }

private:
    Kind m_kind;
    bool m_complete = false;
    unsigned m_packing = 0;
};

} // namespace Kova::Tessel
