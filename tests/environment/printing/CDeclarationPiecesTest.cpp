// SPDX-License-Identifier: MIT
#include "environment/printing/CDeclarationPieces.h"

#include "environment/printing/CUnitPieces.h"
#include "environment/printing/OneLine.h"
#include "environment/tessel/InitializerListExpression.h"
#include "environment/tessel/OpaqueDeclaration.h"
#include "environment/tessel/ReturnStatement.h"
#include "environment/tessel/SourceFile.h"
#include "environment/tessel/TypedefDeclaration.h"
#include "tests/environment/printing/Names.h"

#include <gtest/gtest.h>

using namespace Kova;
using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

class CDeclarationPiecesTest : public testing::Test, protected Names {
protected:
    static std::string print(const TesselBase& node) {
        Backends::CUnitPieces language;
        return Backends::printOnOneLine(node, language);
    }
    std::unique_ptr<FieldDeclaration> field(const std::string& name, const Type* type, ExpressionPtr width = nullptr) {
        return make<FieldDeclaration>(name, type, std::move(width));
    }
    static std::unique_ptr<EnumeratorDeclaration> enumerator(const std::string& name, ExpressionPtr value = nullptr) {
        return make<EnumeratorDeclaration>(name, 0, std::move(value));
    }
    ExpressionPtr comma() { return binary(a(), B::Comma, b()); }
    /// A function that takes a parameter.
    const FunctionType* taking(const Type* parameter, const Type* result) {
        return types.function(result, {parameter});
    }
    /// A pointer to a function that takes a char and gives a pointer to an array of three ints.
    const Type* odd() { return types.pointer(taking(charType, types.pointer(arrayOf(intType, 3)))); }
    template <class Declaration>
    static std::unique_ptr<Declaration> with(const std::string& attributes, std::unique_ptr<Declaration> declaration) {
        declaration->setAttributes(attributes);
        return declaration;
    }
};

TEST_F(CDeclarationPiecesTest, NestsDeclaratorsWhereverATypeStands) {
    EXPECT_EQ(print(VariableDeclaration("v", odd())), "int (*(*v)(char))[3]");
    EXPECT_EQ(print(VariableDeclaration("", odd())), "int (*(*)(char))[3]");
    EXPECT_EQ(print(FieldDeclaration("m", odd())), "int (*(*m)(char))[3]");
    EXPECT_EQ(print(TypedefDeclaration("t", odd())), "typedef int (*(*t)(char))[3]");
    EXPECT_EQ(print(VariableDeclaration("v", arrayOf(odd(), 2))), "int (*(*v[2])(char))[3]");
    EXPECT_EQ(print(VariableDeclaration("v", types.pointer(arrayOf(odd(), 2)))), "int (*(*(*v)[2])(char))[3]");
    EXPECT_EQ(print(SubroutineDeclaration("f", taking(odd(), odd()))), "int (*(*f(int (*(*)(char))[3]))(char))[3]");
    SubroutineDeclaration named("f", taking(odd(), odd()));
    named.appendParameter(variable("p", odd()));
    EXPECT_EQ(print(named), "int (*(*f(int (*(*p)(char))[3]))(char))[3]");
}

TEST_F(CDeclarationPiecesTest, QualifiesPointersToFunctionsAndArrays) {
    const auto* function = taking(charType, intType);
    EXPECT_EQ(print(VariableDeclaration("v", types.pointer(function, Type::Const))), "int (*const v)(char)");
    EXPECT_EQ(print(VariableDeclaration("v", types.pointer(arrayOf(types.pointer(charType, Type::Const), 2)))),
              "char *const (*v)[2]");
    EXPECT_EQ(print(VariableDeclaration("v", types.pointer(types.pointer(function), Type::Volatile))),
              "int (**volatile v)(char)");
    const Type* constChar = types.basic("char", BasicType::Category::Character, 8, Type::Const);
    EXPECT_EQ(print(SubroutineDeclaration("f", taking(types.pointer(constChar), types.pointer(constChar)))),
              "const char *f(const char *)");
}

