// SPDX-License-Identifier: MIT
#include "environment/tessel/EnumDeclaration.h"
#include "environment/tessel/FieldDeclaration.h"
#include "environment/tessel/OpaqueDeclaration.h"
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/RecordDeclaration.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/TypedefDeclaration.h"
#include "environment/tessel/VariableDeclaration.h"
#include "frontends/c/Packing_p.h"
#include "frontends/c/ProgramMacros_p.h"
#include "frontends/c/SystemHeaders_p.h"
#include "frontends/c/UnitContext_p.h"

#include <clang/AST/ASTContext.h>
#include <clang/AST/Attr.h>
#include <clang/AST/Decl.h>
#include <clang/AST/DeclCXX.h>
#include <clang/Basic/SourceManager.h>

namespace Kova::Frontends {

using namespace Tessel;

namespace {

StorageClass withoutThread(clang::StorageClass storage) {
    switch (storage) {
    case clang::SC_Static:
        return StorageClass::Static;
    case clang::SC_Extern:
    case clang::SC_PrivateExtern:
        return StorageClass::Extern;
    case clang::SC_Register:
        return StorageClass::Register;
    case clang::SC_Auto:
        return StorageClass::Auto;
    case clang::SC_None:
        break;
    }
    return StorageClass::None;
}

StorageClass storageOf(const clang::VarDecl& variable) {
    const StorageClass storage = withoutThread(variable.getStorageClass());
    if (variable.getTSCSpec() == clang::TSCS_unspecified)
        return storage;
    if (storage == StorageClass::Static)
        return StorageClass::StaticThreadLocal;
    return storage == StorageClass::Extern ? StorageClass::ExternThreadLocal : StorageClass::ThreadLocal;
}

std::string bracketWordsOf(const clang::ParmVarDecl& parameter) {
    const auto* array = llvm::dyn_cast<clang::ArrayType>(parameter.getOriginalType().IgnoreParens().getTypePtr());
    if (array == nullptr)
        return {};
    if (array->getSizeModifier() == clang::ArraySizeModifier::Star)
        return "*";
    const clang::Qualifiers qualifiers = array->getIndexTypeQualifiers();
    std::string words;
    const auto add = [&words](bool isSaid, const char* word) {
        if (isSaid)
            words += (words.empty() ? "" : " ") + std::string(word);
    };
    add(array->getSizeModifier() == clang::ArraySizeModifier::Static, "static");
    add(qualifiers.hasConst(), "const");
    add(qualifiers.hasVolatile(), "volatile");
    add(qualifiers.hasRestrict(), "restrict");
    return words;
}

void addAttributes(DeclarationBase& declaration, const std::string& attributes) {
    const std::string& own = declaration.getAttributes();
    if (!attributes.empty())
        declaration.setAttributes(own.empty() ? attributes : own + ' ' + attributes);
}

/// A constant of a header that the file does not use: compilers only speak of those that the file itself declares,
/// which all are in a printed one.
bool isUnusedOfHeader(const clang::VarDecl& variable, const clang::SourceManager& sources) {
    return variable.isFileVarDecl() && variable.getStorageClass() == clang::SC_Static &&
           variable.getType().isConstQualified() && !variable.isReferenced() &&
           !variable.hasAttr<clang::UnusedAttr>() &&
           !sources.isWrittenInMainFile(sources.getExpansionLoc(variable.getLocation()));
}

/// A parameter that nothing uses, of a function in a header that compilers say nothing of.
bool isUnusedInSilence(const clang::VarDecl& variable, const SystemHeaders& system) {
    const auto* function = llvm::dyn_cast<clang::FunctionDecl>(variable.getDeclContext());
    return llvm::isa<clang::ParmVarDecl>(variable) && function != nullptr && function->doesThisDeclarationHaveABody() &&
           !variable.isReferenced() && !variable.hasAttr<clang::UnusedAttr>() &&
           system.isSilent(variable.getLocation());
}

/// Gives declarations that have their names only what else belongs to them.
class Completion {
public:
    explicit Completion(UnitContext& context) : m_context(context) {}

    void complete(const clang::FunctionDecl& from, SubroutineDeclaration& subroutine);
    void complete(const clang::VarDecl& from, VariableDeclaration& variable);
    void complete(const clang::TypedefNameDecl& from, TypedefDeclaration& definition);
    void complete(const clang::RecordDecl& from, RecordDeclaration& record);
    void complete(const clang::EnumDecl& from, EnumDeclaration& enumeration);

private:
    [[nodiscard]] const Type* typeOf(const clang::FunctionDecl& from);
    [[nodiscard]] std::unique_ptr<FieldDeclaration> makeField(const clang::FieldDecl& from);
    void describe(const clang::Decl& from, DeclarationBase& made) {
        made.setSourceRange(m_context.text.rangeOf(from.getSourceRange()));
        made.setAttributes(buildAttributes(m_context, from));
    }

