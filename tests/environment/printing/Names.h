// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/EnumDeclaration.h"
#include "environment/tessel/EnumeratorDeclaration.h"
#include "environment/tessel/FieldDeclaration.h"
#include "environment/tessel/RecordDeclaration.h"
#include "tests/environment/support/Build.h"

namespace Kova::Tests {

/// Declarations, and short ways to use them, for tests of what expressions print as.
struct Names {
    using B = Tessel::BinaryOperator;
    using U = Tessel::UnaryOperator;

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

    std::unique_ptr<Tessel::VariableDeclaration> variable(const std::string& name, const Tessel::Type* type,
                                                          Tessel::ExpressionPtr initializer = nullptr) {
        return make<Tessel::VariableDeclaration>(name, type, std::move(initializer));
    }
    std::unique_ptr<Tessel::VariableDeclaration> intVariable(const std::string& name,
                                                             Tessel::ExpressionPtr initializer = nullptr) {
        return variable(name, intType, std::move(initializer));
    }
    /// A structure or union that is defined, so far without members.
    static std::unique_ptr<Tessel::RecordDeclaration>
    emptyRecord(const std::string& name,
                Tessel::RecordDeclaration::Kind kind = Tessel::RecordDeclaration::Kind::Struct) {
        auto node = make<Tessel::RecordDeclaration>(name, kind);
        node->setComplete(true);
        return node;
    }
    /// `struct name { int x; }`
    std::unique_ptr<Tessel::RecordDeclaration> record(const std::string& name) {
        auto node = emptyRecord(name);
        node->append(make<Tessel::FieldDeclaration>("x", intType));
        return node;
    }
    static std::unique_ptr<Tessel::EnumDeclaration> emptyEnum(const std::string& name) {
        auto node = make<Tessel::EnumDeclaration>(name);
        node->setComplete(true);
        return node;
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
