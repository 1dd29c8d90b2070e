// SPDX-License-Identifier: MIT
#include "tests/frontends/c/Reading.h"

#include <gtest/gtest.h>

namespace Kova::Frontends {

using namespace Test;

namespace {

const char* const names = "int i, x; int g(int);";

} // namespace

TEST(DirectivesTest, standBetweenStatements) {
    EXPECT_EQ(bodyOf("\n#pragma one\nint a;\n#pragma two\n#pragma three\nx = 1;\n#pragma four\n", names),
              "opaque `#pragma one`\n"
              "declare\n"
              "  variable a int\n"
              "opaque `#pragma two`\n"
              "opaque `#pragma three`\n"
              "(= x 1)\n"
              "opaque `#pragma four`\n");
}

TEST(DirectivesTest, standBeforeTheBodyThatTheySpeakOf) {
    EXPECT_EQ(bodyOf("\n#pragma one\nfor (i = 0; i < 3; i++)\n#pragma two\nwhile (x) g(i);", names),
              "opaque `#pragma one`\n"
              "for\n"
              "  (= i 0)\n"
              "  (< i 3)\n"
              "  (_++ i)\n"
              "do\n"
              "  opaque `#pragma two`\n"
              "  while x\n"
              "    (call @g i)\n");
    EXPECT_EQ(bodyOf("if (x)\n#pragma one\n{ g(1); g(2); }\nelse\n#pragma two\ng(3);", names),
              "if x\n"
              "  opaque `#pragma one`\n"
              "  block\n"
              "    (call @g 1)\n"
              "    (call @g 2)\n"
              "else\n"
              "  opaque `#pragma two`\n"
              "  (call @g 3)\n");
    EXPECT_EQ(bodyOf("\n#pragma one\n{\n#pragma two\ng(1); }\ndo\n#pragma three\ng(2); while (x);", names),
              "opaque `#pragma one`\n"
              "block\n"
              "  opaque `#pragma two`\n"
              "  (call @g 1)\n"
              "do\n"
              "  opaque `#pragma three`\n"
              "  (call @g 2)\n"
              "while x\n");
}

TEST(DirectivesTest, standAmongLabels) {
    EXPECT_EQ(
        bodyOf("switch (x) {\n#pragma one\ncase 1:\n#pragma two\ncase 2: g(1);\n#pragma three\n}\nl:\n#pragma four\n;",
               names),
        "switch x\n"
        "  opaque `#pragma one`\n"
        "  case 1\n"
        "  case 2\n"
        "  opaque `#pragma two`\n"
        "  (call @g 1)\n"
        "  opaque `#pragma three`\n"
        "label l\n"
        "opaque `#pragma four`\n"
        "null\n");
}

TEST(DirectivesTest, areNeverInsideAnExpression) {
    EXPECT_EQ(
        bodyOf("x = g(\n#pragma one\n1);\nif (g(\n#pragma two\n2))\n{ g(3); }\nreturn (void)g(\n#pragma three\n3);",
               names),
        "opaque `#pragma one`\n"
        "(= x (call @g 1))\n"
        "opaque `#pragma two`\n"
        "if (call @g 2)\n"
        "  (call @g 3)\n"
        "opaque `#pragma three`\n"
        "return (cast void (call @g 3))\n");
    EXPECT_EQ(bodyOf("do { g(1);\n#pragma one\n} while (g(\n#pragma two\n2)); while (g(\n#pragma three\n3)) { g(4); }\n"
                     "for (;;\n#pragma four\n) { g(5); } switch (\n#pragma five\nx) { case 1: ; }",
                     names),
              "opaque `#pragma two`\n"
              "do\n"
              "  (call @g 1)\n"
              "  opaque `#pragma one`\n"
              "while (call @g 2)\n"
              "opaque `#pragma three`\n"
              "while (call @g 3)\n"
              "  (call @g 4)\n"
              "opaque `#pragma four`\n"
              "for\n"
              "  _\n"
              "  _\n"
              "  _\n"
              "do\n"
              "  (call @g 5)\n"
              "opaque `#pragma five`\n"
              "switch x\n"
              "  case 1\n"
              "  null\n");
    EXPECT_EQ(Reading("int f(\n#pragma one\nint a);\nenum e { a,\n#pragma two\nb };\nint v = 1 +\n#pragma three\n2;\n")
                  .tree(),
              "opaque `#pragma one`\n"
              "function f fn(int)->int\n"
              "  parameter a int\n"
              "opaque `#pragma two`\n"
              "enum e\n"
              "  enumerator a 0\n"
              "  enumerator b 1\n"
              "opaque `#pragma three`\n"
              "variable v int = (+ 1 2)\n");
}

TEST(DirectivesTest, standInsideAStatementExpression) {
    EXPECT_EQ(bodyOf("x = ({\n#pragma one\nint t = i;\n#pragma two\nt; });", names), "(= x ({\n"
                                                                                     "  opaque `#pragma one`\n"
                                                                                     "  declare\n"
                                                                                     "    variable t int = i\n"
                                                                                     "  opaque `#pragma two`\n"
                                                                                     "  t\n"
                                                                                     "}))\n");
}

TEST(DirectivesTest, standAmongDeclarationsAndMembers) {
    EXPECT_EQ(Reading("#pragma one\nint a;\n#pragma two\nstruct s {\n#pragma three\nint b;\n#pragma four\n};\n"
                      "typedef struct {\n#pragma five\nint c; } t;\n#pragma six\n")
                  .tree(),
              "opaque `#pragma one`\n"
              "variable a int\n"
              "opaque `#pragma two`\n"
              "struct s\n"
              "  opaque `#pragma three`\n"
              "  field b int\n"
              "  opaque `#pragma four`\n"
              "struct \n"
              "  opaque `#pragma five`\n"
              "  field c int\n"
              "typedef t struct <unnamed>\n"
              "opaque `#pragma six`\n");
}

TEST(DirectivesTest, standBehindWhatAFunctionDeclaresOnTheWay) {
    EXPECT_EQ(Reading("#pragma one\nint f(void) { return sizeof(struct s { int a; }); }\n").tree(),
              "struct s\n"
              "  field a int\n"
              "opaque `#pragma one`\n"
              "function f fn()->int\n"
              "block\n"
              "  return (sizeof <struct s>)\n");
}

} // namespace Kova::Frontends
