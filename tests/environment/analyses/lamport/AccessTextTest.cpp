// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/AccessText_p.h"
#include "environment/tessel/CastExpression.h"
#include "environment/tessel/FieldDeclaration.h"
#include "environment/tessel/OpaqueStatement.h"
#include "environment/tessel/TypedefDeclaration.h"
#include "environment/tessel/types/TypeTable.h"
#include "tests/environment/support/Build.h"

#include <gtest/gtest.h>

using namespace DepGraph;
using namespace Kova::Tessel;
using namespace Kova::Tests;
using Access = MemberExpression::Access;
using B = BinaryOperator;
using U = UnaryOperator;

namespace {

class AccessTextTest : public testing::Test {
protected:
    /// The name of a variable as an occurrence that expressions can be built around.
    ExpressionPtr name(VariableDeclaration& variable) {
        ExpressionPtr reference = typed(use(variable), variable.getType());
        m_last = reference.get();
        return reference;
    }
    static ExpressionPtr typed(ExpressionPtr expression, const Type* type) {
        expression->setType(type);
        return expression;
    }
    ExpressionPtr i() const { return literal("1"); }
    const ExpressionBase& keep(ExpressionPtr expression) {
        m_kept.push_back(std::move(expression));
        return *m_last;
    }

    /// The access of the occurrence that was named last, the other end being a dereference of a pointer.
    std::string followed(ExpressionPtr expression) {
        const ExpressionBase& occurrence = keep(std::move(expression));
        const ExpressionBase& other = keep(typed(subscript(name(p), i()), integer));
        return AccessText(occurrence, other, DT_INPUT).source;
    }
    /// The other end being a variable.
    std::string notFollowed(ExpressionPtr expression) {
        const ExpressionBase& occurrence = keep(std::move(expression));
        return AccessText(occurrence, keep(name(n)), DT_INPUT).source;
    }

    TypeTable types;
    const Type* integer = types.basic("int", BasicType::Category::SignedInteger, 32);
    const Type* pointer = types.pointer(integer);
    const Type* row = types.array(integer, {ArrayDimension()});
    VariableDeclaration n{"n", integer};
    VariableDeclaration p{"p", pointer};
    VariableDeclaration a{"a", types.array(row, {ArrayDimension()})};
    VariableDeclaration pointers{"pointers", types.array(pointer, {ArrayDimension()})};
    VariableDeclaration untyped{"u", nullptr};
    FieldDeclaration field{"f", integer};
    FieldDeclaration rowField{"row", row};

private:
    std::vector<ExpressionPtr> m_kept;
    const ExpressionBase* m_last = nullptr;
};

} // namespace

TEST_F(AccessTextTest, Variables) {
    EXPECT_EQ(notFollowed(name(n)), "n");
    EXPECT_EQ(notFollowed(assign(name(n), i())), "n");
    EXPECT_EQ(notFollowed(binary(name(n), B::Add, i())), "n");
    EXPECT_EQ(notFollowed(unary(U::PostIncrement, name(n))), "n");
    EXPECT_EQ(notFollowed(unary(U::AddressOf, name(n))), "n");
}

TEST_F(AccessTextTest, ElementsOfArrays) {
    EXPECT_EQ(notFollowed(typed(subscript(typed(subscript(name(a), i()), row), use(n)), integer)), "a[1][n]");
    EXPECT_EQ(notFollowed(typed(subscript(name(a), i()), row)), "a[1]");
    EXPECT_EQ(notFollowed(name(a)), "a");
    EXPECT_EQ(notFollowed(subscript(subscript(name(untyped), i()), i())), "u[1][1]");
    EXPECT_EQ(notFollowed(unary(U::PostIncrement, typed(subscript(name(a), i()), integer))), "a[1]");
    EXPECT_EQ(notFollowed(binary(typed(subscript(name(a), i()), integer), B::Add, i())), "a[1]");
}

TEST_F(AccessTextTest, AnArrayUsedAsAPointerKeepsItsElements) {
    EXPECT_EQ(notFollowed(typed(unary(U::Dereference, typed(binary(name(a), B::Add, i()), pointer)), integer)),
              "*(a + 1)");
    EXPECT_EQ(notFollowed(typed(subscript(i(), name(a)), row)), "1[a]");
}

TEST_F(AccessTextTest, Subscripts) {
    EXPECT_EQ(notFollowed(typed(subscript(typed(use(a), a.getType()), name(n)), row)), "n");
    ExpressionPtr inner = typed(subscript(name(a), i()), integer);
    EXPECT_EQ(notFollowed(typed(subscript(typed(use(a), a.getType()), std::move(inner)), row)), "a[1]");
}

TEST_F(AccessTextTest, Members) {
    EXPECT_EQ(notFollowed(member(name(untyped), Access::Direct, field)), "u.f");
    EXPECT_EQ(notFollowed(subscript(typed(member(name(untyped), Access::Direct, rowField), row), i())), "u.row[1]");
    EXPECT_EQ(followed(member(name(p), Access::ThroughPointer, field)), "p->f");
}

