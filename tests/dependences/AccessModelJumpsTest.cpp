// SPDX-License-Identifier: MIT
#include "environment/tessel/TesselBase.h"
#include "tests/dependences/ModelOf.h"

#include <gtest/gtest.h>

namespace {

using namespace Kova::Test;
using DepGraph::Access;
using DepGraph::Doubt;

const std::string once = "{ [] }";

std::string at(int index) {
    return "{ [k] -> [" + std::to_string(index) + "] }";
}

TEST(AccessModelJumps, ContinueSkipsWhatFollows) {
    const ModelOf of("int n, double a[], double b[]", "for (int i = 0; i < n; i++) {\n"
                                                      "  a[0] = 0;\n"
                                                      "  if (i == 3) continue;\n"
                                                      "  if (i > 6) { a[1] = 0; continue; } else a[2] = 0;\n"
                                                      "  a[3] = 0;\n"
                                                      "  if (b[i] > 0) continue;\n"
                                                      "  a[4] = 0;\n"
                                                      "}\n"
                                                      "a[5] = 0;");
    EXPECT_TRUE(writes(of, "a0", "[n] -> { [i] : 0 <= i < n }", {at(0)}));
    EXPECT_TRUE(writes(of, "a1", "[n] -> { [i] : 6 < i < n }", {at(1)}));
    EXPECT_TRUE(writes(of, "a2", "[n] -> { [i] : 0 <= i < n and i <= 6 and i != 3 }", {at(2)}));
    EXPECT_TRUE(writes(of, "a3", "[n] -> { [i] : 0 <= i < n and i <= 6 and i != 3 }", {at(3)}));
    EXPECT_TRUE(writes(of, "a4", "[n] -> { [i] : 0 <= i < n and i <= 6 and i != 3 }", {at(4)}, Doubt::Condition));
    EXPECT_TRUE(writes(of, "a5", once, {"{ [] -> [5] }"}));
}

TEST(AccessModelJumps, ContinueGoesOnWithTheIncrement) {
    const ModelOf of("int n, int s", "int i; for (i = 0; i < n; i++, s++) { if (i == 3) continue; }");
    EXPECT_TRUE(writes(of, "s0", "[n] -> { [i] : 0 <= i < n }"));
    const ModelOf inner("int n, double a[]",
                        "for (int i = 0; i < n; i++) { for (int j = 0; j < n; j++) if (j > i) continue; a[i] = 0; }");
    EXPECT_TRUE(writes(inner, "a0", "[n] -> { [i] : 0 <= i < n }", {"{ [i] -> [i] }"}));
}

TEST(AccessModelJumps, BreakMakesItsLoopDoubtful) {
    const ModelOf of("int n, double a[]", "for (int i = 0; i < n; i++) {\n"
                                          "  a[0] = 0;\n"
                                          "  for (int j = 0; j < i; j++) { a[1] = 0; if (j == 3) break; a[2] = 0; }\n"
                                          "  a[3] = 0;\n"
                                          "}");
    EXPECT_TRUE(writes(of, "a0", "[n] -> { [i] : 0 <= i < n }", {at(0)}));
    EXPECT_TRUE(writes(of, "a1", "[n] -> { [i, j] : 0 <= j < i < n }", {"{ [i, j] -> [1] }"}, Doubt::Jump));
    EXPECT_TRUE(writes(of, "a2", "[n] -> { [i, j] : 0 <= j < i < n and j != 3 }", {"{ [i, j] -> [2] }"}, Doubt::Jump));
    EXPECT_TRUE(writes(of, "a3", "[n] -> { [i] : 0 <= i < n }", {at(3)}));
    EXPECT_EQ(of.findAll("a1", true)[0]->assumption.where->getSourceRange().beginLine, 5u);
}

TEST(AccessModelJumps, ReturnsAtTheTopAreExact) {
    const ModelOf of("int n, int m, double a[]", "if (n <= 0) return;\n"
                                                 "a[0] = 0;\n"
                                                 "if (m < n) { if (m < 0) return; a[1] = 0; }\n"
                                                 "for (int i = 0; i < m; i++) a[2] = 0;\n"
                                                 "return;\n"
                                                 "a[3] = 0;");
    EXPECT_TRUE(writes(of, "a0", "[n] -> { [] : n > 0 }", {"{ [] -> [0] }"}));
    EXPECT_TRUE(writes(of, "a1", "[n, m] -> { [] : n > m >= 0 }", {"{ [] -> [1] }"}));
    EXPECT_TRUE(writes(of, "a2", "[n, m] -> { [i] : n > 0 and 0 <= i < m }", {at(2)}));
    EXPECT_TRUE(writes(of, "a3", "{ [] : false }", {"{ [] -> [3] }"}));
}

TEST(AccessModelJumps, ReturnsFromLoopsMakeTheRestDoubtful) {
    const ModelOf of(
        "int n, double a[]",
        "a[0] = 0;\n"
        "for (int i = 0; i < n; i++) { for (int j = 0; j < n; j++) { if (j == 2) return; a[1] = 0; } a[2] = 0; }\n"
        "if (n > 5) a[3] = 0;\n"
        "a[4] = 0;");
    EXPECT_TRUE(writes(of, "a0", once, {"{ [] -> [0] }"}));
    EXPECT_TRUE(writes(of, "a1", "[n] -> { [i, j] : 0 <= i < n and 0 <= j < n and j != 2 }", {"{ [i, j] -> [1] }"},
                       Doubt::Jump));
    EXPECT_TRUE(writes(of, "a2", "[n] -> { [i] : 0 <= i < n }", {at(2)}, Doubt::Jump));
    EXPECT_TRUE(writes(of, "a3", "[n] -> { [] : n > 5 }", {"{ [] -> [3] }"}, Doubt::Jump));
    EXPECT_TRUE(writes(of, "a4", once, {"{ [] -> [4] }"}, Doubt::Jump));
}

TEST(AccessModelJumps, GotoForwardIsFollowed) {
    const ModelOf of("int n, int m, double a[]", "for (int i = 0; i < n; i++) {\n"
                                                 "  if (i < 3) goto last;\n"
                                                 "  a[0] = 0;\n"
                                                 "  if (i < m) { goto middle; a[1] = 0; }\n"
                                                 "  a[2] = 0;\n"
                                                 "middle: a[3] = 0;\n"
                                                 "  if (m > 0) { last: a[4] = 0; }\n"
                                                 "  a[5] = 0;\n"
                                                 "}\n"
                                                 "a[6] = 0;");
    EXPECT_EQ(of.model.getDisorder(), nullptr);
    EXPECT_TRUE(writes(of, "a0", "[n] -> { [i] : 3 <= i < n }", {at(0)}));
    EXPECT_TRUE(writes(of, "a1", "{ [i] : false }", {at(1)}));
    EXPECT_TRUE(writes(of, "a2", "[n, m] -> { [i] : 3 <= i < n and i >= m }", {at(2)}));
    EXPECT_TRUE(writes(of, "a3", "[n] -> { [i] : 3 <= i < n }", {at(3)}));
    EXPECT_TRUE(writes(of, "a4", "[n, m] -> { [i] : 0 <= i < n and (i < 3 or m > 0) }", {at(4)}));
    EXPECT_TRUE(writes(of, "a5", "[n] -> { [i] : 0 <= i < n }", {at(5)}));
    EXPECT_TRUE(writes(of, "a6", once, {"{ [] -> [6] }"}));
}

TEST(AccessModelJumps, GotoOutOfLoopsMakesThemDoubtful) {
    const ModelOf of("int n, double a[]",
                     "for (int i = 0; i < n; i++) {\n"
                     "  for (int j = 0; j < n; j++) { a[0] = 0; if (j == i) goto next; if (a[0] > j) goto end; }\n"
                     "  a[1] = 0;\n"
                     "next: a[2] = 0;\n"
                     "}\n"
                     "return;\n"
                     "end: a[3] = 0;");
    EXPECT_EQ(of.model.getDisorder(), nullptr);
    EXPECT_TRUE(writes(of, "a0", "[n] -> { [i, j] : 0 <= i < n and 0 <= j < n }", {"{ [i, j] -> [0] }"}, Doubt::Jump));
    EXPECT_TRUE(writes(of, "a2", "[n] -> { [i] : 0 <= i < n }", {at(1)}, Doubt::Jump));
    EXPECT_TRUE(writes(of, "a3", "[n] -> { [i] : 0 <= i < n }", {at(2)}, Doubt::Jump));
    EXPECT_TRUE(writes(of, "a4", once, {"{ [] -> [3] }"}, Doubt::Jump));
}

struct Disorder {
    const char* text;
    unsigned line;
};

TEST(AccessModelJumps, LeadToDisorder) {
    const Disorder disorders[] = {
        {"again: a[0] = 0;\nif (a[0] < n) goto again;", 4},
        {"goto inside;\nfor (int i = 0; i < n; i++) { inside: a[i] = 0; }", 3},
        {"void *p = &&label;\ngoto *p;\nlabel: a[0] = 0;", 4},
        {"switch (n) {\ncase 0: do { a[0] = 0;\ncase 1: a[1] = 0; } while (n--); }", 5},
        {"for (int i = 0; i < n; i++) {\nback: a[i] = 0;\nif (a[i] > 3) goto back; }", 5},
    };
    for (const Disorder& disorder : disorders) {
        const ModelOf of("int n, double a[]", disorder.text);
        ASSERT_NE(of.model.getDisorder(), nullptr) << disorder.text;
        EXPECT_EQ(of.model.getDisorder()->getSourceRange().beginLine, disorder.line) << disorder.text;
        for (const Access& access : of.model.getAccesses()) {
            EXPECT_EQ(access.assumption.doubt, Doubt::Jump);
            EXPECT_TRUE(access.subscripts.empty());
            EXPECT_FALSE(access.domain.is_empty());
        }
    }
    // Where the order is not known, counters do not explain themselves.
    const ModelOf of("int n, double a[]", "goto in; for (int i = 0; i < n; i++) { in: a[i] = 0; }");
    EXPECT_EQ(of.words(), "i0 r, n0 r, i1 r, i1 w, a0 w, i2 r");
    EXPECT_TRUE(of.findAll("a0", true)[0]->domain.is_equal(isl::set(of.model.getContext(), "{ [k] : k >= 0 }")));
}

TEST(AccessModelJumps, MayComeFromOutside) {
    const ModelOf inner("int n, double a[]",
                        "if (n > 2) goto inside;\n"
                        "while (n--) { a[0] = 0; if (n == 2) continue; return; inside: a[1] = 0; }",
                        ModelOf::Part::BodyOfFirstLoop);
    EXPECT_EQ(inner.model.getDisorder(), nullptr);
    EXPECT_TRUE(writes(inner, "a0", once, {"{ [] -> [0] }"}, Doubt::Jump));
    EXPECT_TRUE(writes(inner, "a1", once, {"{ [] -> [1] }"}, Doubt::Jump));
    const ModelOf deep("int n, double a[]",
                       "goto inside; while (n--) { for (int i = 0; i < 3; i++) { inside: a[i] = 0; } }",
                       ModelOf::Part::BodyOfFirstLoop);
    EXPECT_NE(deep.model.getDisorder(), nullptr);
    const ModelOf cases("int n, double a[]", "switch (n) { while (n--) { a[0] = 0; case 3: a[1] = 0; } }",
                        ModelOf::Part::BodyOfFirstLoop);
    EXPECT_EQ(cases.model.getDisorder(), nullptr);
    EXPECT_TRUE(writes(cases, "a1", once, {"{ [] -> [1] }"}, Doubt::Jump));
}

TEST(AccessModelJumps, LeaveTheBlock) {
    const ModelOf of(
        "int n, int m, double a[]",
        "for (int i = 0; i < n; i++) { a[0] = 0; if (i == 3) break; a[1] = 0; if (m) continue; a[2] = 0; }",
        ModelOf::Part::BodyOfFirstLoop);
    EXPECT_TRUE(writes(of, "a0", once, {"{ [] -> [0] }"}));
    EXPECT_TRUE(writes(of, "a1", "[i] -> { [] : i != 3 }", {"{ [] -> [1] }"}));
    EXPECT_TRUE(writes(of, "a2", "[i, m] -> { [] : i != 3 and m = 0 }", {"{ [] -> [2] }"}));
}

TEST(AccessModelJumps, InsideExpressionsAreDoubtful) {
    const ModelOf of("int n, double a[]", "n > 3 && ({ if (n > 5) return; 1; });\n"
                                          "a[0] = 0;\n"
                                          "({ if (n < 0) return; a[1] = 0; });\n"
                                          "a[2] = 0;");
    EXPECT_TRUE(writes(of, "a0", once, {"{ [] -> [0] }"}, Doubt::Jump));
    EXPECT_TRUE(writes(of, "a2", "[n] -> { [] : n >= 0 }", {"{ [] -> [2] }"}, Doubt::Jump));
}

} // namespace
