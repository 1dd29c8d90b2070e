// SPDX-License-Identifier: MIT
#pragma once

#include "environment/printing/CExpressionPieces.h"
#include "environment/printing/DeclarationFilter.h"
#include "environment/printing/DeclarationGroups.h"

namespace Kova::Tessel {
class FunctionType;
class StatementBase;
class TypeDeclaration;
} // namespace Kova::Tessel

namespace Kova::Backends {

/// How C writes declarations. A declaration prints without its final semicolon, except for what brings its own (a
/// function's body, source text), so that it can also stand among parameters. Braces stand on lines of their own.
class CDeclarationPieces : public CExpressionPieces {
public:
    /// @param filter what to leave out below the printed node.
    explicit CDeclarationPieces(const DeclarationFilter& filter = {}) : m_filter(filter) {}

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
    [[nodiscard]] const DeclarationFilter& getFilter() const { return m_filter; }
    /// What is written as one, with its end. @param owner gets the end.
    void group(const DeclarationGroup& group, Tessel::TesselBase& owner);

private:
    /// Storage class, specifier and declarator of a variable, field or typedef.
    void wholeDeclaration(Tessel::DeclarationBase& declaration, const Tessel::TypeDeclaration* definition = nullptr);
    /// The name with what its type puts around it and what follows it.
    [[nodiscard]] PieceList declaratorOf(Tessel::DeclarationBase& declaration) const;
    /// A function's name and parameters, without result type and body.
    /// @param function null when the type is not known as a function's.
    [[nodiscard]] PieceList headOf(Tessel::SubroutineDeclaration& node, const Tessel::FunctionType* function) const;

    DeclarationFilter m_filter;
};

} // namespace Kova::Backends
