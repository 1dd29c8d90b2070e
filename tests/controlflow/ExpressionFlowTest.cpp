// SPDX-License-Identifier: MIT
// The basic blocks of C statements.
#include "tests/controlflow/FlowOf.h"

#include <gtest/gtest.h>

namespace Kova::Test {

namespace {

std::string blocks(const std::string& statements) {
    return FlowOf(statements).blocks();
}

std::string wholeBlocks(const std::string& statements) {
    return FlowOf(statements).blocks(false);
}

TEST(ExpressionFlowTest, operatorsInConditions) {
    EXPECT_EQ(blocks("if (a && b) x; else y;"),
              "entry: 1\n1 [a]: +2, -4\n2 [b]: +3, -4\n3 [x]: exit\n4 [y]: exit\nexit\n");
    EXPECT_EQ(blocks("if (a || b) x;"), "entry: 1\n1 [a]: +3, -2\n2 [b]: +3, -exit\n3 [x]: exit\nexit\n");
    EXPECT_EQ(blocks("if (a && b || c) x;"),
              "entry: 1\n1 [a]: +2, -3\n2 [b]: +4, -3\n3 [c]: +4, -exit\n4 [x]: exit\nexit\n");
    EXPECT_EQ(blocks("while (a ? b : c) x;"),
              "entry: 1\n1 [a]: +2, -3\n2 [b]: +4, -exit\n3 [c]: +4, -exit\n4 [x]: ^1\nexit\n");
    EXPECT_EQ(blocks("if (a ?: b) x;"), "entry: 1\n1 [a]: +3, -2\n2 [b]: +3, -exit\n3 [x]: exit\nexit\n");
    EXPECT_EQ(blocks("do x; while (a || b);"), "entry: 1\n1 [x] [a]: ^1, -2\n2 [b]: ^1, -exit\nexit\n");
    EXPECT_EQ(blocks("for (; a && b;) x;"), "entry: 1\n1 [a]: +2, -exit\n2 [b]: +3, -exit\n3 [x]: ^1\nexit\n");
}

TEST(ExpressionFlowTest, negations) {
    EXPECT_EQ(blocks("if (!a) x;"), "entry: 1\n1 [!a]: +2, -exit\n2 [x]: exit\nexit\n");
    EXPECT_EQ(blocks("if (!(a && b)) x; else y;"),
              "entry: 1\n1 [a]: +2, -3\n2 [b]: +4, -3\n3 [x]: exit\n4 [y]: exit\nexit\n");
    EXPECT_EQ(blocks("if (!!(a || b)) x;"), "entry: 1\n1 [a]: +3, -2\n2 [b]: +3, -exit\n3 [x]: exit\nexit\n");
    EXPECT_EQ(blocks("x = !(a && b);"), "entry: 1\n1 [a]: +2, -3\n2 [b]: 3\n3 [x = !(a && b)]: exit\nexit\n");
}

TEST(ExpressionFlowTest, operatorsInValues) {
    EXPECT_EQ(blocks("x = a && b;"), "entry: 1\n1 [a]: +2, -3\n2 [b]: 3\n3 [x = a && b]: exit\nexit\n");
    EXPECT_EQ(blocks("x = a ? b : c;"), "entry: 1\n1 [a]: +2, -3\n2 [b]: 4\n3 [c]: 4\n4 [x = a ? b : c]: exit\nexit\n");
    EXPECT_EQ(blocks("x = a ?: c;"), "entry: 1\n1 [a]: +3, -2\n2 [c]: 3\n3 [x = a ?: c]: exit\nexit\n");
    EXPECT_EQ(blocks("x = a && (b || c);"),
              "entry: 1\n1 [a]: +2, -4\n2 [b]: +4, -3\n3 [c]: 4\n4 [x = a && (b || c)]: exit\nexit\n");
    EXPECT_EQ(blocks("g((a && b) + c);"), "entry: 1\n1 [a]: +2, -3\n2 [b]: 3\n3 [g((a && b) + c)]: exit\nexit\n");
    EXPECT_EQ(blocks("x = (a && b) + (b || c);"), "entry: 1\n1 [a]: +2, -3\n2 [b]: 3\n3 [b]: +5, -4\n4 [c]: 5\n"
                                                  "5 [x = (a && b) + (b || c)]: exit\nexit\n");
    EXPECT_EQ(blocks("return a && b;"), "entry: 1\n1 [a]: +2, -exit\n2 [b]: @exit\nexit\n");
    EXPECT_EQ(blocks("int v = a || b;"), "entry: 1\n1 [a]: +exit, -2\n2 [b]: exit\nexit\n");
    // Where a does not hold, the selector is 0, which is not looked into.
    EXPECT_EQ(blocks("switch (a && b) { case 0: x; } y;"),
              "entry: 1\n1 [a]: +2, -3, -4\n2 [b]: @3, 4\n3 [x]: 4\n4 [y]: exit\nexit\n");
}

TEST(ExpressionFlowTest, commas) {
    EXPECT_EQ(blocks("x, y;"), "entry: 1\n1 [x, y]: exit\nexit\n");
    EXPECT_EQ(blocks("x, (a && b);"), "entry: 1\n1 [x] [a]: +2, -exit\n2 [b]: exit\nexit\n");
    EXPECT_EQ(blocks("x = a, y = b && c;"), "entry: 1\n1 [x = a] [b]: +2, -3\n2 [c]: 3\n3 [y = b && c]: exit\nexit\n");
    EXPECT_EQ(blocks("if (x, a || b) y;"), "entry: 1\n1 [x] [a]: +3, -2\n2 [b]: +3, -exit\n3 [y]: exit\nexit\n");
}

TEST(ExpressionFlowTest, operatorsAsAWhole) {
    EXPECT_EQ(wholeBlocks("if (a && b) x = c ? a : b;"),
              "entry: 1\n1 [a && b]: +2, -exit\n2 [x = c ? a : b]: exit\nexit\n");
    EXPECT_EQ(wholeBlocks("while (!(a || b)) x, y;"), "entry: 1\n1 [!(a || b)]: +2, -exit\n2 [x, y]: ^1\nexit\n");
    EXPECT_EQ(wholeBlocks("x = ({ y; a && b; });"), "entry: 1\n1 [y] [a && b] [x = ({})]: exit\nexit\n");
    EXPECT_EQ(wholeBlocks("a && quit(b); x;"), "entry: 1\n1 [a && quit(b)] [x]: exit\nexit\n");
    EXPECT_EQ(wholeBlocks("if (1 || a) x; else y;"), "entry: 1\n1 [1 || a]: +2\n2 [x]: exit\n3! [y]: exit\nexit\n");
}

TEST(ExpressionFlowTest, whatIsNotEvaluated) {
    EXPECT_EQ(blocks("x = sizeof(a && b);"), "entry: 1\n1 [x = sizeof (a && b)]: exit\nexit\n");
    EXPECT_EQ(blocks("switch (a) { case 1 + 1: x; }"), "entry: 1\n1 [a]: @2, exit\n2 [x]: exit\nexit\n");
    EXPECT_EQ(blocks("static int s = 1; extern int e; int t = 2;"), "entry: 1\n1 [2]: exit\nexit\n");
    EXPECT_EQ(blocks("x = _Generic(a || b, int: b && c, default: g(a || c));"),
              "entry: 1\n1 [b]: +2, -3\n2 [c]: 3\n3 [x = _Generic(a || b, int: b && c, default: g(a || c))]: "
              "exit\nexit\n");
}

TEST(ExpressionFlowTest, indicesOfInitializersAreConstants) {
    EXPECT_EQ(blocks("int v[] = { [1 ? 2 : 3] = a };"), "entry: 1\n1 [{ [1 ? 2 : 3] = a }]: exit\nexit\n");
}

TEST(ExpressionFlowTest, declarationsEvaluateLengthsAndInitializers) {
    EXPECT_EQ(blocks("int v[a + 1], w = b;"), "entry: 1\n1 [a + 1] [b]: exit\nexit\n");
    EXPECT_EQ(blocks("typedef int T[a]; T v;"), "entry: 1\n1 [a]: exit\nexit\n");
    EXPECT_EQ(blocks("int (*v)[a] = 0;"), "entry: 1\n1 [a] [0]: exit\nexit\n");
    EXPECT_EQ(blocks("int v[a ? b : c];"), "entry: 1\n1 [a]: +2, -3\n2 [b]: exit\n3 [c]: exit\nexit\n");
    EXPECT_EQ(blocks("int v, w;"), "entry: exit\nexit\n");
}

TEST(ExpressionFlowTest, loops) {
    EXPECT_EQ(blocks("for (x = 0; a; x++) y;"), "entry: 1\n1 [x = 0]: 2\n2 [a]: +3, -exit\n3 [y] [x++]: ^2\nexit\n");
    EXPECT_EQ(blocks("for (int i = a; i; i--) if (b) continue; else y;"),
              "entry: 1\n1 [a]: 2\n2 [i]: +3, -exit\n3 [b]: +5, -4\n4 [y]: 5\n5 [i--]: ^2\nexit\n");
    EXPECT_EQ(blocks("for (;;) x;"), "entry: 1\n1 [x]: ^1\nexit!\n");
    EXPECT_EQ(blocks("for (;;) {} x;"), "entry\n1! [x]: exit\nexit!\n");
    EXPECT_EQ(blocks("while (a) { if (b) break; x; } y;"),
              "entry: 1\n1 [a]: +2, -4\n2 [b]: +4, -3\n3 [x]: ^1\n4 [y]: exit\nexit\n");
    EXPECT_EQ(blocks("while (a);"), "entry: 1\n1 [a]: ^1, -exit\nexit\n");
    EXPECT_EQ(blocks("do { if (a) continue; x; } while (b);"),
              "entry: 1\n1 [a]: +3, -2\n2 [x]: 3\n3 [b]: ^1, -exit\nexit\n");
    EXPECT_EQ(blocks("do x; while (0); y;"), "entry: 1\n1 [x] [0]: -2\n2 [y]: exit\nexit\n");
}

TEST(ExpressionFlowTest, switches) {
    EXPECT_EQ(blocks("switch (a) { case 1: x; case 2: y; break; default: z; }"),
              "entry: 1\n1 [a]: @2, @3, @4\n2 [x]: 3\n3 [y]: @exit\n4 [z]: exit\nexit\n");
    EXPECT_EQ(blocks("switch (a) { x; case 1: case 2: y; } z;"),
              "entry: 1\n1 [a]: @3, 4\n2! [x]: 3\n3 [y]: 4\n4 [z]: exit\nexit\n");
    EXPECT_EQ(blocks("switch (2) { case 1: x; break; case 2: y; } z;"),
              "entry: 1\n1 [2]: @3\n2! [x]: @4\n3 [y]: 4\n4 [z]: exit\nexit\n");
}

TEST(ExpressionFlowTest, jumps) {
    EXPECT_EQ(blocks("if (a) goto L; x; L: y;"), "entry: 1\n1 [a]: +3, -2\n2 [x]: 3\n3 [y]: exit\nexit\n");
    EXPECT_EQ(blocks("L: x; goto L;"), "entry: 1\n1 [x]: @1\nexit!\n");
    EXPECT_EQ(blocks("L: goto L;"), "entry\nexit!\n");
    EXPECT_EQ(blocks("return a; x;"), "entry: 1\n1 [a]: @exit\n2! [x]: exit\nexit\n");
    EXPECT_EQ(blocks("void *p = &&L; goto *p; x; L: y;"), "entry: 1\n1 [&&L] [p]: @3\n2! [x]: 3\n3 [y]: exit\nexit\n");
}

TEST(ExpressionFlowTest, aConditionBothOfWhoseWaysJumpBack) {
    EXPECT_EQ(blocks("goto M; L: x; return 0; M: if (a) goto L; goto L;"),
              "entry: @2\n1 [x] [0]: @exit\n2 [a]: 1\nexit\n");
}

TEST(ExpressionFlowTest, callsThatNeverReturn) {
    EXPECT_EQ(blocks("stop(); x;"), "entry: 1\n1 [stop()]\n2! [x]: exit\nexit!\n");
    EXPECT_EQ(blocks("if (a) stop(); x;"), "entry: 1\n1 [a]: +2, -3\n2 [stop()]\n3 [x]: exit\nexit\n");
    EXPECT_EQ(blocks("x = quit(a) && b;"), "entry: 1\n1 [quit(a)]\n2! [b] [x = quit(a) && b]: exit\nexit!\n");
    EXPECT_EQ(blocks("a || quit(b); x;"), "entry: 1\n1 [a]: +3, -2\n2 [quit(b)]\n3 [x]: exit\nexit\n");
    EXPECT_EQ(blocks("g(quit(a) + b); x;"), "entry: 1\n1 [g(quit(a) + b)]\n2! [x]: exit\nexit!\n");
}

TEST(ExpressionFlowTest, constants) {
    EXPECT_EQ(blocks("if (0) x; y;"), "entry: 1\n1 [0]: -3\n2! [x]: 3\n3 [y]: exit\nexit\n");
    EXPECT_EQ(blocks("if (1 || a) x;"), "entry: 1\n1 [1]: +3\n2! [a]: +3, -exit\n3 [x]: exit\nexit\n");
    EXPECT_EQ(blocks("if (a && 0) x; y;"), "entry: 1\n1 [a]: +2, -4\n2 [0]: -4\n3! [x]: 4\n4 [y]: exit\nexit\n");
    EXPECT_EQ(blocks("x = 1 ? a : b;"), "entry: 1\n1 [1]: +2\n2 [a]: 4\n3! [b]: 4\n4 [x = 1 ? a : b]: exit\nexit\n");
}

TEST(ExpressionFlowTest, waysThatComeTogetherAtOnce) {
    EXPECT_EQ(blocks("if (a); b;"), "entry: 1\n1 [a] [b]: exit\nexit\n");
    EXPECT_EQ(blocks("if (a && b); c;"), "entry: 1\n1 [a]: +2, -3\n2 [b]: 3\n3 [c]: exit\nexit\n");
    EXPECT_EQ(blocks("switch (a) {} c;"), "entry: 1\n1 [a] [c]: exit\nexit\n");
}

TEST(ExpressionFlowTest, statementsInsideExpressionsComeBeforeThem) {
    EXPECT_EQ(blocks("x = ({ y; if (a) z; b; });"),
              "entry: 1\n1 [y] [a]: +2, -3\n2 [z]: 3\n3 [b] [x = ({})]: exit\nexit\n");
    EXPECT_EQ(blocks("while (a) { x = ({ if (b) break; c; }); }"),
              "entry: 1\n1 [a]: +2, -exit\n2 [b]: +exit, -3\n3 [c] [x = ({})]: ^1\nexit\n");
    EXPECT_EQ(blocks("x = a && ({ y; b; });"),
              "entry: 1\n1 [a]: +2, -3\n2 [y] [b]: 3\n3 [x = a && ({})]: exit\nexit\n");
    EXPECT_EQ(blocks("if (({ y; a; })) z;"), "entry: 1\n1 [y] [a] [({})]: +2, -exit\n2 [z]: exit\nexit\n");
}

TEST(ExpressionFlowTest, jumpsIntoAndOutOfTheStatement) {
    EXPECT_EQ(FlowOf("goto L; while (a) { x; L: y; if (b) goto M; if (c) break; return 0; } M: z;").blocksOf("while a"),
              "entry: 1, @3\n"
              "1 [a]: +2, -exit\n"
              "2 [x]: 3\n"
              "3 [y] [b]: +exit, -4\n"
              "4 [c]: +exit, -5\n"
              "5 [0]: @exit\n"
              "exit\n");
    EXPECT_EQ(FlowOf("switch (a) { while (b) { case 1: x; } }").blocksOf("while b"),
              "entry: 1, @2\n1 [b]: +2, -exit\n2 [x]: ^1\nexit\n");
    EXPECT_EQ(FlowOf("while (a) { if (b) break; else continue; }").blocksOf("if b"), "entry: 1\n1 [b]: exit\nexit\n");
    EXPECT_EQ(FlowOf("while (a) { x; y; }").blocksOf("x"), "entry: 1\n1 [x]: exit\nexit\n");
    EXPECT_EQ(FlowOf("void *p = &&L; goto *p; { L: x; }").blocksOf("{}#2"), "entry: @1\n1 [x]: exit\nexit\n");
}

} // namespace

} // namespace Kova::Test
