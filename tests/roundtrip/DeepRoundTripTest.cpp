// SPDX-License-Identifier: MIT
// Programs in which one construct holds the next, five thousand deep.
#include "tests/frontends/c/Reading.h"
#include "tests/roundtrip/PrintedText.h"
#include "tests/roundtrip/RoundTrip.h"

#include <functional>

namespace Kova::Test {

namespace {

constexpr int depth = 5000;

std::string repeat(const std::string& text, int times = depth) {
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

std::string numbered(const std::function<std::string(const std::string&)>& make) {
    std::string all;
    for (int i = 0; i < depth; ++i)
        all += make(std::to_string(i));
    return all;
}

/// `beginbeginbegin` inner `endendend`
std::string nested(const std::string& begin, const std::string& inner, const std::string& end, int times = depth) {
    return repeat(begin, times) + inner + repeat(end, times);
}

std::string program(const std::string& statements, const std::string& declarations) {
    return "#include <stdio.h>\n" + declarations + "\nint main(void)\n{\nint x = 1, c = 1;\n" + statements +
           "\nprintf(\"%d %d\\n\", x, c);\nreturn 0;\n}\n";
}

std::string indent(int levels) {
    return std::string(static_cast<std::size_t>(4 * levels), ' ');
}

::testing::AssertionResult survives(const std::string& statements, const std::string& declarations = {}) {
    return textSurvivesRoundTrip(program(statements, declarations));
}

::testing::AssertionResult survivesAsValue(const std::string& value, const std::string& declarations = {}) {
    return survives("x = " + value + ";", declarations);
}

/// For what takes the compiler too long: read, printed, read and printed again. @param part must be in the text.
void expectToPrintTheSameAgain(const std::string& statements, const std::string& part) {
    const SourceFolder folder;
    const std::string text = printedFile(folder.write("a.c", program(statements, {})));
    EXPECT_NE(text.find(part), std::string::npos);
    // Failing, it would show hundreds of megabytes.
    EXPECT_TRUE(printedFile(folder.write("b.c", text)) == text);
}

} // namespace

TEST(DeepRoundTripTest, parentheses) {
    EXPECT_TRUE(survivesAsValue(nested("(", "x", ")")));
    const SourceFolder folder;
    const std::string text = printedFile(folder.write("a.c", program("x = " + nested("(", "c", ")") + ";", {})));
    EXPECT_NE(text.find("    x = c;\n"), std::string::npos);
}

TEST(DeepRoundTripTest, operators) {
    EXPECT_TRUE(survivesAsValue(nested("1 - (", "x", ")")));
    EXPECT_TRUE(survivesAsValue("x" + repeat(" - 1")));
    EXPECT_TRUE(survivesAsValue(nested("(", "x", " ^ 3)")));
    EXPECT_TRUE(survivesAsValue(nested("~", "x", "")));
    EXPECT_TRUE(survivesAsValue(nested("- ", "x", "")));
    EXPECT_TRUE(survivesAsValue(nested("*&", "x", "")));
    EXPECT_TRUE(survivesAsValue(nested("__extension__ ", "x", "")));
    EXPECT_TRUE(survives(repeat("x = ") + "3;", "#pragma GCC diagnostic ignored \"-Wsequence-point\""));
    EXPECT_TRUE(survivesAsValue("(" + repeat("c = 2, ") + "x)"));
}

TEST(DeepRoundTripTest, callsCastsAndAccesses) {
    EXPECT_TRUE(survivesAsValue(nested("f(", "x", ")"), "static int f(int a) { return a + 1; }"));
    EXPECT_TRUE(survivesAsValue(nested("(int) ", "x", "")));
    EXPECT_TRUE(survivesAsValue(nested("(int) (", "x", ")")));
    EXPECT_TRUE(survivesAsValue(nested("a[", "x", "]"), "static int a[9] = { 1, 2, 3, 4, 5, 6, 7, 8, 0 };"));
    EXPECT_TRUE(survivesAsValue("p" + repeat("->n") + "->v",
                                "struct s { struct s *n; int v; }; static struct s o = { &o, 3 }, *p = &o;"));
    EXPECT_TRUE(survivesAsValue(nested("(int) sizeof(", "x", ")")));
    EXPECT_TRUE(survivesAsValue(nested("(int) { ", "x", " }")));
    EXPECT_TRUE(survivesAsValue(nested("_Generic(1, int: ", "x", ")")));
    EXPECT_TRUE(survivesAsValue("(int) sizeof(" + repeat("\"a\" ") + ")"));
}

TEST(DeepRoundTripTest, choices) {
    EXPECT_TRUE(survivesAsValue(nested("c ? ", "x", " : 0")));
    expectToPrintTheSameAgain("x = " + numbered([](const std::string& i) { return "c == " + i + " ? x : "; }) + "7;",
                              " ? x : c == 4999 ? x : 7;\n");
    expectToPrintTheSameAgain("x = " + nested("(", "x", " ? 2 : c)") + ";", "x = ((((");
    expectToPrintTheSameAgain("x = " + repeat("x ?: ") + "7;", " ?: x ?: 7;\n");
}

TEST(DeepRoundTripTest, types) {
    EXPECT_TRUE(survives("x = p == 0;", "static int " + repeat("*") + "p;"));
    EXPECT_TRUE(survives("x = p == 0;", "static int " + nested("(*", "p", ")(void)") + ";"));
    EXPECT_TRUE(survives("x = (int) sizeof p;", "static char p" + repeat("[1]") + ";"));
    EXPECT_TRUE(survives("t5000 y = 3; x = y;", "typedef int t0;" + numbered([](const std::string& i) {
                                                    return "typedef t" + i + " t" + std::to_string(std::stoi(i) + 1) +
                                                           ";";
                                                })));
}

TEST(DeepRoundTripTest, blocks) {
    EXPECT_TRUE(survives(nested("{ ", "x++;", "}")));
}

TEST(DeepRoundTripTest, structures) {
    // The lines of one more level are as long as all levels are deep: this many take a second.
    constexpr int levels = 1000;
    EXPECT_TRUE(survives("x = o" + repeat(".m", levels) + ".v;",
                         "static struct s { " + nested("struct { ", "int v;", "} m; ", levels) + "} o;"));
}

TEST(DeepRoundTripTest, branches) {
    expectToPrintTheSameAgain(repeat("if (c) ") + "x++;", "\n" + indent(depth + 1) + "x++;\n");
    expectToPrintTheSameAgain(nested("switch (1) { case 1: ", "x++;", "}"), "\n" + indent(depth + 1) + "x++;\n");
    expectToPrintTheSameAgain(numbered([](const std::string& i) { return "if (x == " + i + ") x = 3; else "; }) +
                                  "x = 7;",
                              "\n    else if (x == 4999)\n");
    EXPECT_TRUE(
        survives("switch (x) {" + numbered([](const std::string& i) { return "case " + i + ": "; }) + "x++; }"));
}

TEST(DeepRoundTripTest, loops) {
    expectToPrintTheSameAgain(nested("do { ", "x++;", "} while (0);"), "\n" + indent(depth + 1) + "x++;\n");
    expectToPrintTheSameAgain(repeat("for (int i = 0; i < 1; i++) ") + "x++;", "\n" + indent(depth + 1) + "x++;\n");
    expectToPrintTheSameAgain(repeat("while (c) ") + "x++;", "\n" + indent(depth + 1) + "x++;\n");
}

TEST(DeepRoundTripTest, statementsInExpressions) {
    EXPECT_TRUE(survivesAsValue(nested("({ ", "x", "; })")));
}

} // namespace Kova::Test