TEST_F(CDeclarationPiecesTest, SharesOneHead) {
    auto list = make<InitializerListExpression>();
    list->append(literal("1"));
    EXPECT_EQ(print(*declareHere(intVariable("a"), variable("b", arrayOf(types.pointer(intType), 3)),
                                 variable("c", types.pointer(taking(charType, intType))), variable("d", odd(), a()),
                                 variable("e", arrayOf(intType, 0), std::move(list)), intVariable("g", comma()))),
              "int a, *b[3], (*c)(char), (*(*d)(char))[3] = a, e[] = { 1 }, g = (a, b);");
    const Type* constInt = types.basic("int", BasicType::Category::SignedInteger, 32, Type::Const);
    EXPECT_EQ(print(*declareHere(variable("p", types.pointer(constInt)), variable("q", types.pointer(constInt, 1)),
                                 variable("r", types.pointer(intType, Type::Const)))),
              "const int *p, *const q; int *const r;");
    EXPECT_EQ(print(*declareHere(make<TypedefDeclaration>("t", intType),
                                 make<TypedefDeclaration>("u", types.pointer(intType)))),
              "typedef int t, *u;");
}

TEST_F(CDeclarationPiecesTest, WritesBitFields) {
    EXPECT_EQ(print(*field("x", intType, literal("3"))), "int x : 3");
    EXPECT_EQ(print(*field("", intType, literal("0"))), "int : 0");
    EXPECT_EQ(print(*field("x", intType, conditional(a(), b(), c()))), "int x : a ? b : c");
    EXPECT_EQ(print(*field("x", intType, comma())), "int x : (a, b)");
    EXPECT_EQ(print(*field("x", intType, assign(a(), b()))), "int x : (a = b)");
    ProgramUnit program;
    const auto fields = emptyRecord("s");
    for (auto& [name, width] : std::vector<std::pair<std::string, std::string>>{{"x", "3"}, {"", "0"}, {"y", "2"}}) {
        auto member = field(name, intType, literal(width));
        member->setSourceRange({program.obtainSourceFile("a.c"), 1, 5, 1, 20});
        fields->append(std::move(member));
    }
    fields->append(field("p", types.pointer(intType)));
    EXPECT_EQ(print(*fields), "struct s { int x : 3, : 0, y : 2; int *p; }");
}

TEST_F(CDeclarationPiecesTest, WritesMembersWithoutNames) {
    const auto outer = emptyRecord("s");
    auto inner = emptyRecord("", RecordDeclaration::Kind::Union);
    inner->append(field("i", intType));
    auto innermost = record("");
    const Type* innermostType = types.declared(*innermost);
    inner->append(std::move(innermost));
    inner->append(field("", innermostType));
    const Type* innerType = types.declared(*inner);
    outer->append(std::move(inner));
    outer->append(field("", innerType));
    outer->append(field("n", intType));
    EXPECT_EQ(print(*outer), "struct s { union { int i; struct { int x; }; }; int n; }");
}

TEST_F(CDeclarationPiecesTest, WritesStructuresAndUnions) {
    EXPECT_EQ(print(*emptyRecord("s")), "struct s { }");
    EXPECT_EQ(print(*emptyRecord("", RecordDeclaration::Kind::Union)), "union { }");
    EXPECT_EQ(print(RecordDeclaration("s", RecordDeclaration::Kind::Struct)), "struct s");
    auto node = emptyRecord("s");
    const Type* type = types.declared(*node);
    node->append(field("next", types.pointer(type)));
    node->append(make<OpaqueDeclaration>("_Static_assert(1, \"\");"));
    node->append(field("tail", arrayOf(charType, 0)));
    EXPECT_EQ(print(*node), "struct s { struct s *next; _Static_assert(1, \"\"); char tail[]; }");
    auto unnamed = record("");
    const Type* constType = types.declared(*unnamed, Type::Const);
    EXPECT_EQ(print(VariableDeclaration("v", types.pointer(constType))), "const struct { int x; } *v");
}

TEST_F(CDeclarationPiecesTest, WritesEnumerations) {
    EXPECT_EQ(print(EnumDeclaration("e")), "enum e");
    EXPECT_EQ(print(*emptyEnum("e")), "enum e { }");
    auto node = emptyEnum("");
    node->append(enumerator("A"));
    node->append(enumerator("B", conditional(a(), b(), c())));
    node->append(enumerator("C", comma()));
    node->append(with("__attribute__((deprecated))", enumerator("D")));
    node->append(with("__attribute__((deprecated))", enumerator("E", literal("4"))));
    EXPECT_EQ(print(*node), "enum { A, B = a ? b : c, C = (a, b), D __attribute__((deprecated)), "
                            "E __attribute__((deprecated)) = 4 }");
}

