// SPDX-License-Identifier: MIT
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/TranslationUnit.h"
#include "environment/tessel/VariableDeclaration.h"
#include "environment/tessel/service/Preorder.h"
#include "tests/frontends/c/Reading.h"

#include <gtest/gtest.h>

namespace Kova::Test {

namespace {

std::string treeOf(const std::string& text) {
    const Reading reading(text);
    return reading.result == Frontends::CFrontend::Result::Complete ? reading.tree() : reading.messages();
}

} // namespace

TEST(DeclarationBuilderTest, variables) {
    EXPECT_EQ(
        treeOf(
            "int i, *j = &i; static double d = 1.0; extern char c; _Thread_local int t; static _Thread_local int u;"),
        "variable i int\n"
        "variable j ptr(int) = (& i)\n"
        "static variable d double = 1.0\n"
        "extern variable c char\n"
        "thread variable t int\n"
        "static thread variable u int\n");
    EXPECT_EQ(treeOf("void f(register int a) { static int s = 1; auto int b; extern int e; register int r; }"),
              "function f fn(int)->void\n"
              "  register parameter a int\n"
              "block\n"
              "  declare\n"
              "    static variable s int = 1\n"
              "  declare\n"
              "    auto variable b int\n"
              "  declare\n"
              "    extern variable e int\n"
              "  declare\n"
              "    register variable r int\n");
}

TEST(DeclarationBuilderTest, bracketsAreAsTheSourceWritesThem) {
    EXPECT_EQ(
        treeOf(
            "int a[] = { 1, 2 }, b[2] = { 1, 2 }; char c[] = \"ab\"; int d[][3] = { { 1 } }; extern int e[]; int f[];\n"
            "extern int g[]; int g[4]; typedef int open[]; open h = { 1 };"),
        "variable a array[2](int) [] = (init 1 2)\n"
        "variable b array[2](int) = (init 1 2)\n"
        "variable c array[3](char) [] = \"ab\"\n"
        "variable d array[1](array[3](int)) [] = (init (init 1))\n"
        "extern variable e array[](int)\n"
        "variable f array[1](int) []\n"
        "extern variable g array[](int)\n"
        "variable g array[4](int)\n"
        "typedef open array[](int)\n"
        "variable h array[1](int) = (init 1)\n");
    EXPECT_EQ(
        treeOf(
            "void f(int n, int a[static 5], int b[const 5], int c[*], int d[restrict static n], int e[], int g[n][n],\n"
            "int h[static volatile const 2][3], int i[const], int j[n][*]);"),
        "function f fn(int,ptr(int),const ptr(int),ptr(int),restrict ptr(int),ptr(int),ptr(array[n](int)),"
        "const volatile ptr(array[3](int)),const ptr(int),ptr(array[](int)))->void\n"
        "  parameter n int\n"
        "  parameter a array[5](int) [static]\n"
        "  parameter b array[5](int) [const]\n"
        "  parameter c array[](int) [*]\n"
        "  parameter d array[n](int) [static restrict]\n"
        "  parameter e array[](int)\n"
        "  parameter g array[n](array[n](int))\n"
        "  parameter h array[2](array[3](int)) [static const volatile]\n"
        "  parameter i array[](int) [const]\n"
        "  parameter j array[n](array[](int))\n");
}

TEST(DeclarationBuilderTest, functions) {
    EXPECT_EQ(treeOf("static inline int f(int a, char* b) { return a; } extern void g(void); int h(int, ...);"),
              "static inline function f fn(int,ptr(char))->int\n"
              "  parameter a int\n"
              "  parameter b ptr(char)\n"
              "block\n"
              "  return a\n"
              "extern function g fn()->void\n"
              "function h fn(int,...)->int\n"
              "  parameter  int\n");
    EXPECT_EQ(treeOf("_Noreturn void f(void); void g(void) __attribute__((noreturn));"),
              "noreturn function f fn()->void\n"
              "noreturn function g fn()->void __attribute__((noreturn))\n");
}

TEST(DeclarationBuilderTest, aFunctionStaysStatic) {
    EXPECT_EQ(treeOf("static int f(void); int f(void) { return 1; }"), "static function f fn()->int\n"
                                                                       "static function f fn()->int\n"
                                                                       "block\n"
                                                                       "  return 1\n");
}

TEST(DeclarationBuilderTest, oldStyleDefinitions) {
    EXPECT_EQ(Reading("int f(a, b) char* b; { return a; }", {{}, {}, "gnu89"}).tree(), "function f fn(?)->int\n"
                                                                                       "  parameter a int\n"
                                                                                       "  parameter b ptr(char)\n"
                                                                                       "block\n"
                                                                                       "  return a\n");
}

TEST(DeclarationBuilderTest, structuresAndUnions) {
    EXPECT_EQ(
        treeOf("struct s { int a, b : 3; unsigned : 2; union { float f; struct t { char c; } t; }; struct s* next; };"),
        "struct s\n"
        "  field a int\n"
        "  field b int : 3\n"
        "  field  unsigned int : 2\n"
        "  union \n"
        "    field f float\n"
        "    struct t\n"
        "      field c char\n"
        "    field t struct t\n"
        "  field  union <unnamed>\n"
        "  field next ptr(struct s)\n");
    EXPECT_EQ(treeOf("struct s; struct s { int a; }; struct s x;"), "struct s (mention)\n"
                                                                    "struct s\n"
                                                                    "  field a int\n"
                                                                    "variable x struct s\n");
    EXPECT_EQ(treeOf("typedef struct { int a[]; } flexible; typedef union u word;"),
              "struct \n"
              "  field a array[](int)\n"
              "typedef flexible struct <unnamed>\n"
              "union u (mention)\n"
              "typedef word union u\n");
}

TEST(DeclarationBuilderTest, enumerations) {
    EXPECT_EQ(treeOf("enum e { a, b = 4 + 1, c, d = -1 }; enum { only = c };"), "enum e\n"
                                                                                "  enumerator a 0\n"
                                                                                "  enumerator b 5 = (+ 4 1)\n"
                                                                                "  enumerator c 6\n"
                                                                                "  enumerator d -1 = (-_ 1)\n"
                                                                                "enum \n"
                                                                                "  enumerator only 6 = #c\n");
}

TEST(DeclarationBuilderTest, attributesAreThoseThatTheSourceWrites) {
    EXPECT_EQ(treeOf("struct __attribute__((packed)) s { int a __attribute__((aligned(8))); };\n"
                     "int x __attribute__((unused)) = 1;\n"
                     "int printf(const char*, ...);"),
              "struct s __attribute__((packed))\n"
              "  field a int __attribute__((aligned(8)))\n"
              "variable x int = 1 __attribute__((unused))\n"
              "function printf fn(ptr(const char),...)->int\n"
              "  parameter  ptr(const char)\n");
}

TEST(DeclarationBuilderTest, constantsOfAHeaderNeedNotBeUsed) {
    const SourceFolder folder;
    folder.write("own.h", "static const int a = 1, b = 2;\nstatic const char *const c = \"c\";\n"
                          "static const int d[] __attribute__((unused)) = { 1 };\nstatic int e;\nconst int f = 3;\n");
    const std::string path =
        folder.write("a.c", "#include \"own.h\"\nstatic const int g = 4;\nint h(void) { return b; }\n");
    Tessel::ProgramUnit program;
    ASSERT_EQ(Frontends::CFrontend({}).read(path, program), Frontends::CFrontend::Result::Complete);
    std::string unused;
    for (std::size_t i = 0; i < 7; ++i)
        if (const Tessel::DeclarationBase& each = *program.getTranslationUnit(0)->getDeclaration(i);
            !each.getAttributes().empty())
            unused += each.getName() + each.getAttributes() + '\n';
    EXPECT_EQ(unused, "a__attribute__((unused))\nc__attribute__((unused))\nd__attribute__((unused))\n");
}

TEST(DeclarationBuilderTest, rareDeclarationsKeepTheirText) {
    EXPECT_EQ(treeOf("_Static_assert(sizeof(int) == 4, \"int\");\nasm(\"nop\");\n;"),
              "opaque `_Static_assert(sizeof(int) == 4, \"int\");`\n"
              "opaque `asm(\"nop\");`\n");
}

TEST(DeclarationBuilderTest, declarationsInsideFunctions) {
    EXPECT_EQ(
        treeOf("void f(void) { struct p { int a; } q; enum { one = 1 }; typedef int num; int g(num); q.a = g(one); }"),
        "function f fn()->void\n"
        "block\n"
        "  declare\n"
        "    struct p\n"
        "      field a int\n"
        "    variable q struct p\n"
        "  declare\n"
        "    enum \n"
        "      enumerator one 1 = 1\n"
        "  declare\n"
        "    typedef num int\n"
        "  declare\n"
        "    function g fn(num)->int\n"
        "      parameter  num\n"
        "  (= (. q a) (call @g #one))\n");
}

TEST(DeclarationBuilderTest, functionsThatAreNamedAsMacrosOfSystemHeaders) {
    const Reading reading("#include <ctype.h>\n#define own(x) x\n#undef isdigit\nint (isalpha)(int c);\n"
                          "int isdigit(int c);\nint (own)(int c);\nint plain(int c);\n");
    ASSERT_EQ(reading.result, Frontends::CFrontend::Result::Complete);
    std::string named;
    for (std::size_t i = 0; i < reading.unit().getChildCount(); ++i) {
        const auto* function = dynamic_cast<const Tessel::SubroutineDeclaration*>(reading.unit().getChild(i));
        ASSERT_NE(function, nullptr);
        named += function->isNamedAsMacro() ? function->getName() + ' ' : "";
    }
    EXPECT_EQ(named, "isalpha ");
}

TEST(DeclarationBuilderTest, parametersThatNobodyUsesWhereCompilersDoNotLook) {
    const Reading reading("#include \"own.h\"\nstatic int g(int a, int b) { return a; }\n",
                          Headers{{"own.h", "#pragma GCC system_header\n"
                                            "static inline int f(int a, int b) { return a; }\nint h(int);\n"}});
    ASSERT_EQ(reading.result, Frontends::CFrontend::Result::Complete);
    std::string unused;
    for (const Tessel::TesselBase& node : Tessel::Service::Preorder(reading.unit()))
        if (const auto* variable = dynamic_cast<const Tessel::VariableDeclaration*>(&node))
            unused += variable->getName() + '{' + variable->getAttributes() + '}';
    EXPECT_EQ(unused, "a{}b{__attribute__((unused))}{}a{}b{}");
}

} // namespace Kova::Test
