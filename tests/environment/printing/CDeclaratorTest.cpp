// SPDX-License-Identifier: MIT
#include "environment/printing/CDeclarator.h"

#include "environment/printing/CStatementPieces.h"
#include "environment/printing/OneLine.h"
#include "environment/tessel/CastExpression.h"
#include "environment/tessel/EnumDeclaration.h"
#include "environment/tessel/RecordDeclaration.h"
#include "environment/tessel/TypedefDeclaration.h"
#include "tests/environment/printing/Names.h"

#include <gtest/gtest.h>

using namespace Kova;
using namespace Kova::Tessel;
using namespace Kova::Tests;

namespace {

class CDeclaratorTest : public testing::Test, protected Names {
protected:
    static std::string print(const TesselBase& node) {
        Backends::CStatementPieces language;
        return Backends::printOnOneLine(node, language);
    }
    static std::string declared(const Type* type) { return print(VariableDeclaration("name", type)); }
    static std::string abstract(const Type* type) { return print(VariableDeclaration("", type)); }

    const FunctionType* function(const Type* result, std::vector<const Type*> parameters) {
        return types.function(result, std::move(parameters));
    }
};

TEST_F(CDeclaratorTest, WritesSpecifiers) {
    EXPECT_EQ(declared(intType), "int name");
    EXPECT_EQ(abstract(intType), "int");
    EXPECT_EQ(
        declared(types.basic("unsigned long", BasicType::Category::UnsignedInteger, 64, Type::Const | Type::Volatile)),
        "const volatile unsigned long name");
    EXPECT_EQ(declared(types.basic("int", BasicType::Category::SignedInteger, 32, Type::Atomic)), "_Atomic int name");
    EXPECT_EQ(declared(types.opaque("typeof (x)", Type::NoQualifier)), "typeof (x) name");
    EXPECT_EQ(declared(nullptr), "name");
}

TEST_F(CDeclaratorTest, NamesDeclaredTypes) {
    const RecordDeclaration node("node", RecordDeclaration::Kind::Struct);
    const RecordDeclaration value("value", RecordDeclaration::Kind::Union);
    const EnumDeclaration color("color");
    const TypedefDeclaration alias("size_t", intType);
    EXPECT_EQ(declared(types.declared(node, Type::Const)), "const struct node name");
    EXPECT_EQ(declared(types.pointer(types.declared(value))), "union value *name");
    EXPECT_EQ(declared(types.declared(color)), "enum color name");
    EXPECT_EQ(declared(types.declared(alias)), "size_t name");
}

TEST_F(CDeclaratorTest, WritesTheFirstBracketsAsTheSourceDoes) {
    const auto bracketed = [](const Type* type, const std::string& words, bool isLeftOut = false) {
        VariableDeclaration variable("name", type);
        variable.setBracketWords(words);
        variable.setLengthLeftOut(isLeftOut);
        return print(variable);
    };
    const ExpressionPtr length = a();
    const Type* row = arrayOf(intType, 3);
    EXPECT_EQ(bracketed(row, "static"), "int name[static 3]");
    EXPECT_EQ(bracketed(arrayOf(intType, *length), "static const"), "int name[static const a]");
    EXPECT_EQ(bracketed(arrayOf(intType, 0), "restrict"), "int name[restrict]");
    EXPECT_EQ(bracketed(arrayOf(intType, 0), "*"), "int name[*]");
    EXPECT_EQ(bracketed(row, "", true), "int name[]");
    EXPECT_EQ(bracketed(arrayOf(row, 2), "const"), "int name[const 2][3]");
    EXPECT_EQ(bracketed(arrayOf(row, 2), "", true), "int name[][3]");
    // The brackets of what a type is made from are not those of the declared.
    EXPECT_EQ(bracketed(types.pointer(row), "static", true), "int (*name)[3]");
    EXPECT_EQ(bracketed(arrayOf(types.pointer(row), 2), "", true), "int (*name[])[3]");
    EXPECT_EQ(bracketed(intType, "static", true), "int name");
}

TEST_F(CDeclaratorTest, WritesPointers) {
    EXPECT_EQ(declared(types.pointer(intType)), "int *name");
    EXPECT_EQ(abstract(types.pointer(intType)), "int *");
    EXPECT_EQ(declared(types.pointer(types.pointer(intType))), "int **name");
    EXPECT_EQ(declared(types.pointer(types.pointer(charType, Type::Const))), "char *const *name");
    EXPECT_EQ(declared(types.pointer(charType, Type::Const)), "char *const name");
    EXPECT_EQ(abstract(types.pointer(charType, Type::Const)), "char *const");
    EXPECT_EQ(declared(types.pointer(charType, Type::Restrict)), "char *restrict name");
    EXPECT_EQ(declared(types.pointer(charType, Type::Const | Type::Restrict)), "char *const restrict name");
}

TEST_F(CDeclaratorTest, WritesArrays) {
    EXPECT_EQ(declared(arrayOf(intType, 10)), "int name[10]");
    EXPECT_EQ(abstract(arrayOf(intType, 10)), "int[10]");
    EXPECT_EQ(declared(arrayOf(arrayOf(intType, 3), 2)), "int name[2][3]");
    EXPECT_EQ(declared(arrayOf(types.pointer(intType), 4)), "int *name[4]");
    EXPECT_EQ(declared(types.pointer(arrayOf(intType, 10))), "int (*name)[10]");
    EXPECT_EQ(abstract(types.pointer(arrayOf(intType, 10))), "int (*)[10]");
    EXPECT_EQ(declared(arrayOf(types.pointer(arrayOf(intType, 3)), 2)), "int (*name[2])[3]");
    EXPECT_EQ(abstract(arrayOf(types.pointer(intType, Type::Const), 3)), "int *const[3]");
}

TEST_F(CDeclaratorTest, LeavesLengthsOut) {
    EXPECT_EQ(declared(arrayOf(intType, 0)), "int name[]");
    EXPECT_EQ(declared(types.pointer(arrayOf(intType, 0))), "int (*name)[]");
    // An array's element cannot be of unknown length: it is some length that the declaration does not give.
    EXPECT_EQ(declared(arrayOf(arrayOf(intType, 0), 0)), "int name[][*]");
}

TEST_F(CDeclaratorTest, QualifiesElementsOfAQualifiedArray) {
    ArrayDimension dimension;
    dimension.kind = ArrayDimension::Extent::Constant;
    dimension.extent = 2;
    EXPECT_EQ(declared(types.array(intType, {dimension}, Type::Const)), "const int name[2]");
    EXPECT_EQ(declared(types.array(types.pointer(intType), {dimension}, Type::Const)), "int *const name[2]");
    EXPECT_EQ(declared(types.pointer(types.array(intType, {dimension}, Type::Const))), "const int (*name)[2]");
}

TEST_F(CDeclaratorTest, PrintsLengthsFromTheTree) {
    const ExpressionPtr length = binary(a(), BinaryOperator::Add, b());
    EXPECT_EQ(declared(arrayOf(intType, *length)), "int name[a + b]");
    const ExpressionPtr comma = binary(a(), BinaryOperator::Comma, b());
    EXPECT_EQ(declared(types.pointer(arrayOf(intType, *comma))), "int (*name)[(a, b)]");
}

TEST_F(CDeclaratorTest, WritesFunctions) {
    EXPECT_EQ(declared(function(intType, {})), "int name(void)");
    EXPECT_EQ(abstract(function(intType, {})), "int (void)");
    EXPECT_EQ(declared(function(types.pointer(charType), {intType, types.pointer(charType)})),
              "char *name(int, char *)");
    EXPECT_EQ(declared(types.pointer(function(intType, {charType}))), "int (*name)(char)");
    EXPECT_EQ(abstract(types.pointer(function(intType, {charType}))), "int (*)(char)");
    EXPECT_EQ(declared(types.function(intType, {charType}, FunctionType::Parameters::Variadic)), "int name(char, ...)");
    EXPECT_EQ(declared(types.function(intType, {}, FunctionType::Parameters::Variadic)), "int name(...)");
    EXPECT_EQ(declared(types.function(intType, {}, FunctionType::Parameters::Unspecified)), "int name()");
}

TEST_F(CDeclaratorTest, NestsDerivations) {
    // A function that takes an int and gives a pointer to an array of 3 pointers to functions.
    const Type* callback = types.pointer(function(intType, {}));
    EXPECT_EQ(declared(function(types.pointer(arrayOf(callback, 3)), {intType})), "int (*(*name(int))[3])(void)");
    // signal() of the C library.
    const Type* handler = types.pointer(function(types.basic("void", BasicType::Category::Void, 0), {intType}));
    EXPECT_EQ(declared(function(handler, {intType, handler})), "void (*name(int, void (*)(int)))(int)");
    EXPECT_EQ(abstract(types.pointer(types.pointer(function(intType, {})))), "int (**)(void)");
}

TEST_F(CDeclaratorTest, DefinesTypesWithoutNamesWhereTheyAreUsed) {
    RecordDeclaration point("", RecordDeclaration::Kind::Struct);
    point.setComplete(true);
    point.append(std::make_unique<FieldDeclaration>("x", intType));
    point.append(std::make_unique<FieldDeclaration>("bits", intType, literal("3")));
    EXPECT_EQ(declared(types.pointer(types.declared(point))), "struct { int x; int bits : 3; } *name");
    point.append(std::make_unique<FieldDeclaration>("", intType, literal("0")));
    EXPECT_EQ(declared(types.declared(point)), "struct { int x; int bits : 3; int : 0; } name");
    EnumDeclaration color("");
    color.setComplete(true);
    color.append(std::make_unique<EnumeratorDeclaration>("RED", 0, nullptr));
    color.append(std::make_unique<EnumeratorDeclaration>("BLUE", 4, literal("4")));
    EXPECT_EQ(declared(types.declared(color)), "enum { RED, BLUE = 4 } name");
}

TEST_F(CDeclaratorTest, TakesTypesOfAnyDepth) {
    const Type* type = intType;
    for (int i = 0; i < 100000; ++i)
        type = types.pointer(type);
    EXPECT_EQ(declared(type), "int " + std::string(100000, '*') + "name");
    type = intType;
    for (int i = 0; i < 100000; ++i)
        type = types.pointer(types.function(intType, {type}));
    std::string expected;
    for (int i = 0; i < 100000; ++i)
        expected += "int (*)(";
    EXPECT_EQ(abstract(type), expected + "int" + std::string(100000, ')'));
}

} // namespace