TEST_F(AccessTextTest, PointersAndWhatTheyLeadTo) {
    EXPECT_EQ(followed(typed(subscript(name(p), i()), integer)), "p[1]");
    EXPECT_EQ(notFollowed(typed(subscript(name(p), i()), integer)), "p");
    EXPECT_EQ(followed(name(p)), "p");
    EXPECT_EQ(followed(typed(unary(U::Dereference, name(p)), integer)), "*p");
    EXPECT_EQ(followed(typed(unary(U::Dereference, typed(unary(U::PostIncrement, name(p)), pointer)), integer)),
              "*p++");
    EXPECT_EQ(notFollowed(typed(unary(U::Dereference, typed(unary(U::PostIncrement, name(p)), pointer)), integer)),
              "p");
    EXPECT_EQ(followed(typed(unary(U::Dereference, typed(binary(name(p), B::Add, i()), pointer)), integer)),
              "*(p + 1)");
    EXPECT_EQ(followed(typed(binary(name(p), B::Subtract, i()), integer)), "p");
    EXPECT_EQ(followed(typed(subscript(std::make_unique<CastExpression>(pointer, name(p)), i()), integer)),
              "((int *) p)[1]");
    EXPECT_EQ(followed(typed(subscript(typed(subscript(name(pointers), i()), pointer), i()), integer)),
              "pointers[1][1]");
    EXPECT_EQ(notFollowed(typed(subscript(typed(subscript(name(pointers), i()), pointer), i()), integer)),
              "pointers[1]");
}

TEST_F(AccessTextTest, NamesOfTypes) {
    TypedefDeclaration address("address", pointer);
    TypedefDeclaration again("again", types.declared(address));
    VariableDeclaration q("q", types.declared(again));
    EXPECT_EQ(followed(typed(subscript(name(q), i()), integer)), "q[1]");
    EXPECT_EQ(notFollowed(typed(subscript(name(q), i()), integer)), "q");
}

TEST_F(AccessTextTest, BothEndsDecide) {
    const ExpressionBase& first = keep(typed(subscript(name(p), i()), integer));
    const ExpressionBase& second = keep(typed(unary(U::Dereference, name(p)), integer));
    const ExpressionBase& plain = keep(assign(name(p), i()));
    const AccessText both(first, second, DT_FLOW);
    EXPECT_EQ(both.source, "p[1]");
    EXPECT_EQ(both.target, "*p");
    const AccessText one(plain, second, DT_FLOW);
    EXPECT_EQ(one.source, "p");
    EXPECT_EQ(one.target, "p");
}

TEST_F(AccessTextTest, CalledSubroutinesFollowPointers) {
    SubroutineDeclaration f("f", nullptr);
    const ExpressionBase& element = keep(typed(subscript(name(p), i()), integer));
    const AccessText passed(element, keep(call(f, i(), typed(binary(name(p), B::Add, i()), pointer))), DT_ANTI);
    EXPECT_EQ(passed.source, "p[1]");
    EXPECT_EQ(passed.target, "p");
    const auto accessOf = [&](ExpressionPtr other) {
        return AccessText(element, keep(std::move(other)), DT_ANTI).source;
    };
    EXPECT_EQ(accessOf(call(f, typed(unary(U::AddressOf, name(p)), types.pointer(pointer)))), "p");
    EXPECT_EQ(accessOf(call(f, name(n))), "p");
    EXPECT_EQ(accessOf(call(name(p), i())), "p");
}

TEST_F(AccessTextTest, PointersThatChangeWhileTheyAreFollowed) {
    const auto next = [this] {
        return typed(unary(U::Dereference, typed(unary(U::PostIncrement, name(p)), pointer)), integer);
    };
    const ExpressionBase& element = keep(assign(typed(subscript(name(p), i()), integer), i()));
    const ExpressionBase& readNext = keep(assign(use(n), next()));
    // Of the two, only the element is written, and only the pointer changes at the other.
    EXPECT_EQ(AccessText(element, readNext, DT_FLOW).target, "*p++");
    EXPECT_EQ(AccessText(element, readNext, DT_ANTI).target, "p");
    EXPECT_EQ(AccessText(element, readNext, DT_ANTI).source, "p");
    EXPECT_EQ(AccessText(readNext, element, DT_FLOW).source, "p");
    EXPECT_EQ(AccessText(readNext, element, DT_ANTI).source, "*p++");
    EXPECT_EQ(AccessText(readNext, element, DT_OUTPUT).source, "p");
    EXPECT_EQ(AccessText(element, readNext, DT_OUTPUT).source, "p");
    EXPECT_EQ(AccessText(element, readNext, DT_INPUT).source, "p[1]");
    const ExpressionBase& writeNext = keep(assign(next(), i()));
    EXPECT_EQ(AccessText(writeNext, element, DT_FLOW).source, "*p++");
    EXPECT_EQ(AccessText(element, writeNext, DT_OUTPUT).target, "*p++");
}

TEST_F(AccessTextTest, FortranIsPrintedAsFortran) {
    ProgramUnit program;
    TranslationUnit& unit = addUnit(program, "a.f90", LANG_FORTRAN);
    ExpressionPtr reference = use(untyped);
    const ExpressionBase& occurrence = *reference;
    perform(define(unit, "s"), assign(subscript(std::move(reference), i(), use(n)), i()));
    EXPECT_EQ(AccessText(occurrence, occurrence, DT_FLOW).source, "u(1, n)");
}

TEST_F(AccessTextTest, ShortTexts) {
    EXPECT_EQ(printShort(*binary(use(n), B::Less, i())), "n < 1");
    EXPECT_EQ(printShort(OpaqueStatement("asm(\"\" /* none */\n  );")), "asm(\"\" );");
    EXPECT_EQ(printShort(*statement(i())), "");
    const std::string sixty(60, 'x');
    EXPECT_EQ(printShort(*opaque(sixty)), sixty);
    EXPECT_EQ(printShort(*opaque(sixty + 'x')), sixty + "...");
    std::string cyrillic;
    for (int count = 0; count < 60; ++count)
        cyrillic += "ж";
    EXPECT_EQ(printShort(*opaque(cyrillic)), cyrillic);
    EXPECT_EQ(printShort(*opaque(cyrillic + "ж")), cyrillic + "...");
}
