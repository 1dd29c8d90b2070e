// SPDX-License-Identifier: MIT
#include "environment/printing/DeclarationHead.h"

#include "environment/printing/CDeclarator.h"
#include "environment/printing/SourceText.h"
#include "environment/tessel/FieldDeclaration.h"
#include "environment/tessel/ModuleDeclaration.h"
#include "environment/tessel/OpaqueDeclaration.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/TypedefDeclaration.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/types/FunctionType.h"

#include <cstddef>
#include <cstring>

namespace Kova::Backends::DeclarationHead {

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

std::string specifiersOf(const SubroutineDeclaration& subroutine) {
    std::string words = storageWords(subroutine.getStorageClass());
    if (subroutine.isInline())
        words += "inline ";
    if (subroutine.isNoReturn() && subroutine.getAttributes().find("noreturn") == std::string::npos)
        words += "_Noreturn ";
    return words;
}

bool isAssemblerName(const std::string& attributes, std::size_t begin) {
    if (begin != 0 && isWordCharacter(attributes[begin - 1]))
        return false;
    for (const char* word : {"asm(", "asm (", "__asm__(", "__asm__ ("})
        if (attributes.compare(begin, std::strlen(word), word) == 0)
            return true;
    return false;
}

/// A text of attributes, cut in three. All but the first are empty where no assembler's name stands among them.
struct Attributes {
    std::string before;
    /// `asm ("name")`
    std::string assemblerName;
    std::string behind;
};

Attributes cutAtAssemblerName(const std::string& text) {
    std::size_t begin = text.size();
    int depth = 0;
    for (std::size_t i = 0; i < text.size();) {
        if (text[i] == '"') {
            i = skipQuoted(text, i);
            continue;
        }
        if (depth == 0 && begin == text.size() && isAssemblerName(text, i))
            begin = i;
        depth += text[i] == '(' ? 1 : text[i] == ')' ? -1 : 0;
        const bool isEnd = text[i++] == ')' && depth == 0;
        if (isEnd && begin != text.size())
            return {text.substr(0, begin), text.substr(begin, i - begin), text.substr(i)};
    }
    return {text.substr(0, begin), text.substr(begin), {}};
}

/// The words of a text with one blank behind it; nothing where there are none.
std::string withBlankBehind(const std::string& text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1) + ' ';
}

/// Between the head and the body of an old definition an attribute before the type would be the function's.
bool isOldStyleParameter(const DeclarationBase& declaration) {
    const auto* variable = dynamic_cast<const VariableDeclaration*>(&declaration);
    const auto* subroutine = dynamic_cast<const SubroutineDeclaration*>(declaration.getParent());
    if (variable == nullptr || !variable->isParameter() || subroutine == nullptr || !subroutine->hasImplementation())
        return false;
    const auto* type = dynamic_cast<const FunctionType*>(subroutine->getType());
    return type != nullptr && type->getParametersKind() == FunctionType::Parameters::Unspecified;
}

} // namespace

const Type* typeOf(const DeclarationBase& declaration) {
    if (const auto* variable = dynamic_cast<const VariableDeclaration*>(&declaration))
        return variable->getType();
    if (const auto* field = dynamic_cast<const FieldDeclaration*>(&declaration))
        return field->getType();
    if (const auto* alias = dynamic_cast<const TypedefDeclaration*>(&declaration))
        return alias->getType();
    return nullptr;
}

std::string wordsBefore(const DeclarationBase& declaration) {
    std::string words;
    if (!declaration.getAttributes().empty() && !isOldStyleParameter(declaration)) {
        const Attributes attributes = cutAtAssemblerName(declaration.getAttributes());
        words = withBlankBehind(attributes.before) + withBlankBehind(attributes.behind);
    }
    if (const auto* variable = dynamic_cast<const VariableDeclaration*>(&declaration))
        return words + storageWords(variable->getStorageClass());
    if (const auto* subroutine = dynamic_cast<const SubroutineDeclaration*>(&declaration))
        return words + specifiersOf(*subroutine);
    if (dynamic_cast<const TypedefDeclaration*>(&declaration) != nullptr)
        words += "typedef ";
    return words;
}

std::string wordsBehind(const DeclarationBase& declaration) {
    if (declaration.getAttributes().empty())
        return {};
    if (isOldStyleParameter(declaration))
        return ' ' + declaration.getAttributes();
    const std::string name = cutAtAssemblerName(declaration.getAttributes()).assemblerName;
    return name.empty() ? name : ' ' + name;
}

bool canShare(const DeclarationBase& a, const DeclarationBase& b) {
    return typeOf(a) != nullptr && typeOf(b) != nullptr &&
           CDeclarator::specifierOf(typeOf(a)) == CDeclarator::specifierOf(typeOf(b)) &&
           wordsBefore(a) == wordsBefore(b);
}

bool endsWithSemicolon(const DeclarationBase& declaration) {
    const auto* subroutine = dynamic_cast<const SubroutineDeclaration*>(&declaration);
    return dynamic_cast<const OpaqueDeclaration*>(&declaration) == nullptr &&
           dynamic_cast<const ModuleDeclaration*>(&declaration) == nullptr &&
           (subroutine == nullptr || !subroutine->hasImplementation());
}

} // namespace Kova::Backends::DeclarationHead
