// SPDX-License-Identifier: MIT
#pragma once

#include "environment/printing/CStatementPieces.h"

namespace Kova::Backends {

/// How C writes whole files: system headers under what the file chooses of them, then declarations, functions and
/// definitions of types apart from each other by empty lines. Completes the language.
class CUnitPieces : public CStatementPieces {
public:
    using CStatementPieces::CStatementPieces;
    using CStatementPieces::visit;
    void visit(Tessel::TranslationUnit& node) override;
    /// C has no modules; one reads as a Fortran module around C's declarations.
    void visit(Tessel::ModuleDeclaration& node) override;

protected:
    [[nodiscard]] bool isClear() const override { return true; }

private:
    /// What stands before declarations: nothing, so that they begin on the current line; a head that they follow; or
    /// lines that they stand apart from.
    enum class Before { Nothing, Head, Lines };

    [[nodiscard]] Before includes(Tessel::TranslationUnit& unit);
    void declarations(Tessel::TesselBase& holder, Before before);
};

} // namespace Kova::Backends
