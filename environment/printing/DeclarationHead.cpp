// SPDX-License-Identifier: MIT
#include "environment/printing/DeclarationHead.h"

#include "environment/printing/CDeclarator.h"
#include "environment/tessel/FieldDeclaration.h"
#include "environment/tessel/ModuleDeclaration.h"
#include "environment/tessel/OpaqueDeclaration.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/TypedefDeclaration.h"
#include "environment/tessel/VariableDeclaration.h"

#include <cstddef>

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

/// Where the assembler's name begins in the text of attributes; npos without one.
std::size_t findAssemblerName(const std::string& attributes) {
    for (const char* word : {"asm(", "asm (", "__asm__(", "__asm__ ("}) {
        const std::size_t found = attributes.find(word);
        if (found == 0 || (found != std::string::npos && attributes[found - 1] == ' '))
            return found;
    }
    return std::string::npos;
}

/// The position behind the parenthesis that closes the first one that opens from a position on.
std::size_t behindGroup(const std::string& text, std::size_t begin) {
    const std::size_t end = text.find(')', begin);
    return end == std::string::npos ? text.size() : end + 1;
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
    std::string words = declaration.getAttributes();
    if (const std::size_t begin = findAssemblerName(words); begin != std::string::npos)
        words.erase(begin, behindGroup(words, begin) - begin);
    while (!words.empty() && words.back() == ' ')
        words.pop_back();
    if (!words.empty())
        words += ' ';
    if (const auto* variable = dynamic_cast<const VariableDeclaration*>(&declaration))
        return words + storageWords(variable->getStorageClass());
    if (const auto* subroutine = dynamic_cast<const SubroutineDeclaration*>(&declaration))
        return words + specifiersOf(*subroutine);
    if (dynamic_cast<const TypedefDeclaration*>(&declaration) != nullptr)
        words += "typedef ";
    return words;
}

std::string wordsBehind(const DeclarationBase& declaration) {
    const std::string& attributes = declaration.getAttributes();
    const std::size_t begin = attributes.empty() ? std::string::npos : findAssemblerName(attributes);
    if (begin == std::string::npos)
        return {};
    return ' ' + attributes.substr(begin, behindGroup(attributes, begin) - begin);
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
