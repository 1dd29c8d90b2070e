// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/EnumeratorDeclaration.h"
#include "environment/tessel/FieldDeclaration.h"
#include "tests/environment/support/Build.h"

namespace Kova::Tests {

/// Declarations, and short ways to use them, for tests of what expressions print as.
struct Names {
    Tessel::VariableDeclaration variableA{"a", nullptr};
    Tessel::VariableDeclaration variableB{"b", nullptr};
    Tessel::VariableDeclaration variableC{"c", nullptr};
    Tessel::SubroutineDeclaration subroutineF{"f", nullptr};
    Tessel::FieldDeclaration fieldX{"x", nullptr};
    Tessel::FieldDeclaration unnamedField{"", nullptr};
    Tessel::EnumeratorDeclaration enumeratorRed{"RED", 0, nullptr};
    Tessel::TypeTable types;
    const Tessel::Type* intType = types.basic("int", Tessel::BasicType::Category::SignedInteger, 32);
    const Tessel::Type* charType = types.basic("char", Tessel::BasicType::Category::Character, 8);

    Tessel::ExpressionPtr a() { return use(variableA); }
    Tessel::ExpressionPtr b() { return use(variableB); }
    Tessel::ExpressionPtr c() { return use(variableC); }
    Tessel::ExpressionPtr f() { return use(subroutineF); }
    Tessel::ExpressionPtr dot(Tessel::ExpressionPtr base) {
        return member(std::move(base), Tessel::MemberExpression::Access::Direct, fieldX);
    }
    Tessel::ExpressionPtr arrow(Tessel::ExpressionPtr base) {
        return member(std::move(base), Tessel::MemberExpression::Access::ThroughPointer, fieldX);
    }

    /// An array of C. @param extent 0 for a length that is left out.
    const Tessel::Type* arrayOf(const Tessel::Type* element, std::uint64_t extent) {
        Tessel::ArrayDimension dimension;
        dimension.kind =
            extent == 0 ? Tessel::ArrayDimension::Extent::Unspecified : Tessel::ArrayDimension::Extent::Constant;
        dimension.extent = extent;
        return types.array(element, {dimension});
    }
    const Tessel::Type* arrayOf(const Tessel::Type* element, const Tessel::ExpressionBase& length) {
        Tessel::ArrayDimension dimension;
        dimension.kind = Tessel::ArrayDimension::Extent::Variable;
        dimension.upperBound = &length;
        return types.array(element, {dimension});
    }
};

} // namespace Kova::Tests
