// SPDX-License-Identifier: MIT
#include "environment/printing/CDeclarationPieces.h"

#include "environment/printing/CDeclarator.h"
#include "environment/tessel/EnumDeclaration.h"
#include "environment/tessel/FieldDeclaration.h"
#include "environment/tessel/OpaqueDeclaration.h"
#include "environment/tessel/RecordDeclaration.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/TypedefDeclaration.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/types/FunctionType.h"

#include <set>
#include <utility>

namespace Kova::Backends {

using namespace Tessel;

namespace {

const char* storageWords(StorageClass storage) {
    switch (storage) {
    case StorageClass::None:
        break;
    case StorageClass::Static:
        return "static ";
    case StorageClass::Extern:
        return "extern ";
    case StorageClass::Register:
        return "register ";
    case StorageClass::Auto:
        return "auto ";
    case StorageClass::ThreadLocal:
        return "_Thread_local ";
    case StorageClass::StaticThreadLocal:
        return "static _Thread_local ";
    case StorageClass::ExternThreadLocal:
        return "extern _Thread_local ";
    }
    return "";
}

/// What a declaration of names says before its declarators, apart from the type. Attributes come first, where C takes
/// them for variables, types and functions alike.
std::string prefixOf(const DeclarationBase& declaration) {
    std::string words = declaration.getAttributes();
    if (!words.empty())
        words += ' ';
    if (dynamic_cast<const TypedefDeclaration*>(&declaration) != nullptr)
        words += "typedef ";
    if (const auto* variable = dynamic_cast<const VariableDeclaration*>(&declaration))
        words += storageWords(variable->getStorageClass());
    return words;
}

/// The type of a declaration that declares names of one; null for any other.
const Type* typeOf(const DeclarationBase& declaration) {
    if (const auto* variable = dynamic_cast<const VariableDeclaration*>(&declaration))
        return variable->getType();
    if (const auto* field = dynamic_cast<const FieldDeclaration*>(&declaration))
        return field->getType();
    if (const auto* alias = dynamic_cast<const TypedefDeclaration*>(&declaration))
        return alias->getType();
    return nullptr;
}

bool canShare(const DeclarationBase& a, const DeclarationBase& b) {
    return typeOf(a) != nullptr && typeOf(b) != nullptr && prefixOf(a) == prefixOf(b) &&
           CDeclarator::specifierOf(typeOf(a)) == CDeclarator::specifierOf(typeOf(b));
}

bool hasUnnamedType(const DeclarationBase& declaration) {
    const TypeDeclaration* type = CDeclarator::declarationBehind(typeOf(declaration));
    return type != nullptr && type->getName().empty();
}

bool endsWithSemicolon(const DeclarationBase& declaration) {
    const auto* subroutine = dynamic_cast<const SubroutineDeclaration*>(&declaration);
    return dynamic_cast<const OpaqueDeclaration*>(&declaration) == nullptr &&
           (subroutine == nullptr || !subroutine->hasImplementation());
}

/// The declarations of a node that are written, without types that other declarations define where they use them.
std::vector<DeclarationBase*> writtenDeclarations(const TesselBase& holder) {
    std::vector<DeclarationBase*> written;
    std::set<const TypeDeclaration*> used; // looked up, never walked
    for (std::size_t i = 0; i < holder.getChildCount(); ++i)
        if (const auto* declaration = dynamic_cast<const DeclarationBase*>(holder.getChild(i)))
            used.insert(CDeclarator::declarationBehind(typeOf(*declaration)));
    for (std::size_t i = 0; i < holder.getChildCount(); ++i) {
        auto* declaration = dynamic_cast<DeclarationBase*>(holder.getChild(i));
        const auto* type = dynamic_cast<const TypeDeclaration*>(declaration);
        const bool isElsewhere = type != nullptr && type->getName().empty() && used.count(type) != 0;
        if (declaration != nullptr && !isElsewhere)
            written.push_back(declaration);
    }
    return written;
}

/// `struct` and the like with attributes and name.
std::string headOf(const TypeDeclaration& declaration, const char* keyword) {
    std::string head = keyword;
    for (const std::string* word : {&declaration.getAttributes(), &declaration.getName()})
        if (!word->empty())
            head += " " + *word;
    return head;
}

} // namespace

PieceList CDeclarationPieces::declaratorOf(DeclarationBase& declaration) const {
    PieceList name;
    name.text(declaration.getName(), declaration);
    PieceList pieces = CDeclarator::declaratorPieces(typeOf(declaration), std::move(name), declaration);
    const auto* variable = dynamic_cast<const VariableDeclaration*>(&declaration);
    const auto* field = dynamic_cast<const FieldDeclaration*>(&declaration);
    if (variable != nullptr && variable->getInitializer() != nullptr) {
        pieces.text(" = ", declaration);
        pieces.node(variable->getInitializer(), Precedence::Assignment);
    }
    if (field != nullptr && field->getBitWidth() != nullptr) {
        pieces.text(declaration.getName().empty() ? ": " : " : ", declaration);
        pieces.node(field->getBitWidth(), Precedence::Conditional);
    }
    return pieces;
}

void CDeclarationPieces::declarations(TesselBase& holder, Sharing sharing) {
    const std::vector<DeclarationBase*> written = writtenDeclarations(holder);
    const auto isOne = [sharing](const DeclarationBase& a, const DeclarationBase& b) {
        return canShare(a, b) && (sharing == Sharing::Always || hasUnnamedType(a));
    };
    for (std::size_t i = 0; i < written.size(); ++i) {
        DeclarationBase& declaration = *written[i];
        if (i != 0 && isOne(*written[i - 1], declaration)) {
            text(", ");
            out().append(declaratorOf(declaration));
        } else {
            if (i != 0)
                out().lineBreak(declaration);
            child(&declaration);
        }
        const bool goesOn = i + 1 < written.size() && isOne(declaration, *written[i + 1]);
        if (!goesOn && endsWithSemicolon(declaration))
            text(";");
    }
}

void CDeclarationPieces::wholeDeclaration(DeclarationBase& declaration) {
    text(prefixOf(declaration));
    PieceList pieces = CDeclarator::specifierPieces(typeOf(declaration), declaration);
    CDeclarator::joinSpecifier(pieces, declaratorOf(declaration), declaration);
    out().append(std::move(pieces));
}

void CDeclarationPieces::visit(VariableDeclaration& node) {
    wholeDeclaration(node);
}

void CDeclarationPieces::visit(FieldDeclaration& node) {
    wholeDeclaration(node);
}

void CDeclarationPieces::visit(TypedefDeclaration& node) {
    wholeDeclaration(node);
}

void CDeclarationPieces::visit(EnumeratorDeclaration& node) {
    text(node.getName());
    if (node.getExpression() != nullptr)
        text(" = ");
    child(node.getExpression(), Precedence::Conditional);
}

void CDeclarationPieces::visit(RecordDeclaration& node) {
    text(headOf(node, node.getKind() == RecordDeclaration::Kind::Union ? "union" : "struct"));
    if (!node.isComplete())
        return;
    text(" {");
    out().indent();
    if (node.getChildCount() != 0)
        out().lineBreak(node);
    declarations(node, Sharing::WhereNeeded);
    out().unindent();
    out().lineBreak(node);
    text("}");
}

void CDeclarationPieces::visit(EnumDeclaration& node) {
    text(headOf(node, "enum"));
    if (!node.isComplete())
        return;
    text(" { ");
    arguments(0);
    text(" }");
}

void CDeclarationPieces::visit(SubroutineDeclaration& node) {
    text(prefixOf(node));
    text(storageWords(node.getStorageClass()));
    text(node.isInline() ? "inline " : "");
    if (node.isNoReturn() && node.getAttributes().find("noreturn") == std::string::npos)
        text("_Noreturn ");
    const auto* function = dynamic_cast<const FunctionType*>(node.getType());
    PieceList name;
    name.text(node.getName(), node);
    if (function == nullptr || node.getParameterCount() == 0) {
        out().append(CDeclarator::declarationPieces(node.getType(), std::move(name), node));
    } else {
        name.text("(", node);
        for (std::size_t i = 0; i < node.getParameterCount(); ++i) {
            name.text(i == 0 ? "" : ", ", node);
            name.node(node.getParameter(i));
        }
        name.text(function->getParametersKind() == FunctionType::Parameters::Variadic ? ", ...)" : ")", node);
        out().append(CDeclarator::declarationPieces(function->getResult(), std::move(name), node));
    }
    text(node.hasImplementation() ? " " : "");
    child(node.getBody());
}

void CDeclarationPieces::visit(OpaqueDeclaration& node) {
    text(toOneLine(node.getText(), textStyle()));
}

} // namespace Kova::Backends
