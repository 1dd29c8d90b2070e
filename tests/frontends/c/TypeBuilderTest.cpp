// SPDX-License-Identifier: MIT
#include "environment/tessel/ExpressionStatement.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "tests/frontends/c/Reading.h"
#include "tests/frontends/c/TreeText.h"

#include <gtest/gtest.h>

namespace Kova::Frontends {

using namespace Test;

namespace {

/// The type of the unit's last declaration, a variable.
std::string typeOf(const std::string& text) {
    const Reading reading(text);
    const std::size_t count = reading.program.getChildCount() != 0 ? reading.unit().getChildCount() : 0;
    const auto* variable =
        count != 0 ? dynamic_cast<const Tessel::VariableDeclaration*>(reading.unit().getChild(count - 1)) : nullptr;
    return variable != nullptr ? typeText(variable->getType()) : reading.messages();
}

} // namespace

TEST(TypeBuilderTest, basicTypes) {
    EXPECT_EQ(typeOf("unsigned long long int a;"), "unsigned long long");
    EXPECT_EQ(typeOf("_Bool a;"), "_Bool");
    EXPECT_EQ(typeOf("signed char a;"), "signed char");
    EXPECT_EQ(typeOf("long double a;"), "long double");
    EXPECT_EQ(typeOf("_Complex float a;"), "_Complex float");
    EXPECT_EQ(typeOf("__int128 a;"), "__int128");
    EXPECT_EQ(typeOf("unsigned _BitInt(7) a;"), "unsigned _BitInt(7)");
}

TEST(TypeBuilderTest, theWordForTruthIsThatOfTheFilesOwnHeaders) {
    EXPECT_EQ(typeOf("#include <stdbool.h>\nbool a;"), "bool");
    EXPECT_EQ(typeOf("#include <stdbool.h>\n_Bool a;"), "bool");
    EXPECT_EQ(typeOf("#define bool _Bool\nbool a;"), "_Bool");
    EXPECT_EQ(bodyOf("__asm__(\"\" : : \"r\"((bool) N));", "#define bool _Bool\n#define N 1\n"),
              "opaque `__asm__ (\"\" :  : \"r\" ((_Bool)1));` (cast _Bool 1)\n");
}

TEST(TypeBuilderTest, categoriesAndSizes) {
    const Reading reading("char c; unsigned short u; double d; _Bool b; _Complex double z; void* v;");
    const auto basic = [&reading](std::size_t index) -> const Tessel::BasicType& {
        const auto& variable = static_cast<const Tessel::VariableDeclaration&>(*reading.unit().getChild(index));
        return static_cast<const Tessel::BasicType&>(*variable.getType());
    };
    using Category = Tessel::BasicType::Category;
    EXPECT_EQ(basic(0).getCategory(), Category::Character);
    EXPECT_EQ(basic(1).getCategory(), Category::UnsignedInteger);
    EXPECT_EQ(basic(1).getBits(), 16u);
    EXPECT_EQ(basic(2).getCategory(), Category::Floating);
    EXPECT_EQ(basic(2).getBits(), 64u);
    EXPECT_EQ(basic(3).getCategory(), Category::Boolean);
    EXPECT_EQ(basic(4).getCategory(), Category::Complex);
    EXPECT_EQ(basic(4).getBits(), 128u);
}

TEST(TypeBuilderTest, pointersArraysAndQualifiers) {
    EXPECT_EQ(typeOf("const char* const* volatile a;"), "volatile ptr(const ptr(const char))");
    EXPECT_EQ(typeOf("int* restrict a;"), "restrict ptr(int)");
    EXPECT_EQ(typeOf("_Atomic int a;"), "atomic int");
    EXPECT_EQ(typeOf("_Atomic(const char*) a;"), "atomic ptr(const char)");
    EXPECT_EQ(typeOf("double a[2][3];"), "array[2](array[3](double))");
    EXPECT_EQ(typeOf("extern int a[];"), "array[](int)");
    EXPECT_EQ(typeOf("int (*a)[4];"), "ptr(array[4](int))");
}

TEST(TypeBuilderTest, functions) {
    EXPECT_EQ(typeOf("int (*a)(const char*, ...);"), "ptr(fn(ptr(const char),...)->int)");
    EXPECT_EQ(typeOf("void (*(*a)(int))(void);"), "ptr(fn(int)->ptr(fn()->void))");
    EXPECT_EQ(typeOf("int (*a)();"), "ptr(fn(?)->int)");
}

TEST(TypeBuilderTest, namesStayNames) {
    EXPECT_EQ(typeOf("typedef unsigned word; const word a;"), "const word");
    EXPECT_EQ(typeOf("struct s { int x; } *a;"), "ptr(struct s)");
    EXPECT_EQ(typeOf("union { int x; } a;"), "union <unnamed>");
    EXPECT_EQ(typeOf("enum e { x } a;"), "enum e");
    EXPECT_EQ(typeOf("int b; __typeof__(b) a;"), "int");
    EXPECT_EQ(typeOf("typedef int v4 __attribute__((vector_size(16))); v4 a;"), "v4");
}

TEST(TypeBuilderTest, typesWithoutANameAreNotDeclaredAgain) {
    EXPECT_EQ(typeOf("struct { int x; } b; __typeof__(b) a;"), "`__typeof__(b)`");
    EXPECT_EQ(typeOf("struct { int x; } b; const __typeof__((&b)) a[2];"), "array[2](const `__typeof__(&b)`)");
    EXPECT_EQ(typeOf("struct { int x; } b[2]; __typeof__(b) *a;"), "ptr(`__typeof__(b)`)");
    EXPECT_EQ(typeOf("typedef struct { int x; } t; t b; __typeof__(b) a;"), "t");
    EXPECT_EQ(bodyOf("__auto_type c = b; const __auto_type d = &b; __auto_type e = 1; __auto_type g = &n;",
                     "struct { int x; } b; struct named { int x; } n;"),
              "declare\n"
              "  variable c `__auto_type` = b\n"
              "declare\n"
              "  variable d const `__auto_type` = (& b)\n"
              "declare\n"
              "  variable e int = 1\n"
              "declare\n"
              "  variable g ptr(struct named) = (& n)\n");
}

TEST(TypeBuilderTest, rareTypesKeepTheirText) {
    EXPECT_EQ(typeOf("__attribute__((vector_size(16))) int a;"),
              "`__attribute__((__vector_size__(4 * sizeof(int)))) int`");
}

TEST(TypeBuilderTest, equalTypesAreOneObjectAcrossFiles) {
    ReadFiles files;
    ASSERT_EQ(files.read("a.c", "int* a[3];"), CFrontend::Result::Complete);
    ASSERT_EQ(files.read("b.c", "int* b[3];"), CFrontend::Result::Complete);
    const auto type = [&files](std::size_t unit) {
        return static_cast<const Tessel::VariableDeclaration&>(*files.program.getTranslationUnit(unit)->getChild(0))
            .getType();
    };
    EXPECT_EQ(type(0), type(1));
}

TEST(TypeBuilderTest, expressionsHaveTheTypesOfC) {
    const Reading reading("char c; float f; void g(void) { c + 1; f * 2; \"ab\"; &c; c < f; }");
    const auto& body = *static_cast<const Tessel::SubroutineDeclaration&>(*reading.unit().getChild(2)).getBody();
    const char* const expected[] = {"int", "float", "array[3](char)", "ptr(char)", "int"};
    ASSERT_EQ(body.getChildCount(), 5u);
    for (std::size_t i = 0; i < 5; ++i) {
        const auto& statement = static_cast<const Tessel::ExpressionStatement&>(*body.getStatement(i));
        EXPECT_EQ(typeText(statement.getExpression()->getType()), expected[i]);
    }
}

TEST(TypeBuilderTest, boundsBelongToTheDeclarationThatNamesThem) {
    EXPECT_EQ(Reading("void f(int n, double a[n][n + 1]) { int b[n * 2]; b[0] = (int)a[1][2]; }").tree(),
              "function f fn(int,ptr(array[(+ n 1)](double)))->void\n"
              "  parameter n int\n"
              "  parameter a array[n](array[(+ n 1)](double))\n"
              "block\n"
              "  declare\n"
              "    variable b array[(* n 2)](int)\n"
              "  (= ([] b 0) (cast int ([] ([] a 1) 2)))\n");
    const Reading reading("void f(int n, double a[n][n + 1]);");
    const auto& function = static_cast<const Tessel::SubroutineDeclaration&>(*reading.unit().getChild(0));
    EXPECT_EQ(function.getParameter(0)->getChildCount(), 1u);
    EXPECT_EQ(function.getParameter(1)->getChildCount(), 3u);
    EXPECT_EQ(treeText(*function.getParameter(1)->getChild(2)), "(+ n 1)");
}

TEST(TypeBuilderTest, boundsInTypedefsAndInPointersToFunctions) {
    EXPECT_EQ(Reading("void f(int n) { typedef int row[n]; row r; }").body(), "declare\n"
                                                                              "  typedef row array[n](int)\n"
                                                                              "declare\n"
                                                                              "  variable r row\n");
    EXPECT_EQ(typeOf("void (*a)(int n, int (*b)[n]);"), "ptr(fn(int,ptr(array[?](int)))->void)");
}

} // namespace Kova::Frontends