TEST_F(CDeclarationPiecesTest, WritesAttributesWhereCTakesThem) {
    const std::string attributes = "__attribute__((x))";
    EXPECT_EQ(print(*with(attributes, intVariable("v", literal("1")))), "__attribute__((x)) int v = 1");
    EXPECT_EQ(print(*with(attributes, field("m", intType, literal("3")))), "__attribute__((x)) int m : 3");
    EXPECT_EQ(print(*with(attributes, make<TypedefDeclaration>("t", odd()))),
              "__attribute__((x)) typedef int (*(*t)(char))[3]");
    EXPECT_EQ(print(*with(attributes, record("s"))), "struct __attribute__((x)) s { int x; }");
    EXPECT_EQ(print(*with(attributes, emptyRecord(""))), "struct __attribute__((x)) { }");
    EXPECT_EQ(print(*with(attributes, emptyEnum("e"))), "enum __attribute__((x)) e { }");
    EXPECT_EQ(print(*with(attributes, make<EnumDeclaration>("e"))), "enum __attribute__((x)) e");
    auto function = with(attributes, make<SubroutineDeclaration>("f", taking(charType, intType)));
    function->setStorageClass(StorageClass::Static);
    function->setInline(true);
    EXPECT_EQ(print(*function), "__attribute__((x)) static inline int f(char)");
}

TEST_F(CDeclarationPiecesTest, WritesTheAssemblersNameBehindEachDeclarator) {
    EXPECT_EQ(print(*with("asm(\"w\")", variable("v", arrayOf(types.pointer(intType), 2), a()))),
              "int *v[2] asm(\"w\") = a");
    EXPECT_EQ(print(*declareHere(with("asm(\"a\")", intVariable("v")), with("asm(\"b\")", intVariable("w")))),
              "int v asm(\"a\"), w asm(\"b\");");
    EXPECT_EQ(print(*with("asm(\"a\") __attribute__((x))", make<SubroutineDeclaration>("f", taking(charType, odd())))),
              "__attribute__((x)) int (*(*f(char))(char))[3] asm(\"a\")");
}

TEST_F(CDeclarationPiecesTest, WritesSubroutines) {
    const auto defined = [this](const Type* type) {
        SubroutineDeclaration subroutine("f", type);
        subroutine.setBody(block());
        return print(subroutine);
    };
    EXPECT_EQ(defined(types.function(intType, {})), "int f(void) { }");
    EXPECT_EQ(defined(types.function(intType, {}, FunctionType::Parameters::Unspecified)), "int f() { }");
    EXPECT_EQ(defined(types.function(types.pointer(arrayOf(intType, 3)), {})), "int (*f(void))[3] { }");
    EXPECT_EQ(defined(nullptr), "f { }");
    SubroutineDeclaration variadic("f", types.function(intType, {charType}, FunctionType::Parameters::Variadic));
    variadic.appendParameter(variable("c", charType));
    EXPECT_EQ(print(variadic), "int f(char c, ...)");
}

TEST_F(CDeclarationPiecesTest, WritesOutTheTypeOfADefinitionOnly) {
    const TypedefDeclaration alias("handler", taking(charType, intType));
    const TypedefDeclaration another("again", types.declared(alias));
    SubroutineDeclaration subroutine("f", types.declared(another));
    EXPECT_EQ(print(subroutine), "again f");
    subroutine.appendParameter(variable("c", charType));
    subroutine.setBody(block());
    EXPECT_EQ(print(subroutine), "int f(char c) { }");
    // No function at all, so nothing to write out.
    const RecordDeclaration node("s", RecordDeclaration::Kind::Struct);
    subroutine.setType(types.declared(node));
    EXPECT_EQ(print(subroutine), "struct s f { }");
}

TEST_F(CDeclarationPiecesTest, WritesOldStyleParametersBetweenHeadAndBody) {
    SubroutineDeclaration old("f", types.function(odd(), {}, FunctionType::Parameters::Unspecified));
    old.appendParameter(variable("c", charType));
    old.appendParameter(variable("p", odd()));
    EXPECT_EQ(print(old), "int (*(*f(char c, int (*(*p)(char))[3]))(char))[3]");
    old.setBody(block(make<ReturnStatement>(nullptr)));
    EXPECT_EQ(print(old), "int (*(*f(c, p))(char))[3] char c; int (*(*p)(char))[3]; { return; }");
}

TEST_F(CDeclarationPiecesTest, KeepsAMacroFromTakingASubroutinesName) {
    subroutineF.setNamedAsMacro(true);
    subroutineF.setType(types.function(types.pointer(arrayOf(intType, 3)), {}));
    EXPECT_EQ(print(subroutineF), "int (*(f)(void))[3]");
    subroutineF.setType(taking(charType, intType));
    EXPECT_EQ(print(subroutineF), "int (f)(char)");
    EXPECT_EQ(print(*call(f(), a())), "(f)(a)");
    EXPECT_EQ(print(*assign(b(), f())), "b = f");
}

} // namespace
