// SPDX-License-Identifier: MIT
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/VariableDeclaration.h"
#include "frontends/c/UnitBuilder_p.h"
#include "frontends/c/UnitContext_p.h"

#include <clang/AST/ASTContext.h>
#include <clang/AST/Decl.h>

#include <algorithm>

namespace Kova::Frontends {

using namespace Tessel;

namespace {

void appendAll(UnitContext& context, std::vector<DeclarationPtr> declarations) {
    for (DeclarationPtr& declaration : declarations) {
        // A parameter that only a function type names is no declaration of the program.
        const auto* variable = dynamic_cast<const VariableDeclaration*>(declaration.get());
        if (variable != nullptr && variable->isParameter())
            context.unit.appendExternal(std::move(declaration));
        else
            context.unit.append(std::move(declaration));
    }
}

/// After an error Clang makes a variable of many a word.
bool isWorthLooking(const clang::Decl& declaration) {
    const auto* function = llvm::dyn_cast<clang::FunctionDecl>(&declaration);
    return !declaration.isInvalidDecl() || (function != nullptr && function->doesThisDeclarationHaveABody());
}

/// Clang writes `bool` where any header made it a word; the printed file has that word from one it includes itself.
void chooseWords(clang::ASTContext& context, const TranslationUnit& unit) {
    const std::vector<std::string>& includes = unit.getSystemIncludes();
    clang::PrintingPolicy policy = context.getPrintingPolicy();
    policy.Bool = context.getLangOpts().Bool || std::count(includes.begin(), includes.end(), "<stdbool.h>") != 0;
    context.setPrintingPolicy(policy);
}

} // namespace

bool buildUnit(clang::ASTContext& context, const ParsedText& parsed, ProgramUnit& program, TranslationUnit& unit) {
    chooseWords(context, unit);
    UnitContext unitContext(context, parsed, program, unit);
    unit.setSourceRange({program.obtainSourceFile(unit.getPath()), 0, 0, 0, 0});
    bool foundAny = false;
    for (const clang::Decl* declaration : context.getTranslationUnitDecl()->decls()) {
        if (unitContext.declarations.isExternal(*declaration))
            continue;
        foundAny |= isWorthLooking(*declaration);
        std::vector<DeclarationPtr> directives = buildDirectivesBefore(unitContext, declaration->getBeginLoc());
        DeclarationPtr built = buildDeclaration(unitContext, *declaration);
        // Directives have no place inside a declaration.
        for (DeclarationPtr& inside : buildDirectivesBefore(unitContext, declaration->getEndLoc()))
            directives.push_back(std::move(inside));
        appendAll(unitContext, unitContext.declarations.takeStrays(*declaration));
        appendAll(unitContext, std::move(directives));
        if (built)
            unit.append(std::move(built));
    }
    appendAll(unitContext, unitContext.declarations.takeRest());
    appendAll(unitContext, buildDirectives(unitContext, unitContext.directives.takeRest()));
    return foundAny;
}

} // namespace Kova::Frontends
