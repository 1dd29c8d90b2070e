// SPDX-License-Identifier: MIT
#include "environment/printing/CDeclarationPieces.h"

#include "environment/printing/CDeclarator.h"
#include "environment/printing/DeclarationHead.h"
#include "environment/tessel/EnumDeclaration.h"
#include "environment/tessel/FieldDeclaration.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/OpaqueDeclaration.h"
#include "environment/tessel/RecordDeclaration.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/TypedefDeclaration.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/types/DeclaredType.h"
#include "environment/tessel/types/FunctionType.h"

#include <optional>
#include <string>
#include <utility>

namespace Kova::Backends {

using namespace Tessel;

namespace {

/// In bytes: no field of a common type is aligned to more.
constexpr unsigned loosestPacking = 16;

/// `struct` and the like with attributes and name.
std::string headOfType(const TypeDeclaration& declaration, const char* keyword) {
    std::string head = keyword;
    for (const std::string* word : {&declaration.getAttributes(), &declaration.getName()})
        if (!word->empty())
            head += " " + *word;
    return head;
}

/// A body needs its parameters named: a definition cannot leave its type to a typedef.
const Type* writtenTypeOf(const SubroutineDeclaration& subroutine) {
    const Type* type = subroutine.getType();
    while (subroutine.hasImplementation() && type != nullptr && type->getKind() == Type::Kind::Declared) {
        const auto& declaration = static_cast<const DeclaredType&>(*type).getDeclaration();
        const auto* alias = dynamic_cast<const TypedefDeclaration*>(&declaration);
        if (alias == nullptr)
            break;
        type = alias->getType();
    }
    return type;
}

/// The structure or union that is defined where the declarations are written; null when none is.
const RecordDeclaration* definedBy(const DeclarationGroup& group) {
    const DeclarationBase& first = *group.declarators.front();
    const DeclarationBase* definition = group.definition;
    if (definition == nullptr)
        definition = CDeclarator::declarationBehind(DeclarationHead::typeOf(first));
    if (definition == nullptr || (definition != group.definition && !definition->getName().empty()))
        definition = &first;
    const auto* record = dynamic_cast<const RecordDeclaration*>(definition);
    return record != nullptr && record->isComplete() ? record : nullptr;
}

/// The limit of alignment that is to be set around a group and not set around its owner, in bytes; none for no change.
std::optional<unsigned> packingFor(const DeclarationGroup& group) {
    const RecordDeclaration* record = definedBy(group);
    const auto* around = dynamic_cast<const RecordDeclaration*>(group.declarators.front()->getParent());
    const unsigned set = around != nullptr ? around->getPacking() : 0;
    return record != nullptr && record->getPacking() != set ? std::optional(record->getPacking()) : std::nullopt;
}

/// A header is one line.
bool isInLoopHeader(const DeclarationBase& declaration) {
    return declaration.getParent() != nullptr &&
           dynamic_cast<const ForStatement*>(declaration.getParent()->getParent()) != nullptr;
}

bool isOldStyleDefinition(const SubroutineDeclaration& subroutine, const FunctionType* type) {
    return subroutine.hasImplementation() && type != nullptr &&
           type->getParametersKind() == FunctionType::Parameters::Unspecified;
}

} // namespace

PieceList CDeclarationPieces::declaratorOf(DeclarationBase& declaration) const {
    PieceList name;
    name.name(declaration.getName(), declaration);
    const auto* variable = dynamic_cast<const VariableDeclaration*>(&declaration);
    CDeclarator::Brackets brackets;
    if (variable != nullptr)
        brackets = {variable->getBracketWords(), variable->isLengthLeftOut()};
    PieceList pieces =
        CDeclarator::declaratorPieces(DeclarationHead::typeOf(declaration), std::move(name), declaration, brackets);
    pieces.text(DeclarationHead::wordsBehind(declaration), declaration);
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

void CDeclarationPieces::wholeDeclaration(DeclarationBase& declaration, const TypeDeclaration* definition) {
    out().text(DeclarationHead::wordsBefore(declaration), declaration);
    PieceList pieces = CDeclarator::specifierPieces(DeclarationHead::typeOf(declaration), declaration, definition);
    CDeclarator::joinSpecifier(pieces, declaratorOf(declaration), declaration);
    out().append(std::move(pieces));
}

void CDeclarationPieces::group(const DeclarationGroup& group, TesselBase& owner) {
    DeclarationBase& first = *group.declarators.front();
    const std::optional<unsigned> packing = isInLoopHeader(first) ? std::nullopt : packingFor(group);
    if (packing) {
        out().text("#pragma pack(push, " + std::to_string(*packing != 0 ? *packing : loosestPacking) + ')', owner);
        out().lineBreak(owner);
    }
    if (group.definition != nullptr)
        wholeDeclaration(first, group.definition);
    else
        child(&first);
    for (std::size_t i = 1; i < group.declarators.size(); ++i) {
        out().text(", ", owner);
        out().append(declaratorOf(*group.declarators[i]));
    }
    if (DeclarationHead::endsWithSemicolon(first))
        out().text(";", owner);
    if (packing) {
        out().lineBreak(owner);
        out().text("#pragma pack(pop)", owner);
    }
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
    name(node.getName());
    if (!node.getAttributes().empty())
        text(" " + node.getAttributes());
    if (node.getExpression() != nullptr)
        text(" = ");
    child(node.getExpression(), Precedence::Conditional);
}

void CDeclarationPieces::visit(RecordDeclaration& node) {
    text(headOfType(node, node.getKind() == RecordDeclaration::Kind::Union ? "union" : "struct"));
    if (!node.isComplete())
        return;
    out().lineBreak(node);
    text("{");
    out().indent();
    // Members are the structure's shape: nothing of it is hidden.
    for (const DeclarationGroup& member : groupDeclarations(node, DeclarationPlace::Record, {})) {
        DeclarationBase& first = *member.declarators.front();
        out().lineBreak(first);
        group(member, first);
    }
    out().unindent();
    out().lineBreak(node);
    text("}");
}

void CDeclarationPieces::visit(EnumDeclaration& node) {
    text(headOfType(node, "enum"));
    if (!node.isComplete())
        return;
    out().lineBreak(node);
    text("{");
    out().indent();
    for (std::size_t i = 0; i < node.getChildCount(); ++i) {
        if (i != 0)
            text(",");
        if (TesselBase* enumerator = node.getChild(i))
            out().lineBreak(*enumerator);
        child(node.getChild(i));
    }
    out().unindent();
    out().lineBreak(node);
    text("}");
}

PieceList CDeclarationPieces::headOf(SubroutineDeclaration& node, const FunctionType* function) const {
    PieceList head;
    head.text(node.isNamedAsMacro() ? "(" : "", node);
    head.name(node.getName(), node);
    head.text(node.isNamedAsMacro() ? ")" : "", node);
    const bool isOldStyle = isOldStyleDefinition(node, function);
    if (function == nullptr || node.getParameterCount() == 0)
        return head;
    head.text("(", node);
    for (std::size_t i = 0; i < node.getParameterCount(); ++i) {
        head.text(i == 0 ? "" : ", ", node);
        VariableDeclaration* parameter = node.getParameter(i);
        if (isOldStyle && parameter != nullptr)
            head.name(parameter->getName(), *parameter);
        else
            head.node(parameter);
    }
    head.text(function->getParametersKind() == FunctionType::Parameters::Variadic ? ", ...)" : ")", node);
    return head;
}

/// A definition without a prototype declares its parameters between the head and the body: with a prototype, callers
/// would pass other types.
void CDeclarationPieces::visit(SubroutineDeclaration& node) {
    text(DeclarationHead::wordsBefore(node));
    const Type* type = writtenTypeOf(node);
    const auto* function = dynamic_cast<const FunctionType*>(type);
    const bool isOldStyle = isOldStyleDefinition(node, function);
    const bool hasParameters = function != nullptr && node.getParameterCount() != 0;
    out().append(
        CDeclarator::declarationPieces(hasParameters ? function->getResult() : type, headOf(node, function), node));
    text(DeclarationHead::wordsBehind(node));
    for (std::size_t i = 0; isOldStyle && i < node.getParameterCount(); ++i) {
        if (VariableDeclaration* parameter = node.getParameter(i)) {
            out().lineBreak(*parameter);
            child(parameter);
            out().text(";", *parameter);
        }
    }
    if (node.hasImplementation())
        out().lineBreak(*node.getBody());
    child(node.getBody());
}

void CDeclarationPieces::visit(OpaqueDeclaration& node) {
    sourceText(node.getText());
}

} // namespace Kova::Backends
