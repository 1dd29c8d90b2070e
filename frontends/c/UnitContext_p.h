// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/DeclarationBase.h"
#include "environment/tessel/ExpressionBase.h"
#include "frontends/c/DeclarationTable_p.h"
#include "frontends/c/Directives_p.h"
#include "frontends/c/KeptText_p.h"
#include "frontends/c/SourcePlaces_p.h"
#include "frontends/c/TypeBuilder_p.h"
#include "frontends/c/UnitBuilder_p.h"

#include <clang/AST/ASTFwd.h>

namespace Kova::Tessel {
class GotoStatement;
class LabelStatement;
class ProgramUnit;
class TranslationUnit;
} // namespace Kova::Tessel

namespace Kova::Frontends {

/// The labels of a body, and the jumps that look for them.
struct JumpTargets {
    llvm::DenseMap<const clang::LabelDecl*, Tessel::LabelStatement*> labels;
    std::vector<std::pair<Tessel::GotoStatement*, const clang::LabelDecl*>> jumps;
};

/// What all builders of one translation unit share.
struct UnitContext {
    UnitContext(clang::ASTContext& context, const ParsedText& parsed, Tessel::ProgramUnit& ofProgram,
                Tessel::TranslationUnit& ofUnit)
        : clang(context),
          program(ofProgram),
          unit(ofUnit),
          system(parsed.system),
          macros(parsed.macros),
          attributes(parsed.attributes),
          fallThrough(parsed.fallThrough),
          directives(parsed.directives),
          text(context, ofProgram),
          keeper(context, parsed),
          types(*this),
          declarations(*this) {}

    clang::ASTContext& clang;
    Tessel::ProgramUnit& program;
    Tessel::TranslationUnit& unit;
    const SystemHeaders& system;
    const ProgramMacros& macros;
    const AttributeTexts& attributes;
    const FallThroughComments& fallThrough;
    Directives& directives;
    SourcePlaces text;
    TextKeeper keeper;
    TypeBuilder types;
    DeclarationTable declarations;
    /// Of the body under construction.
    JumpTargets jumps;
};

/// Parentheses, implicit conversions and what else is no node of its own are left out.
[[nodiscard]] Tessel::ExpressionPtr buildExpression(UnitContext& context, const clang::Expr& expression);
/// Null for null.
[[nodiscard]] Tessel::ExpressionPtr buildExpression(UnitContext& context, const clang::Expr* expression);

/// The expression inside parentheses, implicit conversions and the like.
[[nodiscard]] const clang::Expr& skipInvisible(const clang::Expr& expression);

/// Null when the expression is no literal.
[[nodiscard]] Tessel::ExpressionPtr buildLiteral(UnitContext& context, const clang::Expr& expression);

/// A subroutine's body. Jumps inside it find their labels.
[[nodiscard]] std::unique_ptr<Tessel::BlockStatement> buildBody(UnitContext& context, const clang::Stmt& body);
/// A block inside a body: `({ ... })`.
[[nodiscard]] std::unique_ptr<Tessel::BlockStatement> buildInnerBlock(UnitContext& context,
                                                                      const clang::CompoundStmt& body);

/// The declaration for its place in the program, with all that belongs to it. Null for what declares nothing, such as
/// a lone semicolon.
[[nodiscard]] Tessel::DeclarationPtr buildDeclaration(UnitContext& context, const clang::Decl& declaration);

/// The attributes that the source gives a declaration or statement, without those that Clang adds or passes on and
/// those that a type or a directive says. Empty without any.
[[nodiscard]] std::string buildAttributes(const UnitContext& context, const clang::Decl& declaration);
[[nodiscard]] std::string buildAttributes(const UnitContext& context, const clang::AttributedStmt& statement);

/// Directives among declarations.
[[nodiscard]] std::vector<Tessel::DeclarationPtr> buildDirectives(UnitContext& context,
                                                                  std::vector<Directive> directives);
/// Those before a place that nothing has yet.
[[nodiscard]] std::vector<Tessel::DeclarationPtr> buildDirectivesBefore(UnitContext& context,
                                                                        clang::SourceLocation end);

/// Gives a declaration that was made ahead all that belongs to it.
void completeDeclaration(UnitContext& context, const clang::Decl& declaration, Tessel::DeclarationBase& made);

} // namespace Kova::Frontends
