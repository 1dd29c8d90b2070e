// SPDX-License-Identifier: MIT
#include "tests/dependences/ModelOf.h"

#include <gtest/gtest.h>

namespace {

using namespace Kova::Test;
using DepGraph::Doubt;

TEST(AccessModelLoops, CountsIterationsFromZero) {
    const ModelOf of("int n, double a[]", "for (int i = 1; i < n - 1; i++) a[i] = a[i - 1];");
    EXPECT_TRUE(writes(of, "a0", "[n] -> { [k] : 0 <= k <= n - 3 }", {"{ [k] -> [k + 1] }"}));
    EXPECT_TRUE(reads(of, "a1", "[n] -> { [k] : 0 <= k <= n - 3 }", {"{ [k] -> [k] }"}));
    EXPECT_EQ(of.words(), "n0 r, a0 w, a1 r");
}

struct Header {
    const char* text;
    const char* domain;
    const char* counter;
};

TEST(AccessModelLoops, ReadsHeaders) {
    const Header headers[] = {
        {"i = 0; i <= n; ++i", "[n] -> { [k] : 0 <= k <= n }", "{ [k] -> [k] }"},
        {"i = 0; n > i; i++", "[n] -> { [k] : 0 <= k < n }", "{ [k] -> [k] }"},
        {"i = n; i > 0; i--", "[n] -> { [k] : 0 <= k < n }", "[n] -> { [k] -> [n - k] }"},
        {"i = n; i >= 0; --i", "[n] -> { [k] : 0 <= k <= n }", "[n] -> { [k] -> [n - k] }"},
        {"i = 0; i < n; i += 3", "[n] -> { [k] : 0 <= 3k < n }", "{ [k] -> [3k] }"},
        {"i = 1; i < n; i = i + 2", "[n] -> { [k] : 0 <= k and 2k + 1 < n }", "{ [k] -> [2k + 1] }"},
        {"i = 1; i < n; i = 2 + i", "[n] -> { [k] : 0 <= k and 2k + 1 < n }", "{ [k] -> [2k + 1] }"},
        {"i = n; i > m; i -= 2", "[n, m] -> { [k] : 0 <= k and n - 2k > m }", "[n] -> { [k] -> [n - 2k] }"},
        {"i = n; i > m; i = i - 4", "[n, m] -> { [k] : 0 <= k and n - 4k > m }", "[n] -> { [k] -> [n - 4k] }"},
        {"i = 0; i < 10; i -= -2", "{ [k] : 0 <= k <= 4 }", "{ [k] -> [2k] }"},
        // Without meeting its end it goes on and on.
        {"i = 0; i != 6; i += 2", "{ [k] : 0 <= k <= 2 }", "{ [k] -> [2k] }"},
        {"i = 0; i != n; i++", "[n] -> { [k] : 0 <= k and (n < 0 or k < n) }", "{ [k] -> [k] }"},
        {"i = 0; i != 5; i += 2", "{ [k] : k >= 0 }", "{ [k] -> [2k] }"},
        // The first failure ends a loop, even if the condition would hold again.
        {"i = 0; i < n || i == 2 * n; i++", "[n] -> { [k] : 0 <= k < n; [k = 0] : n = 0 }", "{ [k] -> [k] }"},
        {"i = 0; i < n && i < m; i++", "[n, m] -> { [k] : 0 <= k < n and k < m }", "{ [k] -> [k] }"},
        {"i = 0; !(i >= n); i++", "[n] -> { [k] : 0 <= k < n }", "{ [k] -> [k] }"},
        {"i = n / 2; i * 2 < n + 6; i++",
         "[n] -> { [k] : 0 <= k and n >= 0 and 2k + 2*floor(n/2) < n + 6;"
         "[k] : 0 <= k and n < 0 and 2k - 2*floor(-n/2) < n + 6 }",
         "[n] -> { [k] -> [k + floor(n/2)] : n >= 0; [k] -> [k - floor(-n/2)] : n < 0 }"},
        {"i = 0; n > 3; i++", "[n] -> { [k] : k >= 0 and n > 3 }", "{ [k] -> [k] }"},
    };
    for (const Header& header : headers) {
        const ModelOf of("int n, int m, double a[]", "int i; for (" + std::string(header.text) + ") a[i] = 0;");
        EXPECT_TRUE(writes(of, "a0", header.domain, {header.counter})) << header.text;
    }
}

TEST(AccessModelLoops, MayNeverRun) {
    for (const char* header :
         {"i = 5; i < 5; i++", "i = 0; i > 3; i++", "i = 3; i != 3; i++", "i = 0; 0; i++", "i = n; i < n - 1; i++"}) {
        const ModelOf of("int n, double a[]", "int i; for (" + std::string(header) + ") a[3] = 0;");
        EXPECT_TRUE(writes(of, "a0", "{ [k] : false }", {"{ [k] -> [3] }"})) << header;
    }
}

TEST(AccessModelLoops, AreNested) {
    const ModelOf of("int n, double a[][50]", "for (int i = 0; i < n; i++) {\n"
                                              "  a[i][i] = 1;\n"
                                              "  for (int j = i + 1; j < n; j++) a[i][j] = a[j][i];\n"
                                              "}\n"
                                              "a[0][0] = 2;");
    EXPECT_TRUE(writes(of, "a0", "[n] -> { [i] : 0 <= i < n }", {"{ [i] -> [i] }", "{ [i] -> [i] }"}));
    const char* inner = "[n] -> { [i, k] : 0 <= i < n and 0 <= k and i + 1 + k < n }";
    EXPECT_TRUE(writes(of, "a1", inner, {"{ [i, k] -> [i] }", "{ [i, k] -> [i + k + 1] }"}));
    EXPECT_TRUE(reads(of, "a2", inner, {"{ [i, k] -> [i + k + 1] }", "{ [i, k] -> [i] }"}));
    EXPECT_TRUE(writes(of, "a3", "{ [] }", {"{ [] -> [0] }", "{ [] -> [0] }"}));

    const DepGraph::Access& first = *of.findAll("a0", true).front();
    const DepGraph::Access& second = *of.findAll("a1", true).front();
    ASSERT_EQ(second.loops.size(), 2u);
    EXPECT_EQ(first.loops.front(), second.loops.front());
    ASSERT_EQ(second.positions.size(), 3u);
    EXPECT_EQ(first.positions.size(), 2u);
    EXPECT_EQ(first.positions[0], second.positions[0]);
    EXPECT_LT(first.positions[1], second.positions[1]);
    EXPECT_LT(second.positions[0], of.findAll("a3", true).front()->positions[0]);
}

TEST(AccessModelLoops, TestOnceMoreThanTheyRun) {
    const ModelOf of("int n, int m", "for (int i = 0; i < n && m; i++);");
    EXPECT_TRUE(reads(of, "n0", "[n, m] -> { [k] : 0 <= k <= n and m != 0; [0] }"));
    EXPECT_TRUE(reads(of, "m0", "[n, m] -> { [k] : 0 <= k < n and m != 0; [0] : n > 0 }"));
}

TEST(AccessModelLoops, MayHaveTwoCounters) {
    const ModelOf of("int n, double a[]", "int i, j; for (i = 0, j = n; i < j; i++, j -= 2) a[i] = a[j];");
    EXPECT_TRUE(writes(of, "a0", "[n] -> { [k] : 0 <= k and 3k < n }", {"{ [k] -> [k] }"}));
    EXPECT_TRUE(reads(of, "a1", "[n] -> { [k] : 0 <= k and 3k < n }", {"[n] -> { [k] -> [n - 2k] }"}));
    EXPECT_EQ(of.words(), "n0 r, a0 w, a1 r");
    const ModelOf both("double a[]", "int i, j; for (i = j = 2; i < 4; i++, j++) a[j] = 0;");
    EXPECT_TRUE(writes(both, "a0", "{ [k] : 0 <= k < 2 }", {"{ [k] -> [k + 2] }"}));
}

TEST(AccessModelLoops, HaveConstantsInAllForms) {
    const ModelOf of("double a[]",
                     "const int w = 3; enum { E = 2 };\n"
                     "for (int i = 0x1F; i < 'A'; i += M) a[i] = 0;\n"
                     "for (int i = 010; i < N; i += w) a[i] = 0;\n"
                     "for (int i = E; i < sizeof b / sizeof b[0]; i++) a[i] = 0;\n"
                     "for (long i = 5L; i < 0b111u; i++) a[i] = 0;",
                     "#define M 2\n#define N (M * 10 + 1)\nstatic int b[7];");
    EXPECT_TRUE(writes(of, "a0", "{ [k] : 0 <= k and 31 + 2k < 65 }", {"{ [k] -> [31 + 2k] }"}));
    EXPECT_TRUE(writes(of, "a1", "{ [k] : 0 <= k and 8 + 3k < 21 }", {"{ [k] -> [8 + 3k] }"}));
    EXPECT_TRUE(writes(of, "a2", "{ [k] : 0 <= k and 2 + k < 7 }", {"{ [k] -> [2 + k] }"}));
    EXPECT_TRUE(writes(of, "a3", "{ [k] : 0 <= k and 5 + k < 7 }", {"{ [k] -> [5 + k] }"}));
}

TEST(AccessModelLoops, KnowTheirCounterThoughNotTheirEnd) {
    const ModelOf of("int n, double a[], double x", "for (int i = 0; i < n && a[i] < x; i++) a[i] = 0;\n"
                                                    "for (int i = 2; a[i] < x; i++) a[i] = 0;\n"
                                                    "for (int i = 0; ; i += 2) { a[i] = 0; if (a[i] > x) break; }");
    EXPECT_TRUE(writes(of, "a1", "[n] -> { [k] : 0 <= k < n }", {"{ [k] -> [k] }"}, Doubt::Bounds));
    EXPECT_TRUE(reads(of, "a0", "[n] -> { [k] : 0 <= k < n }", {"{ [k] -> [k] }"}, Doubt::Bounds));
    EXPECT_TRUE(writes(of, "a3", "{ [k] : 0 <= k }", {"{ [k] -> [k + 2] }"}, Doubt::Bounds));
    EXPECT_TRUE(writes(of, "a4", "{ [k] : 0 <= k }", {"{ [k] -> [2k] }"}, Doubt::Bounds));
}

TEST(AccessModelLoops, OfUnknownStepAreAssumed) {
    for (const char* step : {"i += s", "i *= 2", "i += 0", "i -= 0", "i = n - i", "i = 1", "s++", "i++, i++", ""}) {
        const ModelOf of("int n, int s, double a[]", "int i; for (i = 0; i < n; " + std::string(step) + ") a[i] = 0;");
        EXPECT_TRUE(writes(of, "a0", "{ [k] : 0 <= k }", {"?"}, Doubt::Subscript)) << step;
        EXPECT_TRUE(readsWith(of, "i1", Doubt::Bounds)) << step;
        EXPECT_TRUE(writesWith(of, "i0", Doubt::None)) << step;
    }
}

TEST(AccessModelLoops, WhoseCounterOrEndChangesAreAssumed) {
    for (const char* body :
         {"i = 3;", "i++;", "if (n) i += 2;", "g(&i);", "for (i = 0; i < 3; i++);", "n--;", "g(&n);"}) {
        const ModelOf of("int n, double a[]", "int i; for (i = 0; i < n; i++) { a[2] = 0; " + std::string(body) + " }",
                         "void g(int *);");
        EXPECT_TRUE(writes(of, "a0", "{ [k] : 0 <= k }", {"{ [k] -> [2] }"}, Doubt::Bounds)) << body;
    }
    // The step decides the same as the counter itself.
    const ModelOf step("int n, int s, double a[]", "int i; for (i = 0; i < n; i += s) { a[2] = 0; s = 1; }");
    EXPECT_TRUE(writesWith(step, "a0", Doubt::Bounds));
}

TEST(AccessModelLoops, WithoutIntegersToCountAreAssumed) {
    const ModelOf of("int n, double *a, double x", "for (x = 0; x < n; x += 1) a[0] = 0;\n"
                                                   "for (double *p = a; p < a + n; p++) *p = 0;\n");
    EXPECT_TRUE(writes(of, "a0", "{ [k] : 0 <= k }", {"{ [k] -> [0] }"}, Doubt::Bounds));
    EXPECT_TRUE(readsWith(of, "x1", Doubt::Bounds));
    EXPECT_TRUE(writes(of, "p2", "{ [k] : 0 <= k }", {}, Doubt::Pointer));
}

TEST(AccessModelLoops, OfOtherKindsHaveAnyNumberOfIterations) {
    const ModelOf of("int n, double a[]", "while (n > 0) { a[0] = 1; n--; }\n"
                                          "do a[1] = 1; while (a[1] < 5);\n"
                                          "for (;;) { a[2] = 1; if (a[2] > 5) break; }");
    for (const char* word : {"a0", "a1", "a3"})
        EXPECT_TRUE(writesWith(of, word, Doubt::Bounds)) << word;
    EXPECT_TRUE(reads(of, "n0", "{ [k] : k >= 0 }", {}, Doubt::Bounds));
    EXPECT_TRUE(writes(of, "n1", "{ [k] : k >= 0 }", {}, Doubt::Bounds));
    EXPECT_LT(of.findAll("a1", true)[0]->positions[1], of.findAll("a2", false)[0]->positions[1]);
}

TEST(AccessModelLoops, WithConstantConditionsAreKnown) {
    const ModelOf of("int n, double a[]", "do { a[0] = n; } while (0);\n"
                                          "while (0) a[1] = n;\n"
                                          "a[2] = n;");
    EXPECT_TRUE(writes(of, "a0", "{ [0] }", {"{ [k] -> [0] }"}));
    EXPECT_TRUE(writes(of, "a1", "{ [k] : false }", {"{ [k] -> [1] }"}));
    EXPECT_TRUE(writes(of, "a2", "{ [] }", {"{ [] -> [2] }"}));
}

TEST(AccessModelLoops, ThatNeverEndLeaveADoubtBehind) {
    const ModelOf of("int n, double a[]", "if (n) { for (;;) a[0] = 0; }\na[1] = 0;");
    EXPECT_TRUE(writes(of, "a1", "{ [] }", {"{ [] -> [1] }"}, Doubt::Bounds));
}

TEST(AccessModelLoops, CountUnsignedNumbers) {
    const ModelOf of("unsigned n, double a[]", "for (unsigned i = 0; i < n; i++) a[i] = 0;\n"
                                               "for (unsigned i = n; i > 0; i--) a[i - 1] = 0;\n"
                                               "for (unsigned long i = 9; i != 1; i -= 2) a[i] = 0;");
    EXPECT_TRUE(writes(of, "a0", "[n] -> { [k] : 0 <= k < n }", {"{ [k] -> [k] }"}));
    EXPECT_TRUE(writes(of, "a1", "[n] -> { [k] : 0 <= k < n }", {"[n] -> { [k] -> [n - k - 1] }"}));
    EXPECT_TRUE(writes(of, "a2", "{ [k] : 0 <= k < 4 }", {"{ [k] -> [9 - 2k] }"}));
}

TEST(AccessModelLoops, ThatWrapAroundAreAssumed) {
    for (const char* header :
         {"unsigned i = n; i >= 0; i--", "unsigned i = n; i > 0; i -= 2", "unsigned i = n - 1; i > 0; i--",
          "unsigned i = 7; i != 0; i -= 2", "unsigned char i = 0; i < 300; i++", "short i = 0; i < m; i++",
          "unsigned i = -1; i > 5; i--", "unsigned short i = m; i > 0; i--"}) {
        const ModelOf of("unsigned n, int m, double a[]", "for (" + std::string(header) + ") a[i] = 0;");
        EXPECT_TRUE(writes(of, "a0", "{ [k] : 0 <= k }", {"?"}, Doubt::Subscript)) << header;
        EXPECT_EQ(of.findAll("a0", true).front()->domain.is_empty(), false);
    }
    const ModelOf narrow("double a[]", "for (unsigned char i = 0; i < 200; i++) a[i] = 0;\n"
                                       "for (signed char i = 100; i > -100; i -= 10) a[i] = 0;");
    EXPECT_TRUE(writes(narrow, "a0", "{ [k] : 0 <= k < 200 }", {"{ [k] -> [k] }"}));
    EXPECT_TRUE(writes(narrow, "a1", "{ [k] : 0 <= k < 20 }", {"{ [k] -> [100 - 10k] }"}));
}

TEST(AccessModelLoops, ExplainTheirCounters) {
    const ModelOf of("int n, double a[]", "int i, j;\n"
                                          "for (i = 0; i < n; i++) for (j = i; j < n; j++) a[i + j] = i;\n"
                                          "for (i = n; i > 0; i--) a[i] = a[i - 1];");
    EXPECT_EQ(of.words(), "n0 r, n1 r, a0 w, n2 r, a1 w, a2 r");
}

TEST(AccessModelLoops, CountersThatAreUsedElsewhereAreData) {
    const ModelOf of("int n, double a[]", "int i; for (i = 0; i < n; i++) a[i] = 0; a[n] = i;");
    EXPECT_TRUE(writes(of, "a0", "[n] -> { [k] : 0 <= k < n }", {"{ [k] -> [k] }"}));
    EXPECT_TRUE(writes(of, "i0", "{ [] }"));
    EXPECT_TRUE(reads(of, "i1", "[n] -> { [k] : 0 <= k <= n; [0] }"));
    EXPECT_TRUE(reads(of, "i2", "[n] -> { [k] : 0 <= k < n }"));
    EXPECT_TRUE(writes(of, "i2", "[n] -> { [k] : 0 <= k < n }"));
    EXPECT_TRUE(reads(of, "i3", "[n] -> { [k] : 0 <= k < n }"));
    EXPECT_TRUE(reads(of, "i4", "{ [] }"));
}

TEST(AccessModelLoops, OneCounterForTwoNestedLoopsIsData) {
    const ModelOf of("int n, double a[]", "int i; for (i = 0; i < n; i++) for (i = 0; i < 4; i++) a[i] = 0;");
    EXPECT_TRUE(writes(of, "a0", "{ [o, k] : 0 <= o and 0 <= k < 4 }", {"{ [o, k] -> [k] }"}, Doubt::Bounds));
    EXPECT_TRUE(writesWith(of, "i3", Doubt::Bounds));
}

TEST(AccessModelLoops, OuterCountersAreUnknownsOfABody) {
    const ModelOf of("int n, double a[]", "for (int i = 0; i < n; i++) { a[i] = 0; for (int j = i; j < n; j++); }",
                     ModelOf::Part::BodyOfFirstLoop);
    EXPECT_TRUE(writes(of, "a0", "{ [] }", {"[i] -> { [] -> [i] }"}));
    EXPECT_TRUE(reads(of, "i0", "{ [] }"));
    EXPECT_TRUE(reads(of, "i1", "{ [] }"));
    EXPECT_TRUE(reads(of, "n0", "[n, i] -> { [k] : 0 <= k <= n - i; [0] }"));
}

TEST(AccessModelLoops, InTheirIncrementCountersMoveOn) {
    const ModelOf of("int n, double a[]", "int i; for (i = 0; i < n; i++, a[i] = 0) a[i] = 1;");
    EXPECT_TRUE(writes(of, "a0", "[n] -> { [k] : 0 <= k < n }", {"?"}, Doubt::Subscript));
    EXPECT_TRUE(writes(of, "a1", "[n] -> { [k] : 0 <= k < n }", {"{ [k] -> [k] }"}));
    EXPECT_LT(of.findAll("a1", true)[0]->positions[1], of.findAll("a0", true)[0]->positions[1]);
}

} // namespace
