// SPDX-License-Identifier: MIT
// Programs that nobody should write: nothing may go wrong, and it must not take long.
#include "tests/controlflow/FlowOf.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace Kova::Test {

namespace {

std::string repeated(const std::string& text, int times) {
    std::string result;
    for (int i = 0; i < times; ++i)
        result += text;
    return result;
}

long countOf(const std::string& text, const std::string& part) {
    long count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

long linesOf(const std::string& text) {
    return std::count(text.begin(), text.end(), '\n');
}

TEST(HostileFlowTest, nothingAtAll) {
    EXPECT_EQ(FlowOf("").statements(), "{}:\n");
    EXPECT_EQ(FlowOf("").blocks(), "entry: exit\nexit\n");
    EXPECT_EQ(FlowOf(";").statements(), "{}: ;, END\n;: {}\n");
    EXPECT_EQ(FlowOf("{}").statements(), "{}: {}#2, END\n{}#2: {}\n");
}

TEST(HostileFlowTest, jumpsThatNeverEnd) {
    EXPECT_EQ(FlowOf("L: goto L;").statements(), "{}: L:, END\nL:: goto L\ngoto L: @L:\n");
    EXPECT_EQ(FlowOf("L: goto M; M: goto L;").from("goto M"), ": @M:");
    EXPECT_EQ(FlowOf("for (;;);").statements(), "{}: for , END\nfor : +{for }\n{for }: ;, ^for \n;: {for }\n");
    EXPECT_EQ(FlowOf("do continue; while (1);").from("continue"), ": @do 1");
}

TEST(HostileFlowTest, aThousandLevelsOfStatements) {
    // Each level has a statement and a block; the blocks alone have one.
    EXPECT_EQ(linesOf(FlowOf(repeated("{", 1000) + "x;" + repeated("}", 1000)).statements()), 1002);
    EXPECT_EQ(linesOf(FlowOf(repeated("if (a) ", 1000) + "x;").statements()), 2002);
    EXPECT_EQ(linesOf(FlowOf(repeated("while (a) ", 1000) + "x;").statements()), 2002);
    const FlowOf loops(repeated("do ", 1000) + "x;" + repeated(" while (a);", 1000));
    EXPECT_EQ(linesOf(loops.statements()), 2002);
    EXPECT_EQ(loops.from("x"), ": {do a}#1000");
    EXPECT_EQ(linesOf(loops.blocks()), 1002);
    EXPECT_EQ(linesOf(FlowOf(repeated("switch (a) case 1: ", 300) + "x;").statements()), 902);
    EXPECT_EQ(linesOf(FlowOf(repeated("if (a) x; else ", 2000) + "y;").statements()), 3 * 2000 + 3);
}

TEST(HostileFlowTest, aThousandLevelsOfExpressions) {
    EXPECT_EQ(FlowOf("x = " + repeated("(", 1000) + "a" + repeated(")", 1000) + ";").blocks(),
              "entry: 1\n1 [x = a]: exit\nexit\n");
    EXPECT_EQ(linesOf(FlowOf("x = " + repeated("(a && ", 1000) + "b" + repeated(")", 1000) + ";").blocks()), 1004);
    EXPECT_EQ(linesOf(FlowOf("if (" + repeated("!(a || ", 1000) + "b" + repeated(")", 1000) + ") x;").blocks()), 1004);
    EXPECT_EQ(linesOf(FlowOf("x = " + repeated("a ? b : ", 1000) + "c;").blocks()), 2004);
    EXPECT_EQ(linesOf(FlowOf("x = " + repeated("g(a && ", 500) + "b" + repeated(")", 500) + ";").blocks()), 1003);
    const FlowOf statements("x = " + repeated("({ a; ", 200) + "b;" + repeated(" });", 200));
    EXPECT_EQ(countOf(statements.blocks(), "[a]"), 200);
    EXPECT_EQ(countOf(statements.statements(), "\na"), 200);
}

TEST(HostileFlowTest, longExpressions) {
    EXPECT_EQ(linesOf(FlowOf("x = a" + repeated(" + a", 20'000) + ";").blocks()), 3);
    const FlowOf chain("if (a" + repeated(" && a", 5000) + ") x; y;");
    EXPECT_EQ(linesOf(chain.blocks()), 5001 + 4);
    EXPECT_EQ(countOf(chain.statements(), ": +{if"), 1);
}

TEST(HostileFlowTest, aSwitchOfFiveThousandLabels) {
    std::string labels;
    for (int i = 0; i < 5000; ++i)
        labels += "case " + std::to_string(i) + ": x; " + (i % 2 == 0 ? "break; " : "");
    const FlowOf flow("switch (a) { " + labels + " }");
    EXPECT_EQ(countOf(flow.from("switch a"), "@case"), 5000);
    EXPECT_EQ(countOf(flow.blocks(), "[x]"), 5000);
}

TEST(HostileFlowTest, everyJumpLeadsToEveryLabel) {
    std::string addresses;
    std::string code;
    for (int i = 0; i < 300; ++i) {
        addresses += "&&L" + std::to_string(i) + ", ";
        code += "L" + std::to_string(i) + ": x; goto *t[a]; ";
    }
    const FlowOf flow("static void *t[] = { " + addresses + "}; " + code);
    EXPECT_EQ(countOf(flow.statements(), "@L"), 300 * 300);
    EXPECT_EQ(countOf(flow.blocks(), "@"), 300 * 300);
}

TEST(HostileFlowTest, manyWaysThroughNothing) {
    // Every jump passes all the empty statements on its way to the next expression.
    const FlowOf flow(repeated("if (a) goto L; ", 1000) + "L: " + repeated(";", 1000) + " x;");
    EXPECT_EQ(linesOf(flow.blocks()), 1003);
    EXPECT_EQ(countOf(flow.statements(), "@L:"), 1000);
}

} // namespace

} // namespace Kova::Test
