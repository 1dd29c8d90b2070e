// SPDX-License-Identifier: MIT
#include "tests/dependences/ModelOf.h"

#include <gtest/gtest.h>

namespace {

using namespace Kova::Test;
using DepGraph::Doubt;

TEST(AccessModelConditions, SplitIterations) {
    const ModelOf of("int n, double a[]",
                     "for (int i = 0; i < n; i++) {\n"
                     "  if (i < 5) a[0] = 0; else if (i > 7) a[1] = 0; else { if (i == 6) a[2] = 0; a[3] = 0; }\n"
                     "  a[4] = 0;\n"
                     "}");
    EXPECT_TRUE(writes(of, "a0", "[n] -> { [i] : 0 <= i < n and i < 5 }", {"{ [i] -> [0] }"}));
    EXPECT_TRUE(writes(of, "a1", "[n] -> { [i] : 8 <= i < n }", {"{ [i] -> [1] }"}));
    EXPECT_TRUE(writes(of, "a2", "[n] -> { [6] : n > 6 }", {"{ [i] -> [2] }"}));
    EXPECT_TRUE(writes(of, "a3", "[n] -> { [i] : 5 <= i <= 7 and i < n }", {"{ [i] -> [3] }"}));
    EXPECT_TRUE(writes(of, "a4", "[n] -> { [i] : 0 <= i < n }", {"{ [i] -> [4] }"}));
}

struct Condition {
    const char* text;
    const char* whereTrue;
};

TEST(AccessModelConditions, AreReadExactly) {
    const Condition conditions[] = {
        {"n < m", "n < m"},
        {"n <= m + 1", "n <= m + 1"},
        {"n > 2 * m", "n > 2m"},
        {"n >= 0 && m >= 0", "n >= 0 and m >= 0"},
        {"n < 0 || m < 0", "n < 0 or m < 0"},
        {"!(n < 0 || m < 0)", "n >= 0 and m >= 0"},
        {"n", "n != 0"},
        {"!n", "n = 0"},
        {"n - m", "n != m"},
        {"n == m", "n = m"},
        {"n != m", "n != m"},
        {"n % 2 == 0", "exists (e : n = 2e)"},
        {"n & 1", "exists (e : n = 2e + 1)"},
        {"n % 3 == -1", "n < 0 and exists (e : n = 3e - 1)"},
        {"n / 2 == 1", "2 <= n <= 3"},
        {"n / 2 == 0", "-1 <= n <= 1"},
        {"n > 0 ? m > 0 : m < 0", "(n > 0 and m > 0) or (n <= 0 and m < 0)"},
        {"(n < m) == 1", "n < m"},
        {"(n < m) + (n < 0) == 2", "n < m and n < 0"},
        {"(n > 3) != (m > 3)", "(n > 3 and m <= 3) or (n <= 3 and m > 3)"},
        {"n >= 'a' && n <= 'z'", "97 <= n <= 122"},
        {"(0, n > 1)", "n > 1"},
        {"n << 2 > m", "4n > m"},
        {"1", "0 = 0"},
        {"1 > 2", "0 = 1"},
        {"(_Bool)n && m == 1", "n != 0 and m = 1"},
        {"__extension__ (n > 2)", "n > 2"},
        {"_Generic(n, int: n > 2, default: n > 5)", "n > 2"},
    };
    for (const Condition& condition : conditions) {
        const ModelOf of("int n, int m, double a[]",
                         "if (" + std::string(condition.text) + ") a[0] = 0; else a[1] = 0; a[2] = 0;");
        const std::string where = "[n, m] -> { [] : " + std::string(condition.whereTrue) + " }";
        EXPECT_TRUE(writes(of, "a0", where, {"{ [] -> [0] }"})) << condition.text;
        EXPECT_TRUE(
            writes(of, "a1", "[n, m] -> { [] : not (" + std::string(condition.whereTrue) + ") }", {"{ [] -> [1] }"}))
            << condition.text;
        EXPECT_TRUE(writes(of, "a2", "{ [] }", {"{ [] -> [2] }"})) << condition.text;
    }
}

TEST(AccessModelConditions, ThatAreNotAffineAreAssumed) {
    for (const char* text :
         {"x > 0",     "*p > 0",       "n * m > 0", "g(n)",   "n / m",      "n ^ m",
          "p",         "p == q",       "~n > 3",    "n >> 1", "n % m == 0", "s",
          "n > x",     "(char)n == 3", "1 / 0",     "n & 5",  "n << m",     "n > 99999999999999999999",
          "u - 3 > 5", "n < u",        "-u > 3"}) {
        const ModelOf of("int n, int m, unsigned u, double x, double a[], char *p, char *q",
                         "int s = 0; s += g(0); if (" + std::string(text) + ") a[1] = 0; else a[2] = 0; a[3] = 0;",
                         "int g(int);");
        EXPECT_TRUE(writes(of, "a0", "{ [] }", {"{ [] -> [1] }"}, Doubt::Condition)) << text;
        EXPECT_TRUE(writes(of, "a1", "{ [] }", {"{ [] -> [2] }"}, Doubt::Condition)) << text;
        // Whoever goes in comes out.
        EXPECT_TRUE(writes(of, "a2", "{ [] }", {"{ [] -> [3] }"})) << text;
    }
}

TEST(AccessModelConditions, KeepWhatTheyKnow) {
    const ModelOf of("int n, double a[]", "if (n > 3 && a[0] > 0) a[1] = 0; else a[2] = 0;\n"
                                          "if (n > 3 || a[0] > 0) a[3] = 0; else a[4] = 0;");
    EXPECT_TRUE(writes(of, "a1", "[n] -> { [] : n > 3 }", {"{ [] -> [1] }"}, Doubt::Condition));
    EXPECT_TRUE(writes(of, "a2", "{ [] }", {"{ [] -> [2] }"}, Doubt::Condition));
    EXPECT_TRUE(writes(of, "a4", "{ [] }", {"{ [] -> [3] }"}, Doubt::Condition));
    EXPECT_TRUE(writes(of, "a5", "[n] -> { [] : n <= 3 }", {"{ [] -> [4] }"}, Doubt::Condition));
    EXPECT_TRUE(reads(of, "a0", "[n] -> { [] : n > 3 }", {"{ [] -> [0] }"}));
    EXPECT_TRUE(reads(of, "a3", "[n] -> { [] : n <= 3 }", {"{ [] -> [0] }"}));
}

TEST(AccessModelConditions, OfUnsignedNumbersMustNotGoBelowZero) {
    const ModelOf of("unsigned u, int n, double a[]", "if (u > 3) a[0] = 0;\n"
                                                      "if (u >= 5 && u - 5 < 3) a[1] = 0;\n"
                                                      "if (n >= 0 && n < u) a[2] = 0;\n"
                                                      "if (u / 2 == 1) a[3] = 0;\n"
                                                      "if (u + 1 > 4) a[4] = 0;");
    EXPECT_TRUE(writes(of, "a0", "[u] -> { [] : u > 3 }", {"{ [] -> [0] }"}));
    EXPECT_TRUE(writes(of, "a1", "[u] -> { [] : 5 <= u < 8 }", {"{ [] -> [1] }"}));
    EXPECT_TRUE(writes(of, "a2", "[u, n] -> { [] : 0 <= n < u }", {"{ [] -> [2] }"}));
    EXPECT_TRUE(writes(of, "a3", "[u] -> { [] : 2 <= u <= 3 }", {"{ [] -> [3] }"}));
    EXPECT_TRUE(writes(of, "a4", "[u] -> { [] : u > 3 }", {"{ [] -> [4] }"}));
}

TEST(AccessModelConditions, MakeOperandsConditional) {
    const ModelOf of("int n, int m, double a[], int c[]", "m = n > 2 ? c[0] : c[1];\n"
                                                          "m = n > 2 && c[2];\n"
                                                          "m = n > 2 || c[3];\n"
                                                          "m = n > 0 && n < 9 && c[4] && c[5];");
    EXPECT_TRUE(reads(of, "c0", "[n] -> { [] : n > 2 }", {"{ [] -> [0] }"}));
    EXPECT_TRUE(reads(of, "c1", "[n] -> { [] : n <= 2 }", {"{ [] -> [1] }"}));
    EXPECT_TRUE(reads(of, "c2", "[n] -> { [] : n > 2 }", {"{ [] -> [2] }"}));
    EXPECT_TRUE(reads(of, "c3", "[n] -> { [] : n <= 2 }", {"{ [] -> [3] }"}));
    EXPECT_TRUE(reads(of, "c4", "[n] -> { [] : 0 < n < 9 }", {"{ [] -> [4] }"}));
    EXPECT_TRUE(reads(of, "c5", "[n] -> { [] : 0 < n < 9 }", {"{ [] -> [5] }"}, Doubt::Condition));
}

TEST(AccessModelConditions, AreReadThemselves) {
    const ModelOf of("int n, int m, double a[]", "if (n < m && a[n] > 0) a[m] = 0; else if (m) ;");
    EXPECT_EQ(of.words(), "n0 r, m0 r, a0 r, n1 r, a1 w, m1 r, m2 r");
    EXPECT_TRUE(reads(of, "m2", "{ [] }", {}, Doubt::Condition));
}

TEST(AccessModelConditions, OfSwitchesAreExact) {
    const ModelOf of("int n, double a[]", "switch (n + 1) {\n"
                                          "case 1: a[1] = 0;\n"
                                          "case 2: a[2] = 0; break;\n"
                                          "case 4 ... 6: a[3] = 0; break;\n"
                                          "default: a[4] = 0;\n"
                                          "case 9: a[5] = 0;\n"
                                          "}\n"
                                          "a[6] = 0;");
    EXPECT_TRUE(writes(of, "a0", "[n] -> { [] : n = 0 }", {"{ [] -> [1] }"}));
    EXPECT_TRUE(writes(of, "a1", "[n] -> { [] : 0 <= n <= 1 }", {"{ [] -> [2] }"}));
    EXPECT_TRUE(writes(of, "a2", "[n] -> { [] : 3 <= n <= 5 }", {"{ [] -> [3] }"}));
    EXPECT_TRUE(writes(of, "a3", "[n] -> { [] : n < 0 or n = 2 or n > 5 and n != 8 }", {"{ [] -> [4] }"}));
    EXPECT_TRUE(writes(of, "a4", "[n] -> { [] : n < 0 or n = 2 or n > 5 }", {"{ [] -> [5] }"}));
    EXPECT_TRUE(writes(of, "a5", "{ [] }", {"{ [] -> [6] }"}));
}

TEST(AccessModelConditions, OfSwitchesMayBeUnknown) {
    const ModelOf of("int n, double a[], int c[]",
                     "for (int i = 0; i < n; i++) {\n"
                     "  switch (c[i]) { case 1: a[1] = 0; break; default: if (i < 3) break; a[2] = 0; }\n"
                     "  switch (i) { case 0: a[3] = 0; continue; case 1: a[4] = 0; }\n"
                     "  a[5] = 0;\n"
                     "}");
    EXPECT_TRUE(writes(of, "a0", "[n] -> { [i] : 0 <= i < n }", {"{ [i] -> [1] }"}, Doubt::Condition));
    EXPECT_TRUE(writes(of, "a1", "[n] -> { [i] : 3 <= i < n }", {"{ [i] -> [2] }"}, Doubt::Condition));
    EXPECT_TRUE(writes(of, "a2", "[n] -> { [0] : n > 0 }", {"{ [i] -> [3] }"}));
    EXPECT_TRUE(writes(of, "a3", "[n] -> { [1] : n > 1 }", {"{ [i] -> [4] }"}));
    EXPECT_TRUE(writes(of, "a4", "[n] -> { [i] : 1 <= i < n }", {"{ [i] -> [5] }"}));
}

TEST(AccessModelConditions, ALongChainIsCutShort) {
    std::string text = "if (n == 0) a[0] = 0;";
    for (int i = 1; i < 2000; ++i)
        text += "\nelse if (n == " + std::to_string(5 * i) + ") a[" + std::to_string(i) + "] = 0;";
    const ModelOf of("int n, double a[]", text + "\na[1] = 2;");
    EXPECT_TRUE(writes(of, "a3", "[n] -> { [] : n = 15 }", {"{ [] -> [3] }"}));
    EXPECT_TRUE(writes(of, "a1900", "[n] -> { [] : n = 9500 }", {"{ [] -> [1900] }"}, Doubt::WorkLimit));
    EXPECT_TRUE(writes(of, "a2000", "{ [] }", {"{ [] -> [1] }"}));
}

} // namespace
