// SPDX-License-Identifier: MIT
#pragma once

#include "environment/printing/CExpressionPieces.h"

namespace Kova::Tessel {
class Type;
}

namespace Kova::Backends {

/// How C writes declarations. A declaration prints without its final semicolon, except for what brings its own (a
/// function's body, source text), so that it can also stand among parameters.
class CDeclarationPieces : public CExpressionPieces {
public:
    using CExpressionPieces::visit;
    void visit(Tessel::VariableDeclaration& node) override;
    void visit(Tessel::FieldDeclaration& node) override;
    void visit(Tessel::EnumeratorDeclaration& node) override;
    void visit(Tessel::RecordDeclaration& node) override;
    void visit(Tessel::EnumDeclaration& node) override;
    void visit(Tessel::TypedefDeclaration& node) override;
    void visit(Tessel::SubroutineDeclaration& node) override;
    void visit(Tessel::OpaqueDeclaration& node) override;

protected:
    enum class Sharing {
        /// Neighbours that can share one specifier do: `int i, *p;`.
        Always,
        /// Only where the specifier defines a type without a name, which a second definition would not be.
        WhereNeeded
    };
    /// The declarations among a node's children, each on a line of its own, with their semicolons. A type without a
    /// name is left to the declaration behind it that uses it.
    void declarations(Tessel::TesselBase& holder, Sharing sharing);

private:
    /// Storage class, specifier and declarator of a variable, field or typedef.
    void wholeDeclaration(Tessel::DeclarationBase& declaration);
    /// The name with what its type puts around it and what follows it.
    [[nodiscard]] PieceList declaratorOf(Tessel::DeclarationBase& declaration) const;
};

} // namespace Kova::Backends
