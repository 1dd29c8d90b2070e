// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/TextPlace.h"

#include <clang/AST/ASTFwd.h>
#include <clang/Basic/SourceLocation.h>

#include <optional>
#include <string>
#include <vector>

namespace clang {
class ASTContext;
class SourceManager;
} // namespace clang

namespace Kova::Frontends {

class ProgramMacros;
class SystemHeaders;
struct ParsedText;

/// What is kept as text of a statement or expression that the tree has no class for.
struct KeptText {
    struct Operand {
        const clang::Expr* expression;
        /// None for what the text does not write as an expression, such as a label that assembly may jump to.
        std::optional<Tessel::TextPlace> place;
    };

    std::string text;
    /// In the order of the text, those without a place last.
    std::vector<Operand> operands;
};

/// Makes texts of what Clang has parsed: the source's own or, where that comes of macros or mentions those of the
/// program, Clang's rendering.
class TextKeeper {
public:
    TextKeeper(const clang::ASTContext& context, const ParsedText& parsed);

    /// With all expressions below the node, none of them inside another, as operands.
    [[nodiscard]] KeptText keep(const clang::Stmt& node) const;
    /// The text alone.
    [[nodiscard]] std::string textOf(const clang::Stmt& node) const;
    [[nodiscard]] std::string textOf(const clang::Decl& node) const;
    /// The use of a system header's macro that an expression is all of, with the macro's arguments as operands; empty
    /// when it is none.
    [[nodiscard]] KeptText keepMacroUse(const clang::Expr& expression) const;

private:
    /// Empty for what does not stand in a file as it is, such as a macro's expansion or what holds one.
    [[nodiscard]] std::string fileText(clang::SourceRange range) const;
    /// What of the text that begins at a place in a file an expression is; none where that is not known.
    [[nodiscard]] std::optional<Tessel::TextPlace> placeIn(clang::SourceLocation begin,
                                                           const clang::Expr& operand) const;
    /// @param use a place in a macro's expansion that means the expression.
    [[nodiscard]] std::vector<const clang::Expr*> argumentsOf(clang::SourceLocation use,
                                                              const clang::Expr& meaning) const;
    [[nodiscard]] KeptText render(const clang::Stmt& node) const;

    const clang::ASTContext& m_context;
    const SystemHeaders& m_system;
    const ProgramMacros& m_macros;
    const clang::SourceManager& m_sources;
};

} // namespace Kova::Frontends
