// SPDX-License-Identifier: MIT
#include "environment/tessel/EnumDeclaration.h"
#include "environment/tessel/FieldDeclaration.h"
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/RecordDeclaration.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/TypedefDeclaration.h"
#include "environment/tessel/VariableDeclaration.h"
#include "frontends/c/DeclarationTable_p.h"
#include "frontends/c/SystemHeaders_p.h"
#include "frontends/c/UnitContext_p.h"

#include <clang/AST/ASTContext.h>
#include <clang/AST/Decl.h>
#include <clang/Basic/SourceManager.h>

namespace Kova::Frontends {

using namespace Tessel;

namespace {

/// Clang takes the function for operands of a size, such as `__sync_fetch_and_add_4`, where the source writes the one
/// for all.
void cutSize(std::string& name) {
    const std::size_t digits = name.find_last_not_of("0123456789") + 1;
    if (name.rfind("__sync_", 0) == 0 && digits != name.size() && name[digits - 1] == '_')
        name.resize(digits - 1);
}

/// A declaration with its name and nothing else. Only for the kinds that the table hands out.
DeclarationPtr makeShell(const clang::Decl& declaration) {
    std::string name = llvm::cast<clang::NamedDecl>(declaration).getDeclName().getAsString();
    if (const auto* function = llvm::dyn_cast<clang::FunctionDecl>(&declaration)) {
        if (function->getBuiltinID() != 0)
            cutSize(name);
        return std::make_unique<SubroutineDeclaration>(std::move(name), nullptr);
    }
    if (llvm::isa<clang::VarDecl>(declaration))
        return std::make_unique<VariableDeclaration>(std::move(name), nullptr);
    if (llvm::isa<clang::TypedefNameDecl>(declaration))
        return std::make_unique<TypedefDeclaration>(std::move(name), nullptr);
    if (llvm::isa<clang::EnumDecl>(declaration))
        return std::make_unique<EnumDeclaration>(std::move(name));
    const bool isUnion = llvm::cast<clang::RecordDecl>(declaration).isUnion();
    return std::make_unique<RecordDeclaration>(std::move(name), isUnion ? RecordDeclaration::Kind::Union
                                                                        : RecordDeclaration::Kind::Struct);
}

const clang::FunctionDecl& meantBy(const clang::FunctionDecl& mentioned) {
    if (const clang::FunctionDecl* definition = mentioned.getDefinition())
        return *definition;
    // From the latest to the first; Clang puts its own declaration of a library function before the written ones.
    const clang::FunctionDecl* first = mentioned.getFirstDecl();
    for (const clang::FunctionDecl* each = mentioned.getMostRecentDecl(); each != nullptr;
         each = each->getPreviousDecl())
        if (!each->isImplicit())
            first = each;
    return *first;
}

const clang::VarDecl& meantBy(const clang::VarDecl& mentioned) {
    if (mentioned.isFirstDecl() && mentioned.getMostRecentDecl() == &mentioned)
        return mentioned;
    if (const clang::VarDecl* definition = mentioned.getDefinition())
        return *definition;
    if (const clang::VarDecl* tentative = mentioned.getActingDefinition())
        return *tentative;
    return *mentioned.getFirstDecl();
}

} // namespace

SubroutineDeclaration& DeclarationTable::subroutine(const clang::FunctionDecl& mentioned) {
    return static_cast<SubroutineDeclaration&>(obtain(meantBy(mentioned)));
}

VariableDeclaration& DeclarationTable::variable(const clang::VarDecl& mentioned) {
    return static_cast<VariableDeclaration&>(obtain(meantBy(mentioned)));
}

TypeDeclaration& DeclarationTable::tag(const clang::TagDecl& mentioned) {
    const clang::TagDecl* definition = mentioned.getDefinition();
    return static_cast<TypeDeclaration&>(obtain(definition != nullptr ? *definition : *mentioned.getFirstDecl()));
}

TypeDeclaration& DeclarationTable::typedefOf(const clang::TypedefNameDecl& mentioned) {
    return static_cast<TypeDeclaration&>(obtain(*mentioned.getFirstDecl()));
}

FieldDeclaration* DeclarationTable::field(const clang::FieldDecl& mentioned) {
    if (DeclarationBase* made = m_made.lookup(&mentioned))
        return static_cast<FieldDeclaration*>(made);
    completeDeclaration(m_context, *mentioned.getParent(), obtain(*mentioned.getParent()));
    return static_cast<FieldDeclaration*>(m_made.lookup(&mentioned));
}

EnumeratorDeclaration* DeclarationTable::enumerator(const clang::EnumConstantDecl& mentioned) {
    if (DeclarationBase* made = m_made.lookup(&mentioned))
        return static_cast<EnumeratorDeclaration*>(made);
    const auto& enumeration = llvm::cast<clang::EnumDecl>(*mentioned.getDeclContext());
    completeDeclaration(m_context, enumeration, obtain(enumeration));
    return static_cast<EnumeratorDeclaration*>(m_made.lookup(&mentioned));
}

bool DeclarationTable::isExternal(const clang::Decl& declaration) const {
    const auto* function = llvm::dyn_cast<clang::FunctionDecl>(&declaration);
    if (function != nullptr && function->isImplicit() && function->getBuiltinID() != 0)
        return true;
    return m_context.system.isExternal(declaration.getLocation());
}

DeclarationBase& DeclarationTable::obtain(const clang::Decl& declaration) {
    if (DeclarationBase* made = m_made.lookup(&declaration))
        return *made;
    DeclarationPtr shell = makeShell(declaration);
    DeclarationBase& made = *shell;
    m_made[&declaration] = &made;
    if (isExternal(declaration)) {
        m_context.unit.appendExternal(std::move(shell));
        completeDeclaration(m_context, declaration, made);
    } else {
        m_ahead[&declaration] = std::move(shell);
    }
    return made;
}

DeclarationPtr DeclarationTable::take(const clang::Decl& declaration) {
    if (!m_made.contains(&declaration)) {
        DeclarationPtr shell = makeShell(declaration);
        m_made[&declaration] = shell.get();
        return shell;
    }
    const auto ahead = m_ahead.find(&declaration);
    return ahead != m_ahead.end() ? std::move(ahead->second) : nullptr;
}

void DeclarationTable::add(const clang::FieldDecl& field, FieldDeclaration& made) {
    m_made[&field] = &made;
}

void DeclarationTable::add(const clang::EnumConstantDecl& enumerator, EnumeratorDeclaration& made) {
    m_made[&enumerator] = &made;
}

std::vector<DeclarationPtr> DeclarationTable::takeStrays(const clang::Decl& around) {
    return takeAhead(&around);
}

std::vector<DeclarationPtr> DeclarationTable::takeRest() {
    return takeAhead(nullptr);
}

bool DeclarationTable::hasPlaceBehind(const clang::Decl& declaration, const clang::Decl& around) const {
    const clang::SourceManager& sources = m_context.clang.getSourceManager();
    return llvm::isa<clang::TranslationUnitDecl>(declaration.getLexicalDeclContext()) && !declaration.isImplicit() &&
           !sources.isPointWithin(sources.getExpansionLoc(declaration.getLocation()),
                                  sources.getExpansionLoc(around.getBeginLoc()),
                                  sources.getExpansionLoc(around.getEndLoc()));
}

std::vector<DeclarationPtr> DeclarationTable::takeAhead(const clang::Decl* around) {
    std::vector<DeclarationPtr> result;
    llvm::MapVector<const clang::Decl*, DeclarationPtr> waiting;
    // Completing one may make others ahead.
    while (!m_ahead.empty()) {
        auto pending = m_ahead.takeVector();
        for (auto& [declaration, made] : pending) {
            if (!made)
                continue;
            if (around != nullptr && hasPlaceBehind(*declaration, *around)) {
                waiting[declaration] = std::move(made);
                continue;
            }
            completeDeclaration(m_context, *declaration, *made);
            result.push_back(std::move(made));
        }
    }
    m_ahead = std::move(waiting);
    return result;
}

} // namespace Kova::Frontends
