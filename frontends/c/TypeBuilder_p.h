// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ExpressionBase.h"

#include <clang/AST/Type.h>
#include <llvm/ADT/DenseMap.h>

#include <vector>

namespace Kova::Tessel {
class TypeTable;
}

namespace Kova::Frontends {

struct UnitContext;

/// True where the source gives an array no length, but Clang knows it from the initializer or another declaration.
[[nodiscard]] bool leavesLengthOut(const clang::TypeSourceInfo* written, clang::QualType known);

/// Turns Clang's types into the program's, typedefs kept, each of them once.
class TypeBuilder {
public:
    explicit TypeBuilder(UnitContext& context) : m_context(context) {}

    /// The type of an expression. Null for what Clang does not know after an error.
    [[nodiscard]] const Tessel::Type* build(clang::QualType type) { return buildInto(type, nullptr); }

    /// The type that a node mentions. The bounds of variable-length arrays in it that were not met before are
    /// appended to the list for the node to own.
    [[nodiscard]] const Tessel::Type* build(clang::QualType type, std::vector<Tessel::ExpressionPtr>& bounds) {
        return buildInto(type, &bounds);
    }

private:
    using Bounds = std::vector<Tessel::ExpressionPtr>;

    const Tessel::Type* buildInto(clang::QualType type, Bounds* bounds);
    const Tessel::Type* make(const clang::Type& type, std::uint8_t qualifiers, Bounds* bounds);
    const Tessel::Type* makeBuiltin(const clang::BuiltinType& type, std::uint8_t qualifiers);
    const Tessel::Type* makeArray(const clang::ArrayType& type, std::uint8_t qualifiers, Bounds* bounds);
    const Tessel::Type* makeFunction(const clang::FunctionType& type);
    [[nodiscard]] std::string unnamedTypeOf(const clang::Type& type) const;
    const Tessel::Type* makeOther(const clang::Type& type, std::uint8_t qualifiers, Bounds* bounds);

    UnitContext& m_context;
    llvm::DenseMap<void*, const Tessel::Type*> m_built;
};

} // namespace Kova::Frontends
