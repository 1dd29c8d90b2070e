// SPDX-License-Identifier: MIT
// What leads to what in C statements.
#include "tests/controlflow/FlowOf.h"

#include <gtest/gtest.h>

namespace Kova::Test {

namespace {

TEST(StatementFlowTest, chainsOfBranches) {
    EXPECT_EQ(FlowOf("if (a) x; else if (b) y; else z;").statements(), "{}: if a, END\n"
                                                                       "if a: +{if a}, -if b\n"
                                                                       "{if a}: x, {}\n"
                                                                       "x: {if a}\n"
                                                                       "if b: +{if b}, -{else of b}\n"
                                                                       "{if b}: y, {}\n"
                                                                       "y: {if b}\n"
                                                                       "{else of b}: z, {}\n"
                                                                       "z: {else of b}\n");
    EXPECT_EQ(FlowOf("if (a); x;").from("if a"), ": +{if a}, -x");
}

TEST(StatementFlowTest, aSwitchInsideOfALoop) {
    EXPECT_EQ(FlowOf("while (a) { switch (b) { case 1: continue; case 2: break; default: x; } y; }").statements(),
              "{}: while a, END\n"
              "while a: +{while a}, -{}\n"
              "{while a}: switch b, ^while a\n"
              "switch b: @case 1, @case 2, @default\n"
              "{switch b}: y\n"
              "case 1: continue\n"
              "continue: ^while a\n"
              "case 2: break\n"
              "break: @y\n"
              "default: x\n"
              "x: {switch b}\n"
              "y: {while a}\n");
}

TEST(StatementFlowTest, aLoopInsideOfASwitch) {
    EXPECT_EQ(FlowOf("switch (a) { case 1: for (;;) { if (b) break; continue; } x; break; }").statements(),
              "{}: switch a, END\n"
              "switch a: {}, @case 1\n"
              "{switch a}: {}\n"
              "case 1: for \n"
              "for : +{for }\n"
              "{for }: if b, ^for \n"
              "if b: +{if b}, -continue\n"
              "{if b}: break, continue\n"
              "break: @x\n"
              "continue: ^for \n"
              "x: break#2\n"
              "break#2: @{}\n");
}

TEST(StatementFlowTest, continueLeadsToTheConditionAtTheEnd) {
    EXPECT_EQ(FlowOf("do { if (a) continue; x; } while (b); y;").statements(), "{}: do b, END\n"
                                                                               "do b: ^{do b}, -y\n"
                                                                               "{do b}: if a, do b\n"
                                                                               "if a: +{if a}, -x\n"
                                                                               "{if a}: continue, x\n"
                                                                               "continue: @do b\n"
                                                                               "x: {do b}\n"
                                                                               "y: {}\n");
}

TEST(StatementFlowTest, labelsInsideOfALoop) {
    EXPECT_EQ(FlowOf("switch (a) { case 0: do { x; case 1: y; } while (b); }").statements(),
              "{}: switch a, END\n"
              "switch a: {}, @case 0, @case 1\n"
              "{switch a}: {}\n"
              "case 0: do b\n"
              "do b: ^{do b}, -{switch a}\n"
              "{do b}: x, do b\n"
              "x: case 1\n"
              "case 1: y\n"
              "y: {do b}\n");
}

TEST(StatementFlowTest, labelsOfOneSwitch) {
    EXPECT_EQ(FlowOf("switch (a) { x; default: case 7 ... 9: y; }").statements(), "{}: switch a, END\n"
                                                                                  "switch a: @default, @case 7\n"
                                                                                  "{switch a}: {}\n"
                                                                                  "x: default\n"
                                                                                  "default: case 7\n"
                                                                                  "case 7: y\n"
                                                                                  "y: {switch a}\n");
    // A switch has the labels in it that belong to no other one.
    const FlowOf nested("switch (a) { case 1: switch (b) { case 2: x; } case 3: y; } z;");
    EXPECT_EQ(nested.from("switch a"), ": z, @case 1, @case 3");
    EXPECT_EQ(nested.from("switch b"), ": case 3, @case 2");
    EXPECT_EQ(nested.from("{switch b}"), ": case 3");
    EXPECT_EQ(FlowOf("switch (a) { case 1: ; } z;").from("case 1"), ": ;");
    EXPECT_EQ(FlowOf("switch (a) { x; } z;").from("switch a"), ": z");
    EXPECT_EQ(FlowOf("switch (a); z;").from("switch a"), ": z");
}

TEST(StatementFlowTest, selectorsThatAreConstants) {
    const std::string labels = " { case 1: x; case 2 ... 4: y; default: z; }";
    EXPECT_EQ(FlowOf("switch (1)" + labels).from("switch 1"), ": @case 1");
    EXPECT_EQ(FlowOf("switch (3)" + labels).from("switch 3"), ": @case 2");
    EXPECT_EQ(FlowOf("switch (5)" + labels).from("switch 5"), ": @default");
    EXPECT_EQ(FlowOf("switch (ONE)" + labels).from("switch ONE"), ": @case 1");
    EXPECT_EQ(FlowOf("switch (5) { case 1: x; } y;").from("switch 5"), ": y");
    // Labels are converted to what the selector is.
    EXPECT_EQ(FlowOf("switch (4294967295u) { case -1: x; } y;").from("switch 4294967295u"), ": @case -1");
    EXPECT_EQ(FlowOf("switch (~0ul) { case -1: x; } y;").from("switch ~0ul"), ": @case -1");
    EXPECT_EQ(FlowOf("switch ((char)1) { case 257: x; } y;").from("switch (char) 1"), ": y");
}

TEST(StatementFlowTest, jumpsToLabels) {
    EXPECT_EQ(FlowOf("if (a) goto L; while (b) { x; L: y; } goto M; z; M: ;").statements(),
              "{}: if a, END\n"
              "if a: +{if a}, -while b\n"
              "{if a}: goto L, while b\n"
              "goto L: @L:\n"
              "while b: +{while b}, -goto M\n"
              "{while b}: x, ^while b\n"
              "x: L:\n"
              "L:: y\n"
              "y: {while b}\n"
              "goto M: @M:\n"
              "z: M:\n"
              "M:: ;\n"
              ";: {}\n");
    EXPECT_EQ(FlowOf("L: M: x; if (a) goto L; goto M;").from("goto L"), ": @L:");
    // Nothing leads to this label but what is before it.
    EXPECT_EQ(FlowOf("return a; L: x;").statements(), "{}: return a, END\n"
                                                      "return a: @END\n"
                                                      "L:: x\n"
                                                      "x: {}\n");
    EXPECT_EQ(FlowOf("{ L: goto L; }").statementsOf("{}#2"), "{}#2: L:, <{}>\n"
                                                             "L:: goto L\n"
                                                             "goto L: @L:\n");
}

TEST(StatementFlowTest, computedJumpsLeadToEveryLabelWhoseAddressIsTaken) {
    const FlowOf flow("static void *t[] = { &&M, &&L }; goto *t[a]; K: x; L: y; M: z; goto K;");
    EXPECT_EQ(flow.from("goto t[a]"), ": @L:, @M:");
    EXPECT_EQ(flow.from("goto K"), ": @K:");
}

TEST(StatementFlowTest, assemblyLeadsOnAndToItsLabels) {
    const std::string text = FlowOf("asm goto (\"\" : : : : L, M); x; L: y; K: M: z;").statements();
    EXPECT_NE(text.find(": x, @L:, @M:\n"), std::string::npos) << text;
    EXPECT_EQ(FlowOf("asm(\"K\"); x; K: y;").statements().find("@K:"), std::string::npos);
}

TEST(StatementFlowTest, directivesLeadOnWhateverTheyName) {
    const std::string text = FlowOf("x;\n#pragma advice goto K\ny; K: z;").statements();
    EXPECT_NE(text.find("#pragma advice goto K"), std::string::npos) << text;
    EXPECT_EQ(text.find("@K:"), std::string::npos) << text;
}

TEST(StatementFlowTest, callsThatNeverReturn) {
    for (const char* call : {"stop()", "quit(a)", "g(quit(a))", "x = quit(a) + b", "(stop(), x)", "quit(a) && b",
                             "a ? stop() : stop()", "(*quit)(a)", "x[&y] = quit(a)"})
        EXPECT_EQ(FlowOf(std::string(call) + "; z;").statements().find("z: {}\n"),
                  FlowOf(std::string(call) + "; z;").statements().find(":\nz: {}\n") + 2)
            << call;
    const std::string library = "#include <stdlib.h>\n";
    EXPECT_EQ(FlowOf("exit(1); x;", library).from("exit(1)"), ":");
    EXPECT_EQ(FlowOf("abort(); x;", library).from("abort()"), ":");
    EXPECT_EQ(FlowOf("_Exit(1); x;", library).from("_Exit(1)"), ":");
    EXPECT_EQ(FlowOf("__builtin_trap(); x;").from("__builtin_trap()"), ":");
    EXPECT_EQ(FlowOf("__builtin_unreachable(); x;").from("__builtin_unreachable()"), ":");
    EXPECT_EQ(FlowOf("return quit(a); x;").from("return quit(a)"), ":");
    EXPECT_EQ(FlowOf("int v = quit(a); x;").from("declare v"), ":");
    EXPECT_EQ(FlowOf("if (quit(a)) x; y;").from("if quit(a)"), ":");
    EXPECT_EQ(FlowOf("while (quit(a)) x; y;").from("while quit(a)"), ":");
    EXPECT_EQ(FlowOf("do x; while (quit(a)); y;").from("do quit(a)"), ": {do quit(a)}");
    EXPECT_EQ(FlowOf("switch (quit(a)) { case 1: x; } y;").from("switch quit(a)"), ":");
}

TEST(StatementFlowTest, callsThatAreNotMade) {
    for (const char* call : {"a && quit(b)", "a || quit(b)", "a ? stop() : (void)b", "a ?: quit(b)", "sizeof(quit(a))",
                             "quit", "0 && quit(a)", "1 ? b : quit(a)"}) {
        const std::string text = FlowOf(std::string(call) + "; z;").statements();
        EXPECT_NE(text.find(": z\nz: {}\n"), std::string::npos) << text;
    }
    EXPECT_EQ(FlowOf("void (*p)(void) = stop; p(); x;").from("p()"), ": x");
    EXPECT_EQ(FlowOf("if (a && quit(b)) x; y;").from("if a && quit(b)"), ": -y");
    EXPECT_EQ(FlowOf("if (a || quit(b)) x; y;").from("if a || quit(b)"), ": +{if a || quit(b)}");
    EXPECT_EQ(FlowOf("while (!(a && quit(b))) x; y;").from("while !(a && quit(b))"), ": +{while !(a && quit(b))}");
    EXPECT_EQ(FlowOf("if (a ? quit(b) : c) x; y;").from("if a ? quit(b) : c"), ": +{if a ? quit(b) : c}, -y");
}

TEST(StatementFlowTest, conditionsThatAlwaysHold) {
    for (const char* condition : {"1",
                                  "ONE",
                                  "!0",
                                  "2 > 1",
                                  "1 || a",
                                  "a || 1",
                                  "!(0 && a)",
                                  "0u - 1 > 0",
                                  "sizeof(int) == 4",
                                  "'x'",
                                  "-1",
                                  "~0",
                                  "1 ? 2 : 0",
                                  "(unsigned char)257 == 1",
                                  "0 ? 0 : 1",
                                  "3 % 2 == 1 && 7 / 2 == 3",
                                  "1 << 4 == 16",
                                  "(a, 1)",
                                  "~0ul",
                                  "-1 > 1u",
                                  "(long)-1 < 1u",
                                  "0 ?: 5",
                                  "2147483647 / sizeof(int) < (unsigned long)-1",
                                  "~0ul / 3 == 6148914691236517205",
                                  "~0ul * ~0ul == 1",
                                  "~0ul << 63 == (~0ul >> 1) + 1",
                                  "(~0ul >> 63) == 1",
                                  "-9223372036854775807 - 1 < 0"}) {
        const FlowOf flow("if (" + std::string(condition) + ") x; else y; z;");
        EXPECT_EQ(flow.statements().find(", -{else"), std::string::npos) << flow.statements();
        EXPECT_NE(flow.statements().find(": +{if"), std::string::npos) << flow.statements();
    }
    EXPECT_EQ(FlowOf("while (1) x; y;").from("while 1"), ": +{while 1}");
    EXPECT_EQ(FlowOf("for (;;) x; y;").from("for "), ": +{for }");
    EXPECT_EQ(FlowOf("do x; while (1); y;").from("do 1"), ": ^{do 1}");
    EXPECT_EQ(FlowOf("while (1) { x; break; } y;").from("break"), ": @y");
}

TEST(StatementFlowTest, conditionsThatNeverHold) {
    for (const char* condition :
         {"0", "ZERO", "!1", "1 - 1", "0 && a", "a && 0", "-1 < 0u", "1u < 1", "(a, 0)", "!ONE", "0 ? a : 0",
          "ONE == ZERO", "(char)256", "(void *)0", "'\\0'", "2 > 1 > 1", "~0ul + 1", "(~0ul >> 1) * 2 + 2"}) {
        const FlowOf flow("if (" + std::string(condition) + ") x; else y; z;");
        EXPECT_EQ(flow.statements().find("+{if"), std::string::npos) << flow.statements();
        EXPECT_NE(flow.statements().find(": -{else"), std::string::npos) << flow.statements();
    }
    EXPECT_EQ(FlowOf("while (0) x; y;").from("while 0"), ": -y");
    EXPECT_EQ(FlowOf("for (; 0;) x; y;").from("for 0"), ": -y");
    EXPECT_EQ(FlowOf("do x; while (0); y;").from("do 0"), ": {do 0}, -y");
}

TEST(StatementFlowTest, conditionsThatMayHold) {
    for (const char* condition :
         {"a", "1 / 0", "1 && a", "a || 0", "a < 1u", "1 << 40", "x", "g(1)", "a ? 1 : 0", "1 % 0", "2147483647 + 1"}) {
        const std::string text = FlowOf("if (" + std::string(condition) + ") x; else y; z;").statements();
        EXPECT_NE(text.find(": +{if"), std::string::npos) << text;
        EXPECT_NE(text.find(", -{else"), std::string::npos) << text;
    }
}

TEST(StatementFlowTest, statementsInsideExpressionsLeadBack) {
    EXPECT_EQ(FlowOf("x = ({ if (a) goto L; y; }); z; L: ;").statements(), "{}: x = ({}), END\n"
                                                                           "x = ({}): {}#2, z\n"
                                                                           "{}#2: if a, x = ({})\n"
                                                                           "if a: +{if a}, -y\n"
                                                                           "{if a}: goto L, y\n"
                                                                           "goto L: @L:\n"
                                                                           "y: {}#2\n"
                                                                           "z: L:\n"
                                                                           "L:: ;\n"
                                                                           ";: {}\n");
    const FlowOf loop("while (a) { x = ({ if (b) break; if (c) continue; y; }); z; }");
    EXPECT_EQ(loop.from("break"), ": @{}");
    EXPECT_EQ(loop.from("continue"), ": ^while a");
    EXPECT_EQ(loop.from("x = ({})"), ": {}#2, z");
    EXPECT_EQ(FlowOf("if (a && ({ return 1; 0; })) x; y;").from("return 1"), ": @END");
    EXPECT_EQ(FlowOf("x = sizeof(({ return 1; 0; })); y;").statements().find("return"), std::string::npos);
}

TEST(StatementFlowTest, blocksInsideAreInTheirSurroundings) {
    const std::string text = "for (;;) { while (a) { if (b) { x; break; } else { continue; } } switch (c) { case 1: "
                             "goto L; default: return 0; } } L: ;";
    EXPECT_EQ(FlowOf(text).statementsOf("{while a}"), "{while a}: if b, ^<while a>\n"
                                                      "if b: +{if b}, -{else of b}\n"
                                                      "{if b}: x, {while a}\n"
                                                      "x: break\n"
                                                      "break: @<switch c>\n"
                                                      "{else of b}: continue, {while a}\n"
                                                      "continue: ^<while a>\n");
    EXPECT_EQ(FlowOf(text).statementsOf("{if b}"), "{if b}: x, <{while a}>\n"
                                                   "x: break\n"
                                                   "break: @<switch c>\n");
    EXPECT_EQ(FlowOf(text).statementsOf("{switch c}"), "{switch c}: <{for }>\n"
                                                       "case 1: goto L\n"
                                                       "goto L: @<L:>\n"
                                                       "default: return 0\n"
                                                       "return 0: @END\n");
    EXPECT_EQ(FlowOf("x = ({ { y; } z; });").statementsOf("{}#2"), "{}#2: {}#3, <x = ({})>\n"
                                                                   "{}#3: y, z\n"
                                                                   "y: {}#3\n"
                                                                   "z: {}#2\n");
    EXPECT_EQ(FlowOf("while (a) {} x;").statementsOf("{while a}"), "{while a}:\n");
    // Only here the block of an else-if is there.
    EXPECT_EQ(FlowOf("if (a) x; else if (b) y; z;").statementsOf("{else of a}"), "{else of a}: if b, <z>\n"
                                                                                 "if b: +{if b}, -{else of a}\n"
                                                                                 "{if b}: y, {else of a}\n"
                                                                                 "y: {if b}\n");
}

TEST(StatementFlowTest, declarationsAreStatements) {
    EXPECT_EQ(FlowOf("int v = 1, w; typedef int T; extern int e; static int s = 2; v;").statements(),
              "{}: declare v, END\n"
              "declare v: declare T\n"
              "declare T: declare e\n"
              "declare e: declare s\n"
              "declare s: v\n"
              "v: {}\n");
}

} // namespace

} // namespace Kova::Test
