// SPDX-License-Identifier: MIT
#include "tests/frontends/c/Reading.h"

#include <gtest/gtest.h>

namespace Kova::Test {

namespace {

const char* const names =
    "int a, b, c, *p, v[9]; double d; struct s { int x; struct s* next; } s, *q; int g(int, ...);";

/// One expression statement after declarations of the names above.
std::string expression(const std::string& text) {
    std::string body = bodyOf(text + ';', names);
    if (!body.empty() && body.back() == '\n')
        body.pop_back();
    return body;
}

} // namespace

TEST(ExpressionBuilderTest, arithmetic) {
    EXPECT_EQ(expression("a = b * c / 2 % 3"), "(= a (% (/ (* b c) 2) 3))");
    EXPECT_EQ(expression("a = b + c - 1"), "(= a (- (+ b c) 1))");
    EXPECT_EQ(expression("a = b << 1 >> 2"), "(= a (>> (<< b 1) 2))");
    EXPECT_EQ(expression("a = +b + -c"), "(= a (+ (+_ b) (-_ c)))");
    EXPECT_EQ(expression("a = ~b & c | b ^ c"), "(= a (| (& (~ b) c) (^ b c)))");
}

TEST(ExpressionBuilderTest, comparisonsAndLogic) {
    EXPECT_EQ(expression("a = b < c && b <= c || !(b > c)"), "(= a (|| (&& (< b c) (<= b c)) (! (> b c))))");
    EXPECT_EQ(expression("a = (b >= c) + (b == c) + (b != c)"), "(= a (+ (+ (>= b c) (== b c)) (!= b c)))");
}

TEST(ExpressionBuilderTest, parenthesesAreTheTreesShape) {
    EXPECT_EQ(expression("a = ((b)) * ((b + (c)))"), "(= a (* b (+ b c)))");
    EXPECT_EQ(expression("a = b - (c - 1)"), "(= a (- b (- c 1)))");
}

TEST(ExpressionBuilderTest, assignments) {
    EXPECT_EQ(expression("a = b = c"), "(= a (= b c))");
    EXPECT_EQ(expression("a += 1, b -= 2, c *= 3"), "(, (, (+= a 1) (-= b 2)) (*= c 3))");
    EXPECT_EQ(expression("a /= 1, b %= 2, c <<= 3, a >>= 4"), "(, (, (, (/= a 1) (%= b 2)) (<<= c 3)) (>>= a 4))");
    EXPECT_EQ(expression("a &= 1, b ^= 2, c |= 3"), "(, (, (&= a 1) (^= b 2)) (|= c 3))");
}

TEST(ExpressionBuilderTest, stepsAddressesAndIndirections) {
    EXPECT_EQ(expression("a = b++ + ++c - b-- - --c"), "(= a (- (- (+ (_++ b) (++_ c)) (_-- b)) (--_ c)))");
    EXPECT_EQ(expression("p = &a, *p = 1"), "(, (= p (& a)) (= (* p) 1))");
}

TEST(ExpressionBuilderTest, elementsAndMembers) {
    EXPECT_EQ(expression("v[a + 1] = 2[v]"), "(= ([] v (+ a 1)) ([] 2 v))");
    EXPECT_EQ(expression("s.x = q->next->x"), "(= (. s x) (-> (-> q next) x))");
}

TEST(ExpressionBuilderTest, membersOfUnnamedMembersAreMembersOfTheWhole) {
    const char* const declarations = "struct o { int n; union { int i; struct { float f; }; }; } o, *r;";
    EXPECT_EQ(bodyOf("o.i = r->f;", declarations), "(= (. o i) (-> r f))\n");
}

TEST(ExpressionBuilderTest, calls) {
    EXPECT_EQ(expression("g(a, g(b), \"t\")"), "(call @g a (call @g b) \"t\")");
    EXPECT_EQ(bodyOf("h = g; h(1); (*h)(2); (&g)(3);", "int g(int); int (*h)(int);"), "(= h @g)\n"
                                                                                      "(call h 1)\n"
                                                                                      "(call (* h) 2)\n"
                                                                                      "(call (& @g) 3)\n");
}

TEST(ExpressionBuilderTest, choices) {
    EXPECT_EQ(expression("a = b ? 1 : c ? 2 : 3"), "(= a (? b 1 (? c 2 3)))");
    EXPECT_EQ(expression("a = b ?: c"), "(= a (? b _ c))");
}

TEST(ExpressionBuilderTest, castsAreThoseThatTheSourceWrites) {
    EXPECT_EQ(expression("d = a"), "(= d a)");
    EXPECT_EQ(expression("d = (double)a / (unsigned long)b"), "(= d (/ (cast double a) (cast unsigned long b)))");
    EXPECT_EQ(expression("(void)a"), "(cast void a)");
}

TEST(ExpressionBuilderTest, sizesAndAlignments) {
    EXPECT_EQ(expression("a = sizeof b + sizeof(int) + sizeof(struct s*)"),
              "(= a (+ (+ (sizeof b) (sizeof <int>)) (sizeof <ptr(struct s)>)))");
    EXPECT_EQ(expression("a = _Alignof(double) + __alignof__(b)"), "(= a (+ (alignof <double>) (alignof b)))");
    EXPECT_EQ(expression("a = sizeof g(1)"), "(= a (sizeof (call @g 1)))");
}

TEST(ExpressionBuilderTest, boundsOfVariableArraysBelongToTheMention) {
    EXPECT_EQ(bodyOf("a = sizeof(int[n][n + 1]); p = (int(*)[n])p;", "int a, n; void* p;"),
              "(= a (sizeof <array[n](array[(+ n 1)](int))> n (+ n 1)))\n"
              "(= p (cast ptr(array[n](int)) p n))\n");
}

TEST(ExpressionBuilderTest, literalsAreAsWritten) {
    EXPECT_EQ(expression("a = 0x1FuL + 017 + 0b11 + 10"), "(= a (+ (+ (+ 0x1FuL 017) 0b11) 10))");
    EXPECT_EQ(expression("d = 1.50e+3f + .5 + 0x1p-3"), "(= d (+ (+ 1.50e+3f .5) 0x1p-3))");
    EXPECT_EQ(expression("a = 'x' + '\\n' + L'\\x41'"), "(= a (+ (+ 'x' '\\n') L'\\x41'))");
    EXPECT_EQ(expression("g(1, \"a\\tb\" \"c\"\n   \"d\")"), "(call @g 1 \"a\\tb\" \"c\" \"d\")");
    EXPECT_EQ(expression("d = __real__ (2.0i)"), "(= d (__real__ 2.0i))");
    EXPECT_EQ(expression("g(1, __func__)"), "(call @g 1 __func__)");
}

TEST(ExpressionBuilderTest, literalsFromMacrosAreAsTheMacroWritesThem) {
    EXPECT_EQ(bodyOf("a = SIZE + __LINE__;", "#define SIZE 0x10\nint a;"), "(= a (+ 0x10 4))\n");
    EXPECT_EQ(bodyOf("s = TEXT \"!\";", "#define TEXT \"hey\"\nconst char* s;"), "(= s \"hey\" \"!\")\n");
    EXPECT_EQ(bodyOf("s = STR(a b);", "#define STR(x) #x\nconst char* s;"), "(= s \"a b\")\n");
    EXPECT_EQ(bodyOf("a = CAT(1, 2u);", "#define CAT(x, y) x##y\nint a;"), "(= a 12u)\n");
}

TEST(ExpressionBuilderTest, enumerators) {
    EXPECT_EQ(bodyOf("e = blue;", "enum color { red, blue } e;"), "(= e #blue)\n");
}

TEST(ExpressionBuilderTest, initializersAreAsWritten) {
    EXPECT_EQ(bodyOf("int m[4] = { 1, 2 }; struct t z = { .a = 1, .b[1] = 2, .b[2 ... 3] = 4 };",
                     "struct t { int a; int b[4]; };"),
              "declare\n"
              "  variable m array[4](int) = (init 1 2)\n"
              "declare\n"
              "  variable z struct t = (init (designated .a 1) (designated .b[1] 2) (designated .b[2...3] 4))\n");
    EXPECT_EQ(bodyOf("int m[][2] = { { 1 }, { 2, 3 } }; int n[3] = { [2] = 7 };"),
              "declare\n"
              "  variable m array[2](array[2](int)) [] = (init (init 1) (init 2 3))\n"
              "declare\n"
              "  variable n array[3](int) = (init (designated [2] 7))\n");
}

TEST(ExpressionBuilderTest, designatorsOfMembersOfUnnamedMembers) {
    const char* const declarations = "struct t { int n; union { int a; struct { float x; int v[2]; }; }; };";
    EXPECT_EQ(bodyOf("struct t s = { 1, .a = 2 }; struct t r = { .x = 3, .v[1] = 4, .n = 5 };", declarations),
              "declare\n"
              "  variable s struct t = (init 1 (designated .a 2))\n"
              "declare\n"
              "  variable r struct t = (init (designated .x 3) (designated .v[1] 4) (designated .n 5))\n");
    EXPECT_EQ(bodyOf("a = __builtin_offsetof(struct t, v[a]);", std::string(declarations) + "int a;"),
              "(= a (opaque `__builtin_offsetof(struct t, v[a])` a))\n");
}

TEST(ExpressionBuilderTest, placesInTheSourceAreTheirValues) {
    EXPECT_EQ(Reading("void g(int, const char*);\nvoid f(void) {\ng(__builtin_LINE(), __builtin_FUNCTION()); }").body(),
              "(call @g 3 \"f\")\n");
}

TEST(ExpressionBuilderTest, compoundLiterals) {
    EXPECT_EQ(bodyOf("p = (int[]){ 1, 2 }; s = (struct s){ .x = 3 };", "int* p; struct s { int x; } s;"),
              "(= p (literal <array[2](int)> [] (init 1 2)))\n"
              "(= s (literal <struct s> (init (designated .x 3))))\n");
}

TEST(ExpressionBuilderTest, genericSelections) {
    EXPECT_EQ(expression("a = _Generic(d, int: 1, double: g(2), default: 3)"),
              "(= a (generic d int:1 *double:(call @g 2) default:3))");
}

TEST(ExpressionBuilderTest, statementsInExpressions) {
    EXPECT_EQ(expression("a = ({ int t = b; t + 1; })"), "(= a ({\n"
                                                         "  declare\n"
                                                         "    variable t int = b\n"
                                                         "  (+ t 1)\n"
                                                         "}))");
}

TEST(ExpressionBuilderTest, variadicArguments) {
    EXPECT_EQ(Reading("int f(__builtin_va_list l) { return __builtin_va_arg(l, int); }").body(),
              "return (builtin va_arg <int> l)\n");
    EXPECT_EQ(Reading("#include <stdarg.h>\n#define NEXT(l) va_arg(l, int)\n"
                      "int f(va_list l) { va_arg(l, char*); return NEXT(l); }")
                  .body(),
              "(va_arg <ptr(char)> l)\nreturn (va_arg <int> l)\n");
}

TEST(ExpressionBuilderTest, rareExpressionsKeepTheirTextAndShowTheirOperands) {
    EXPECT_EQ(expression("a = __builtin_offsetof(struct s, next)"),
              "(= a (opaque `__builtin_offsetof(struct s, next)`))");
    EXPECT_EQ(expression("a = __builtin_choose_expr(1, g(1), b)"),
              "(= a (opaque `__builtin_choose_expr(1, g(1), b)` 1 (call @g 1) b))");
    EXPECT_EQ(expression("a = __builtin_types_compatible_p(int, long)"),
              "(= a (opaque `__builtin_types_compatible_p(int, long)`))");
    EXPECT_EQ(expression("a = __atomic_load_n(p, 5)"), "(= a (opaque `__atomic_load_n(p, 5)` p 5))");
}

TEST(ExpressionBuilderTest, extensionAndComplexParts) {
    EXPECT_EQ(expression("a = __extension__ b"), "(= a (__extension__ b))");
    EXPECT_EQ(bodyOf("d = __imag__ z + __real__ z;", "double d; _Complex double z;"),
              "(= d (+ (__imag__ z) (__real__ z)))\n");
}

TEST(ExpressionBuilderTest, arraysReachedByManyNestedIndices) {
    EXPECT_EQ(bodyOf("m[i][j] = m[j][i];", "double m[4][5]; int i, j;"), "(= ([] ([] m i) j) ([] ([] m j) i))\n");
}

TEST(ExpressionBuilderTest, aLongSumIsLeftDeep) {
    std::string text = "a = 0";
    for (int i = 0; i < 50000; ++i)
        text += " + b";
    const Reading reading(std::string(names) + "void f(void) { " + text + "; }");
    EXPECT_EQ(reading.result, Frontends::CFrontend::Result::Complete);
    EXPECT_EQ(reading.unit().getChildCount(), 11u);
}

TEST(ExpressionBuilderTest, callsThroughPointersThatAreNamedAsMacros) {
    const std::string declarations = "\n#include <ctype.h>\n#define own(x) x\nint (*isalpha_)(int);\n"
                                     "struct s { int (*isalpha)(int), (*own)(int), (*plain)(int); } v;\n";
    EXPECT_EQ(bodyOf("(v.isalpha)(1);", declarations), "(call (* (. v isalpha)) 1)\n");
    EXPECT_EQ(bodyOf("(*v.isalpha)(1);", declarations), "(call (* (. v isalpha)) 1)\n");
    EXPECT_EQ(bodyOf("(v.own)(1); v.plain(2); isalpha_(3);", declarations),
              "(call (. v own) 1)\n(call (. v plain) 2)\n(call isalpha_ 3)\n");
    EXPECT_NE(bodyOf("int (*isdigit)(int) = 0; (isdigit)(1);", declarations).find("(call (* isdigit) 1)"),
              std::string::npos);
}

} // namespace Kova::Test
