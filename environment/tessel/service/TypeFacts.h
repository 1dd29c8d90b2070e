// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

namespace Kova::Tessel {
class ArrayType;
class PointerType;
class RecordDeclaration;
class Type;
class VariableDeclaration;
} // namespace Kova::Tessel

/// What types say of values and memory. Every question may be asked of null, the unknown type.
namespace Kova::Tessel::Service {

/// The type that typedef names stand for; null when unknown.
[[nodiscard]] const Type* behindNames(const Type* type);

[[nodiscard]] const PointerType* asPointer(const Type* type);
[[nodiscard]] const ArrayType* asArray(const Type* type);
[[nodiscard]] const RecordDeclaration* asRecord(const Type* type);
[[nodiscard]] bool isFunction(const Type* type);
/// A number, an enumeration's value or a pointer.
[[nodiscard]] bool isScalar(const Type* type);
/// What an array consists of or a pointer leads to; null for any other type.
[[nodiscard]] const Type* elementOf(const Type* type);
/// Whether the type or a typedef name on the way to it carries one of the qualifiers.
[[nodiscard]] bool hasQualifier(const Type* type, unsigned qualifiers);
/// Whether both are the same but for qualifiers. Unknown types are the same as none.
[[nodiscard]] bool isSameObjectType(const Type* first, const Type* second);
/// Whether a value of the type holds a pointer anywhere; true when unknown.
[[nodiscard]] bool holdsPointer(const Type* type);
/// In bytes; none for structures, variable arrays and when unknown.
[[nodiscard]] std::optional<std::uint64_t> sizeOf(const Type* type);
/// Whether one of the two structures is the other or a part of it.
[[nodiscard]] bool isPartOf(const RecordDeclaration& first, const RecordDeclaration& second);

/// A parameter that is declared as an array is a pointer where it is used.
[[nodiscard]] bool isArrayParameter(const VariableDeclaration& variable);

/// Whether the variable is made anew wherever its declaration is executed.
[[nodiscard]] bool isAutomatic(const VariableDeclaration& variable);

struct IntegerType {
    bool isSigned = true;
    /// 1 for a truth value.
    unsigned bits = 32;
};
/// None for what is no integer and when unknown.
[[nodiscard]] std::optional<IntegerType> asInteger(const Type* type);
/// Whether a value of the type may be read as a number. What is not known is taken for a signed integer.
[[nodiscard]] inline bool isCountable(const Type* type) {
    return type == nullptr || asInteger(type).has_value();
}

} // namespace Kova::Tessel::Service
