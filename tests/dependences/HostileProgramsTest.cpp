// SPDX-License-Identifier: MIT
// Programs that nobody should write: nothing may go wrong, and no dependence that the program has may be missing.
#include "tests/dependences/ReadGraph.h"

#include <gtest/gtest.h>

using namespace Kova::Tests;

namespace {

/// The arrows of `void f(int n, int m, int s, double a[], double b[])` with the statements on lines of their own, from
/// line 2 on.
std::string arrows(const std::string& statements, const std::string& variable = "a",
                   const std::string& declarations = {}) {
    const std::string head = declarations + "void f(int n, int m, int s, double a[], double b[]) {\n";
    return ReadGraph(head + statements + "}\n").describe(variable);
}

bool has(const std::string& lines, const std::string& arrow) {
    return ("\n" + lines).find("\n" + arrow) != std::string::npos;
}

long countOf(const std::string& text, const std::string& part) {
    long count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

TEST(HostilePrograms, EmptyBlocksHaveNoArrows) {
    EXPECT_EQ(ReadGraph("void f(void) {}\n").describe(), "");
    EXPECT_EQ(ReadGraph("void f(void) { ; {} { ; } if (1) {} for (;;) {} while (1) {} }\n").describe(), "");
}

TEST(HostilePrograms, ProductsTooLargeAreNotLost) {
    // Both are a[0] in the first iteration.
    const std::string large = arrows("for (int i = 0; i < n; i++) {\n"
                                     "a[1000000000000000000 * i] = 1;\n"
                                     "a[2000000000000000000 * i] = 2; }\n");
    EXPECT_TRUE(has(large, "output 3:a[1000000000000000000 * i] -> 4:a[2000000000000000000 * i] by -1")) << large;
    // As numbers of 64 bits go: -1 and 18446744073709551615.
    const std::string literal = arrows("a[9223372036854775807] = 1;\n"
                                       "a[9223372036854775807] = 2;\n"
                                       "a[9223372036854775806] = 3;\n");
    EXPECT_EQ(literal, "output 2:a[9223372036854775807] -> 3:a[9223372036854775807] by -1 ()\n");
}

TEST(HostilePrograms, NumbersThatWrapAroundAreNotLost) {
    // The byte takes its values anew after 256 iterations.
    const std::string byte = arrows("for (int i = 0; i < 300; i++)\na[(unsigned char)i] = i;\n");
    EXPECT_TRUE(has(byte, "output 3:a[(unsigned char) i] -> 3:a[(unsigned char) i] by 1")) << byte;
    const std::string product = arrows("for (unsigned i = 0; i < 8; i++)\na[i * 2147483648u] = i;\n");
    EXPECT_TRUE(has(product, "output 3:a[i * 2147483648u] -> 3:a[i * 2147483648u] by 1")) << product;
    const std::string shift = arrows("for (int i = 0; i < 99; i++)\na[(n << i) & 7] = i;\n");
    EXPECT_TRUE(has(shift, "output 3:a[n << i & 7] -> 3:a[n << i & 7] by 1")) << shift;
}

TEST(HostilePrograms, DivisionsByZeroMeetAnything) {
    for (const char* subscript : {"i / 0", "i % 0", "i / (n - n)", "i % (1 - 1)"}) {
        const std::string found =
            arrows("for (int i = 0; i < n; i++) {\na[" + std::string(subscript) + "] = 1;\nb[i] = a[i]; }\n");
        EXPECT_TRUE(has(found, "flow 3:")) << subscript << ":\n" << found;
        EXPECT_TRUE(has(found, "anti 4:")) << subscript << ":\n" << found;
        EXPECT_TRUE(has(found, "output 3:")) << subscript << ":\n" << found;
        EXPECT_NE(found.find("assumed: subscript"), std::string::npos) << subscript << ":\n" << found;
    }
}

TEST(HostilePrograms, LoopsThatNeverRunHaveNoArrows) {
    for (const char* header : {"i = 5; i < 5", "i = 0; i > 0", "i = 0; 0", "i = n; i < n", "i = n; i != n"})
        EXPECT_EQ(arrows("int i; for (" + std::string(header) + "; i++)\na[i] = a[i - 1] + a[0];\n"), "") << header;
    EXPECT_EQ(arrows("while (0)\na[0] = a[0] + 1;\n"), "");
}

TEST(HostilePrograms, LoopsOfUnknownStepsHaveAllArrows) {
    // Without a step it is a[0] again and again.
    for (const char* step : {"i += 0", "i += s", "i -= s", "i = i * 2"}) {
        const std::string found = arrows("for (int i = 0; i < n; " + std::string(step) + ")\na[i] = a[0] + 1;\n");
        EXPECT_TRUE(has(found, "flow 3:a[i] -> 3:a[0] by 1")) << step << ":\n" << found;
        EXPECT_TRUE(has(found, "anti 3:a[0] -> 3:a[i] by -1 1")) << step << ":\n" << found;
        EXPECT_TRUE(has(found, "output 3:a[i] -> 3:a[i] by 1")) << step << ":\n" << found;
        EXPECT_EQ(countOf(found, " assumed: "), countOf(found, "\n")) << step << ":\n" << found;
    }
    // Where nothing steps at all, that is certain.
    EXPECT_EQ(arrows("for (int i = 0; i < n; n)\na[i] = a[0] + 1;\n"),
              "output 3:a[i] -> 3:a[i] by 1 (<) if n >= 1\n"
              "flow 3:a[i] -> 3:a[0] by 1 (<) if n >= 1\n"
              "anti 3:a[0] -> 3:a[i] by -1 1 (<=) if n >= 1\n");
}

TEST(HostilePrograms, JumpsIntoLoopsLeaveTheOrderOpen) {
    const std::string found = arrows("if (n) goto inside;\n"
                                     "for (int i = 0; i < m; i++) {\n"
                                     "a[0] = 1;\n"
                                     "inside:\n"
                                     "b[0] = a[0]; }\n");
    EXPECT_EQ(found, "output 4:a[0] -> 4:a[0] by (?) assumed: jump\n"
                     "flow 4:a[0] -> 6:a[0] by (?) assumed: jump\n"
                     "anti 6:a[0] -> 4:a[0] by (?) assumed: jump\n");
}

TEST(HostilePrograms, ShadowsAreOtherVariables) {
    const std::string found = arrows("int x; x = 1;\n"
                                     "{ int x; x = 2;\n"
                                     "a[0] = x; { double x; x = 3; } }\n"
                                     "a[1] = x;\n",
                                     "x");
    EXPECT_EQ(found, "flow 2:x -> 5:x by -1 ()\nflow 3:x -> 4:x by -1 ()\n");
}

TEST(HostilePrograms, AVariableOfABodyIsAnotherOneInEachIteration) {
    EXPECT_EQ(arrows("for (int i = 0; i < 9; i++) {\ndouble x; x = a[i];\nb[i] = x; }\n", "x"),
              "flow 3:x -> 4:x by -1 (0)\n");
}

TEST(HostilePrograms, RecursionMayDoWhatAnyCallMay) {
    const std::string found = ReadGraph("void f(int n, double a[]) {\n"
                                        "if (n == 0) return;\n"
                                        "a[n] = 1;\n"
                                        "f(n - 1, a);\n"
                                        "a[0] = a[1];\n"
                                        "}\n")
                                  .describe("a");
    for (const char* arrow : {"flow 3:a[n] -> 4:a", "output 3:a[n] -> 4:a", "flow 4:a -> 5:a[1]", "anti 4:a -> 5:a[0]",
                              "output 4:a -> 5:a[0]"})
        EXPECT_TRUE(has(found, arrow)) << arrow << " is not in\n" << found;
    // a[n] is a[1] where n is 1, which is certain; a[0] it is never, since n is not 0 there.
    EXPECT_TRUE(has(found, "flow 3:a[n] -> 5:a[1] by -1 () if n = 1\n")) << found;
    EXPECT_FALSE(has(found, "output 3:a[n] -> 5:a[0]")) << found;
}

TEST(HostilePrograms, BoundsTooFarAreNotLost) {
    const std::string found = arrows("for (long i = -9223372036854775807; i < 9223372036854775807; i++)\n"
                                     "a[i] = a[i - 1];\n");
    EXPECT_EQ(found, "flow 3:a[i] -> 3:a[i - 1] by 1 (1)\n");
    const std::string far = arrows("for (long i = 0; i < 4; i++)\n"
                                   "a[i + 9223372036854775800] = a[i + 9223372036854775799];\n");
    EXPECT_TRUE(has(far, "flow 3:")) << far;
}

TEST(HostilePrograms, NestsOfAnyDepthAreRead) {
    std::string open;
    std::string close;
    for (int i = 0; i < 20; ++i) {
        const std::string counter = "i" + std::to_string(i);
        open += "for (int " + counter + " = 0; " + counter + " < n; " + counter + "++) {\n";
        close += "}";
    }
    const std::string found = arrows(open + "a[i0] = a[i0] + 1;\n" + close + "\n");
    EXPECT_TRUE(has(found, "flow 22:a[i0] -> 22:a[i0]#2 by 2 3")) << found;
    EXPECT_TRUE(has(found, "output 22:a[i0] -> 22:a[i0] by 2 3")) << found;
    std::string blocks(600, '{');
    EXPECT_TRUE(has(arrows(blocks + "\na[0] = 1;\n" + std::string(600, '}') + "\nb[0] = a[0];\n"), "flow 3:a[0]"));
}

} // namespace
