// SPDX-License-Identifier: MIT
#include "environment/printing/CUnitPieces.h"

#include "environment/printing/CDeclarator.h"
#include "environment/printing/DeclarationHead.h"
#include "environment/tessel/EnumDeclaration.h"
#include "environment/tessel/ModuleDeclaration.h"
#include "environment/tessel/OpaqueDeclaration.h"
#include "environment/tessel/RecordDeclaration.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/TranslationUnit.h"
#include "environment/tessel/VariableDeclaration.h"

namespace Kova::Backends {

using namespace Tessel;

namespace {

/// What stands together without an empty line in between; long ones stand alone.
enum class Paragraph { Variable, Prototype, Type, Directive, Other, Long };

bool isDefinition(const TypeDeclaration* type) {
    const auto* record = dynamic_cast<const RecordDeclaration*>(type);
    const auto* enumeration = dynamic_cast<const EnumDeclaration*>(type);
    return (record != nullptr && record->isComplete()) || (enumeration != nullptr && enumeration->isComplete());
}

Paragraph paragraphOf(const DeclarationGroup& group) {
    const DeclarationBase& first = *group.declarators.front();
    const TypeDeclaration* behind = CDeclarator::declarationBehind(DeclarationHead::typeOf(first));
    const bool definesUnnamed = isDefinition(behind) && behind->getName().empty();
    if (isDefinition(group.definition) || definesUnnamed)
        return Paragraph::Long;
    if (const auto* type = dynamic_cast<const TypeDeclaration*>(&first))
        return isDefinition(type) ? Paragraph::Long : Paragraph::Type;
    if (const auto* subroutine = dynamic_cast<const SubroutineDeclaration*>(&first))
        return subroutine->hasImplementation() ? Paragraph::Long : Paragraph::Prototype;
    const auto* opaque = dynamic_cast<const OpaqueDeclaration*>(&first);
    if (opaque != nullptr && opaque->isDirective())
        return Paragraph::Directive;
    return dynamic_cast<const VariableDeclaration*>(&first) != nullptr ? Paragraph::Variable : Paragraph::Other;
}

} // namespace

CUnitPieces::Before CUnitPieces::includes(TranslationUnit& unit) {
    Before before = Before::Nothing;
    if (getFilter().hidesIncludes() || unit.getSourceLanguage() != LANG_C)
        return before;
    const auto line = [&](const char* directive, const std::string& of) {
        if (before != Before::Nothing)
            out().lineBreak(unit);
        before = Before::Lines;
        text(directive);
        name(of);
    };
    for (const std::string& definition : unit.getSystemChoices())
        line("#define ", definition);
    for (const std::string& spelling : unit.getSystemIncludes())
        line("#include ", spelling);
    for (const std::string& name : unit.getSystemUndefinitions())
        line("#undef ", name);
    return before;
}

void CUnitPieces::declarations(TesselBase& holder, Before before) {
    Paragraph last = Paragraph::Long;
    for (const DeclarationGroup& each : groupDeclarations(holder, DeclarationPlace::File, getFilter())) {
        DeclarationBase& first = *each.declarators.front();
        const Paragraph paragraph = paragraphOf(each);
        const bool isApart = paragraph != last || paragraph == Paragraph::Long;
        // A directive speaks of what follows it.
        const bool followsDirective = before == Before::Lines && last == Paragraph::Directive;
        if (before == Before::Lines && isApart && !followsDirective)
            out().emptyLine(holder);
        if (before != Before::Nothing)
            out().lineBreak(first);
        group(each, first);
        before = Before::Lines;
        last = paragraph;
    }
}

void CUnitPieces::visit(TranslationUnit& node) {
    declarations(node, includes(node));
}

void CUnitPieces::visit(ModuleDeclaration& node) {
    text("MODULE " + node.getName());
    out().indent();
    declarations(node, Before::Head);
    out().unindent();
    out().lineBreak(node);
    text("END MODULE " + node.getName());
}

} // namespace Kova::Backends
