// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/types/ArrayType.h"
#include "environment/tessel/types/BasicType.h"
#include "environment/tessel/types/DeclaredType.h"
#include "environment/tessel/types/FunctionType.h"
#include "environment/tessel/types/OpaqueType.h"
#include "environment/tessel/types/PointerType.h"

#include <memory>
#include <string>
#include <unordered_map>

namespace Kova::Tessel {

/// Makes and owns the types of a program, each once. What it returns lives as long as the table.
class TypeTable {
public:
    const BasicType* basic(const std::string& name, BasicType::Category category, unsigned bits,
                           std::uint8_t qualifiers = Type::NoQualifier);
    const PointerType* pointer(const Type* pointee, std::uint8_t qualifiers = Type::NoQualifier);
    const ArrayType* array(const Type* element, std::vector<ArrayDimension> dimensions,
                           std::uint8_t qualifiers = Type::NoQualifier);
    const FunctionType* function(const Type* result, std::vector<const Type*> parameters,
                                 FunctionType::Parameters kind = FunctionType::Parameters::Fixed);
    const DeclaredType* declared(const TypeDeclaration& declaration, std::uint8_t qualifiers = Type::NoQualifier);
    const OpaqueType* opaque(const std::string& text, std::uint8_t qualifiers = Type::NoQualifier);

private:
    template <class T, class... Arguments>
    const T* obtain(const std::string& key, Arguments&&... arguments);

    // Keys hold addresses; nothing ever walks this table, so their order reaches nobody.
    std::unordered_map<std::string, std::unique_ptr<const Type>> m_types;
};

} // namespace Kova::Tessel
