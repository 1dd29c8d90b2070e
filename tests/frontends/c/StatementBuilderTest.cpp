// SPDX-License-Identifier: MIT
#include "tests/frontends/c/Reading.h"

#include <gtest/gtest.h>

namespace Kova::Test {

TEST(StatementBuilderTest, expressionsDeclarationsAndBlocks) {
    EXPECT_EQ(bodyOf("int a = 1, b; a = b; ; { a++; } {}"), "declare\n"
                                                            "  variable a int = 1\n"
                                                            "  variable b int\n"
                                                            "(= a b)\n"
                                                            "null\n"
                                                            "block\n"
                                                            "  (_++ a)\n"
                                                            "block\n");
}

TEST(StatementBuilderTest, branchesAreBlocksWhateverTheSourceWrites) {
    EXPECT_EQ(bodyOf("if (x) g(); else { x = 0; }", "int x; void g(void);"), "if x\n"
                                                                             "  (call @g)\n"
                                                                             "else\n"
                                                                             "  (= x 0)\n");
    EXPECT_EQ(bodyOf("if (x) { }", "int x;"), "if x\n");
}

TEST(StatementBuilderTest, anElseIfIsAnElseBlockWithOneIf) {
    EXPECT_EQ(bodyOf("if (x == 1) x = 2; else if (x == 3) x = 4; else x = 5;", "int x;"), "if (== x 1)\n"
                                                                                          "  (= x 2)\n"
                                                                                          "else\n"
                                                                                          "  if (== x 3)\n"
                                                                                          "    (= x 4)\n"
                                                                                          "  else\n"
                                                                                          "    (= x 5)\n");
}

TEST(StatementBuilderTest, loops) {
    EXPECT_EQ(bodyOf("while (x) x--; do { x++; } while (x < 9);", "int x;"), "while x\n"
                                                                             "  (_-- x)\n"
                                                                             "do\n"
                                                                             "  (_++ x)\n"
                                                                             "while (< x 9)\n");
    EXPECT_EQ(bodyOf("for (int i = 0, j = 9; i < j; i++, --j) continue;"), "for\n"
                                                                           "  declare\n"
                                                                           "    variable i int = 0\n"
                                                                           "    variable j int = 9\n"
                                                                           "  (< i j)\n"
                                                                           "  (, (_++ i) (--_ j))\n"
                                                                           "do\n"
                                                                           "  continue\n");
    EXPECT_EQ(bodyOf("for (x = 0; ; ) break; for (;;) ;", "int x;"), "for\n"
                                                                     "  (= x 0)\n"
                                                                     "  _\n"
                                                                     "  _\n"
                                                                     "do\n"
                                                                     "  break\n"
                                                                     "for\n"
                                                                     "  _\n"
                                                                     "  _\n"
                                                                     "  _\n"
                                                                     "do\n"
                                                                     "  null\n");
}

TEST(StatementBuilderTest, switchesWithTheirLabelsAsStatements) {
    EXPECT_EQ(bodyOf("switch (x) { case 1: case 2: x = 0; break; case 3 ... 5: { x = 1; } default: ; }", "int x;"),
              "switch x\n"
              "  case 1\n"
              "  case 2\n"
              "  (= x 0)\n"
              "  break\n"
              "  case 3...5\n"
              "  block\n"
              "    (= x 1)\n"
              "  default\n"
              "  null\n");
    EXPECT_EQ(bodyOf("switch (x) case 1: x = 0;", "int x;"), "switch x\n"
                                                             "  case 1\n"
                                                             "  (= x 0)\n");
}

TEST(StatementBuilderTest, aCaseMayStandInsideALoopOfItsSwitch) {
    EXPECT_EQ(
        bodyOf("switch (n % 2) { case 0: do { g(); case 1: g(); } while ((n -= 2) > 0); }", "int n; void g(void);"),
        "switch (% n 2)\n"
        "  case 0\n"
        "  do\n"
        "    (call @g)\n"
        "    case 1\n"
        "    (call @g)\n"
        "  while (> (-= n 2) 0)\n");
}

TEST(StatementBuilderTest, jumpsKnowTheirLabelsForwardAndBackward) {
    EXPECT_EQ(bodyOf("again: x++; if (x) goto out; goto again; out: ;", "int x;"), "label again\n"
                                                                                   "(_++ x)\n"
                                                                                   "if x\n"
                                                                                   "  goto out\n"
                                                                                   "goto again\n"
                                                                                   "label out\n"
                                                                                   "null\n");
    EXPECT_EQ(bodyOf("if (x) one: two: g(); goto one;", "int x; void g(void);"), "if x\n"
                                                                                 "  label one\n"
                                                                                 "  label two\n"
                                                                                 "  (call @g)\n"
                                                                                 "goto one\n");
}

TEST(StatementBuilderTest, computedJumpsAndLocalLabels) {
    EXPECT_EQ(bodyOf("__label__ a; void* p = &&a; goto *p; a: ;"), "declare\n"
                                                                   "  opaque `__label__ a;`\n"
                                                                   "declare\n"
                                                                   "  variable p ptr(void) = &&a\n"
                                                                   "goto *p\n"
                                                                   "label a\n"
                                                                   "null\n");
}

TEST(StatementBuilderTest, returns) {
    EXPECT_EQ(bodyOf("return;"), "return _\n");
    EXPECT_EQ(Reading("int f(int a) { return a + 1; }").body(), "return (+ a 1)\n");
}

TEST(StatementBuilderTest, assemblyKeepsItsTextAndShowsItsOperands) {
    EXPECT_EQ(bodyOf("__asm__ volatile(\"mov %1, %0\" : \"=r\"(a) : \"r\"(g(b)));", "int a, b; int g(int);"),
              "opaque `__asm__ volatile(\"mov %1, %0\" : \"=r\"(a) : \"r\"(g(b)));` a (call @g b)\n");
    EXPECT_EQ(bodyOf("asm(\"nop\");"), "opaque `asm(\"nop\");`\n");
}

TEST(StatementBuilderTest, anAttributeThatStandsAlone) {
    EXPECT_EQ(bodyOf("switch (x) { case 1: x = 2; __attribute__((fallthrough)); case 2: x = 3; }", "int x;"),
              "switch x\n"
              "  case 1\n"
              "  (= x 2)\n"
              "  opaque `__attribute__((fallthrough));`\n"
              "  case 2\n"
              "  (= x 3)\n");
}

TEST(StatementBuilderTest, aPragmaThatClangKnowsLeavesTheStatement) {
    EXPECT_EQ(bodyOf("\n#pragma unroll(2)\nfor (x = 0; x < 3; x++) g();", "int x; void g(void);"),
              "opaque `#pragma unroll(2)`\n"
              "for\n"
              "  (= x 0)\n"
              "  (< x 3)\n"
              "  (_++ x)\n"
              "do\n"
              "  (call @g)\n");
}

} // namespace Kova::Test