    UnitContext& m_context;
};

const Type* Completion::typeOf(const clang::FunctionDecl& from) {
    // Clang makes a prototype of an old-style definition, but a caller knows nothing of its parameters.
    if (!from.hasPrototype())
        return m_context.program.getTypes().function(m_context.types.build(from.getReturnType()), {},
                                                     FunctionType::Parameters::Unspecified);
    return m_context.types.build(from.getType());
}

void Completion::complete(const clang::FunctionDecl& from, SubroutineDeclaration& subroutine) {
    describe(from, subroutine);
    // The linkage, not the word: a later `int f() {...}` stays as static as its first declaration said.
    subroutine.setStorageClass(from.getFormalLinkage() == clang::Linkage::Internal
                                   ? StorageClass::Static
                                   : withoutThread(from.getStorageClass()));
    subroutine.setInline(from.isInlineSpecified());
    subroutine.setNoReturn(from.isNoReturn());
    subroutine.setNamedAsMacro(from.getIdentifier() != nullptr && m_context.macros.isSystemCall(*from.getIdentifier()));
    // Compilers hear more in GNU's attribute than in the standard's word. It may be the type's or another
    // declaration's.
    if (from.isNoReturn() && !from.hasAttr<clang::C11NoReturnAttr>() && !from.hasAttr<clang::CXX11NoReturnAttr>() &&
        subroutine.getAttributes().find("noreturn") == std::string::npos)
        addAttributes(subroutine, "__attribute__((noreturn))");
    // Parameters before the type: they own the bounds that the type only refers to.
    for (const clang::ParmVarDecl* parameter : from.parameters())
        if (DeclarationPtr made = buildDeclaration(m_context, *parameter))
            subroutine.appendParameter(
                std::unique_ptr<VariableDeclaration>(static_cast<VariableDeclaration*>(made.release())));
    subroutine.setType(typeOf(from));
    if (from.doesThisDeclarationHaveABody() && !subroutine.isExternal())
        subroutine.setBody(buildBody(m_context, *from.getBody()));
}

void Completion::complete(const clang::VarDecl& from, VariableDeclaration& variable) {
    describe(from, variable);
    variable.setStorageClass(storageOf(from));
    if (isUnusedOfHeader(from, m_context.clang.getSourceManager()) || isUnusedInSilence(from, m_context.system))
        addAttributes(variable, "__attribute__((unused))");
    const auto* parameter = llvm::dyn_cast<clang::ParmVarDecl>(&from);
    variable.setParameter(parameter != nullptr);
    if (parameter != nullptr)
        variable.setBracketWords(bracketWordsOf(*parameter));
    else
        variable.setLengthLeftOut(leavesLengthOut(from.getTypeSourceInfo(), from.getType()));
    std::vector<ExpressionPtr> bounds;
    // An array parameter keeps its dimensions, though it is a pointer where it is used.
    variable.setType(
        m_context.types.build(parameter != nullptr ? parameter->getOriginalType() : from.getType(), bounds));
    for (ExpressionPtr& bound : bounds)
        variable.appendBound(std::move(bound));
    if (!variable.isExternal())
        variable.setInitializer(buildExpression(m_context, from.getInit()));
}

void Completion::complete(const clang::TypedefNameDecl& from, TypedefDeclaration& definition) {
    describe(from, definition);
    std::vector<ExpressionPtr> bounds;
    definition.setType(m_context.types.build(from.getUnderlyingType(), bounds));
    for (ExpressionPtr& bound : bounds)
        definition.appendBound(std::move(bound));
}

std::unique_ptr<FieldDeclaration> Completion::makeField(const clang::FieldDecl& from) {
    auto field = std::make_unique<FieldDeclaration>(from.getNameAsString(), m_context.types.build(from.getType()),
                                                    from.isBitField() ? buildExpression(m_context, from.getBitWidth())
                                                                      : nullptr);
    describe(from, *field);
    m_context.declarations.add(from, *field);
    return field;
}

void Completion::complete(const clang::RecordDecl& from, RecordDeclaration& record) {
    if (record.isComplete())
        return;
    describe(from, record);
    if (!from.isThisDeclarationADefinition())
        return;
    record.setComplete(true);
    record.setPacking(packingOf(from));
    const auto appendDirectives = [&](clang::SourceLocation end) {
        if (record.isExternal())
            return;
        for (DeclarationPtr& directive : buildDirectivesBefore(m_context, end))
            record.append(std::move(directive));
    };
    for (const clang::Decl* member : from.decls()) {
        appendDirectives(member->getBeginLoc());
        if (const auto* field = llvm::dyn_cast<clang::FieldDecl>(member))
            record.append(makeField(*field));
        else if (DeclarationPtr other = buildDeclaration(m_context, *member))
            record.append(std::move(other));
    }
    appendDirectives(from.getBraceRange().getEnd());
}

void Completion::complete(const clang::EnumDecl& from, EnumDeclaration& enumeration) {
    if (enumeration.isComplete())
        return;
    describe(from, enumeration);
    if (!from.isThisDeclarationADefinition())
        return;
    enumeration.setComplete(true);
    for (const clang::EnumConstantDecl* constant : from.enumerators()) {
        const llvm::APSInt value = constant->getInitVal().extOrTrunc(64);
        auto enumerator = std::make_unique<EnumeratorDeclaration>(constant->getNameAsString(), value.getSExtValue(),
                                                                  buildExpression(m_context, constant->getInitExpr()));
        describe(*constant, *enumerator);
        m_context.declarations.add(*constant, *enumerator);
        enumeration.append(std::move(enumerator));
    }
}

bool isKeptByTable(const clang::Decl& declaration) {
    return llvm::isa<clang::FunctionDecl, clang::VarDecl, clang::TypedefNameDecl, clang::TagDecl>(declaration);
}

DeclarationPtr makeOpaque(UnitContext& context, const clang::Decl& declaration) {
    std::string text = llvm::isa<clang::LabelDecl>(declaration)
                           ? "__label__ " + llvm::cast<clang::LabelDecl>(declaration).getNameAsString()
                           : context.keeper.textOf(declaration);
    // Clang renders it as C23 has it.
    if (llvm::isa<clang::StaticAssertDecl>(declaration) && text.rfind("static_assert", 0) == 0)
        text.replace(0, 1, "_S");
    auto opaque = std::make_unique<OpaqueDeclaration>(text + ';');
    opaque->setSourceRange(context.text.rangeOf(declaration.getSourceRange()));
    return opaque;
}

} // namespace

DeclarationPtr buildDeclaration(UnitContext& context, const clang::Decl& declaration) {
    // A lone semicolon declares nothing; an indirect field is Clang's name for a member of an unnamed member.
    if (llvm::isa<clang::EmptyDecl, clang::IndirectFieldDecl>(declaration))
        return nullptr;
    if (!isKeptByTable(declaration))
        return makeOpaque(context, declaration);
    DeclarationPtr made = context.declarations.take(declaration);
    if (made)
        completeDeclaration(context, declaration, *made);
    return made;
}

std::vector<DeclarationPtr> buildDirectivesBefore(UnitContext& context, clang::SourceLocation end) {
    return buildDirectives(context, context.directives.takeBefore(end, context.clang.getSourceManager()));
}

std::vector<DeclarationPtr> buildDirectives(UnitContext& context, std::vector<Directive> directives) {
    std::vector<DeclarationPtr> built;
    for (Directive& directive : directives) {
        built.push_back(std::make_unique<OpaqueDeclaration>(std::move(directive.text)));
        built.back()->setSourceRange(context.text.rangeOf(directive.place));
    }
    return built;
}

void completeDeclaration(UnitContext& context, const clang::Decl& declaration, DeclarationBase& made) {
    Completion completion(context);
    if (const auto* function = llvm::dyn_cast<clang::FunctionDecl>(&declaration))
        completion.complete(*function, static_cast<SubroutineDeclaration&>(made));
    else if (const auto* variable = llvm::dyn_cast<clang::VarDecl>(&declaration))
        completion.complete(*variable, static_cast<VariableDeclaration&>(made));
    else if (const auto* name = llvm::dyn_cast<clang::TypedefNameDecl>(&declaration))
        completion.complete(*name, static_cast<TypedefDeclaration&>(made));
    else if (const auto* record = llvm::dyn_cast<clang::RecordDecl>(&declaration))
        completion.complete(*record, static_cast<RecordDeclaration&>(made));
    else if (const auto* enumeration = llvm::dyn_cast<clang::EnumDecl>(&declaration))
        completion.complete(*enumeration, static_cast<EnumDeclaration&>(made));
}

} // namespace Kova::Frontends
