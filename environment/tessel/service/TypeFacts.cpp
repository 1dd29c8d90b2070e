// SPDX-License-Identifier: MIT
#include "environment/tessel/service/TypeFacts.h"

#include "environment/tessel/DeclarationStatement.h"
#include "environment/tessel/EnumDeclaration.h"
#include "environment/tessel/FieldDeclaration.h"
#include "environment/tessel/RecordDeclaration.h"
#include "environment/tessel/TypedefDeclaration.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/types/ArrayType.h"
#include "environment/tessel/types/BasicType.h"
#include "environment/tessel/types/DeclaredType.h"
#include "environment/tessel/types/PointerType.h"

namespace Kova::Tessel::Service {

namespace {

const TypeDeclaration* declarationOf(const Type* type) {
    const auto* declared = dynamic_cast<const DeclaredType*>(type);
    return declared != nullptr ? &declared->getDeclaration() : nullptr;
}

const TypedefDeclaration* nameOf(const Type* type) {
    return dynamic_cast<const TypedefDeclaration*>(declarationOf(type));
}

/// Counts from its least value: an enumeration without negative constants is unsigned for compilers.
IntegerType integerOf(const EnumDeclaration& enumeration) {
    for (std::size_t i = 0; i < enumeration.getChildCount(); ++i) {
        const auto* constant = dynamic_cast<const EnumeratorDeclaration*>(enumeration.getChild(i));
        if (constant != nullptr && constant->getValue() < 0)
            return {true, 32};
    }
    return {false, 32};
}

} // namespace

const Type* behindNames(const Type* type) {
    while (const TypedefDeclaration* name = nameOf(type))
        type = name->getType();
    return type;
}

const PointerType* asPointer(const Type* type) {
    return dynamic_cast<const PointerType*>(behindNames(type));
}

const ArrayType* asArray(const Type* type) {
    return dynamic_cast<const ArrayType*>(behindNames(type));
}

const RecordDeclaration* asRecord(const Type* type) {
    return dynamic_cast<const RecordDeclaration*>(declarationOf(behindNames(type)));
}

bool isFunction(const Type* type) {
    const Type* meant = behindNames(type);
    return meant != nullptr && meant->getKind() == Type::Kind::Function;
}

bool isScalar(const Type* type) {
    const Type* meant = behindNames(type);
    return meant != nullptr && (meant->getKind() == Type::Kind::Basic || meant->getKind() == Type::Kind::Pointer ||
                                dynamic_cast<const EnumDeclaration*>(declarationOf(meant)) != nullptr);
}

const Type* elementOf(const Type* type) {
    if (const PointerType* pointer = asPointer(type))
        return pointer->getPointee();
    const ArrayType* array = asArray(type);
    return array != nullptr ? array->getElement() : nullptr;
}

bool hasQualifier(const Type* type, unsigned qualifiers) {
    for (; type != nullptr; type = nameOf(type) != nullptr ? nameOf(type)->getType() : nullptr)
        if ((type->getQualifiers() & qualifiers) != 0)
            return true;
    return false;
}

bool isSameObjectType(const Type* first, const Type* second) {
    first = behindNames(first);
    second = behindNames(second);
    if (first == nullptr || second == nullptr || first->getKind() != second->getKind())
        return false;
    if (first == second)
        return true;
    switch (first->getKind()) {
    case Type::Kind::Basic:
        return static_cast<const BasicType*>(first)->getName() == static_cast<const BasicType*>(second)->getName();
    case Type::Kind::Declared:
        return declarationOf(first) == declarationOf(second);
    case Type::Kind::Pointer:
        return isSameObjectType(elementOf(first), elementOf(second));
    case Type::Kind::Array:
        return static_cast<const ArrayType*>(first)->getDimensions() ==
                   static_cast<const ArrayType*>(second)->getDimensions() &&
               isSameObjectType(elementOf(first), elementOf(second));
    case Type::Kind::Function:
    case Type::Kind::Opaque:
        break;
    }
    return false;
}

bool holdsPointer(const Type* type) {
    while (const ArrayType* array = asArray(type))
        type = array->getElement();
    const RecordDeclaration* record = asRecord(type);
    if (record == nullptr)
        return !isScalar(type) || asPointer(type) != nullptr;
    for (std::size_t i = 0; i < record->getChildCount(); ++i) {
        const auto* field = dynamic_cast<const FieldDeclaration*>(record->getChild(i));
        if (field != nullptr && holdsPointer(field->getType()))
            return true;
    }
    return !record->isComplete();
}

namespace {

bool embeds(const RecordDeclaration& whole, const RecordDeclaration& part) {
    if (&whole == &part)
        return true;
    for (std::size_t i = 0; i < whole.getChildCount(); ++i) {
        const auto* field = dynamic_cast<const FieldDeclaration*>(whole.getChild(i));
        const Type* type = field != nullptr ? field->getType() : nullptr;
        while (const ArrayType* array = asArray(type))
            type = array->getElement();
        const RecordDeclaration* inner = asRecord(type);
        if (inner != nullptr && inner != &whole && embeds(*inner, part))
            return true;
    }
    return false;
}

} // namespace

std::optional<std::uint64_t> sizeOf(const Type* type) {
    // Of the machines that the front ends read for.
    constexpr std::uint64_t pointerSize = 8;
    std::uint64_t count = 1;
    for (const ArrayType* array = asArray(type); array != nullptr; array = asArray(type)) {
        for (const ArrayDimension& dimension : array->getDimensions()) {
            if (dimension.kind != ArrayDimension::Extent::Constant || dimension.extent > UINT32_MAX ||
                count > UINT32_MAX)
                return std::nullopt;
            count *= dimension.extent;
        }
        type = array->getElement();
    }
    if (asPointer(type) != nullptr)
        return count * pointerSize;
    const auto* basic = dynamic_cast<const BasicType*>(behindNames(type));
    if (basic == nullptr || basic->getBits() == 0)
        return std::nullopt;
    return count * ((basic->getBits() + 7) / 8);
}

bool isPartOf(const RecordDeclaration& first, const RecordDeclaration& second) {
    return embeds(first, second) || embeds(second, first);
}

bool isArrayParameter(const VariableDeclaration& variable) {
    return variable.isParameter() && asArray(variable.getType()) != nullptr;
}

bool isAutomatic(const VariableDeclaration& variable) {
    const StorageClass storage = variable.getStorageClass();
    return dynamic_cast<const DeclarationStatement*>(variable.getParent()) != nullptr &&
           (storage == StorageClass::None || storage == StorageClass::Auto || storage == StorageClass::Register);
}

std::optional<IntegerType> asInteger(const Type* type) {
    const Type* meant = behindNames(type);
    if (const auto* enumeration = dynamic_cast<const EnumDeclaration*>(declarationOf(meant)))
        return integerOf(*enumeration);
    const auto* basic = dynamic_cast<const BasicType*>(meant);
    if (basic == nullptr)
        return std::nullopt;
    switch (basic->getCategory()) {
    case BasicType::Category::Boolean:
        return IntegerType{false, 1};
    case BasicType::Category::Character:
        // Plain char, whose sign the machine decides.
        return IntegerType{basic->getName().find("unsigned") == std::string::npos, basic->getBits()};
    case BasicType::Category::SignedInteger:
        return IntegerType{true, basic->getBits()};
    case BasicType::Category::UnsignedInteger:
        return IntegerType{false, basic->getBits()};
    case BasicType::Category::Void:
    case BasicType::Category::Floating:
    case BasicType::Category::Complex:
        break;
    }
    return std::nullopt;
}

} // namespace Kova::Tessel::Service
