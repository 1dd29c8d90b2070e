// SPDX-License-Identifier: MIT
#include "tests/dependences/ModelOf.h"

#include <gtest/gtest.h>

namespace {

using namespace Kova::Test;
using DepGraph::Access;
using DepGraph::Doubt;

const std::string once = "{ [] }";

/// The accesses of a word that a call makes, "r", "w", with a star for each pointer followed.
std::string callAccesses(const ModelOf& of, const std::string& word) {
    std::string text;
    for (const bool isWrite : {false, true})
        for (const Access* access : of.findAll(word, isWrite)) {
            if (access->assumption.doubt != Doubt::Call)
                continue;
            EXPECT_TRUE(access->subscripts.empty());
            EXPECT_TRUE(access->memory.members.empty());
            text += (text.empty() ? "" : " ") + std::string(access->memory.pointee ? 1 : 0, '*') +
                    std::string(access->memory.loaded ? 1 : 0, '*') + (isWrite ? "w" : "r");
        }
    return text;
}

TEST(AccessModelCalls, TakeNumbersByValue) {
    const ModelOf of("int n, double x, double a[]", "g(n, x, a[n]);", "void g(int, double, double);");
    EXPECT_EQ(of.words(), "n0 r, x0 r, a0 r, n1 r");
    EXPECT_TRUE(reads(of, "a0", once, {"[n] -> { [] -> [n] }"}));
}

TEST(AccessModelCalls, MayReadAndWriteWhatArgumentsLeadTo) {
    const ModelOf of("int n, double *p, double r[]",
                     "double a[9], b[9][9], x; struct { double k, l[4]; } s;\n"
                     "g(a); g(&x); g(&a[n]); g(a + n); g(p); g(p + 1); g(r); g(b[n]); g(&s.k); g(s.l); g(n ? a : p);",
                     "void g(double *);");
    for (const char* word : {"a0", "x0", "a1", "a2", "b0", "s0", "s1", "a3"})
        EXPECT_EQ(callAccesses(of, word), "r w") << word;
    for (const char* word : {"p0", "p1", "r0", "p2"})
        EXPECT_EQ(callAccesses(of, word), "*r *w") << word;
    EXPECT_EQ(of.findAll("p0", false).size(), 1u);
}

TEST(AccessModelCalls, KeepTheirHandsOffConst) {
    const ModelOf of("double *p, char **v, const char *s",
                     "double a[9]; g(a, p); h(p); k(v); l(v); m(v); o(v); puts(s);",
                     "#include <stdio.h>\ntypedef const double C; void g(const double *, double *); void h(C *);\n"
                     "void k(const char **); void l(char *const *); void m(const char *const *); void o(char **);");
    EXPECT_EQ(callAccesses(of, "a0"), "r");
    EXPECT_EQ(callAccesses(of, "p0"), "*r *w");
    EXPECT_EQ(callAccesses(of, "p1"), "*r");
    EXPECT_EQ(callAccesses(of, "v0"), "*r **r *w **w");
    EXPECT_EQ(callAccesses(of, "v1"), "*r **r **w");
    EXPECT_EQ(callAccesses(of, "v2"), "*r **r");
    EXPECT_EQ(callAccesses(of, "v3"), "*r **r *w **w");
    EXPECT_EQ(callAccesses(of, "s0"), "*r");
}

TEST(AccessModelCalls, OfUnknownPrototypeMayDoAnything) {
    const ModelOf of("double a[], void (*f)(double *), void (*c)(const double *), struct S { double *d; } s",
                     "g(a); printf(\"%p\", (void *)a); f(a); (*f)(a); c(a); v(s);",
                     "#include <stdio.h>\nvoid g();\nstruct S; void v(struct S);");
    EXPECT_EQ(callAccesses(of, "a0"), "*r *w");
    EXPECT_EQ(callAccesses(of, "a1"), "*r *w");
    EXPECT_EQ(callAccesses(of, "a2"), "*r *w");
    EXPECT_EQ(callAccesses(of, "a3"), "*r *w");
    EXPECT_EQ(callAccesses(of, "a4"), "*r");
    EXPECT_TRUE(reads(of, "f0", once));
    EXPECT_TRUE(reads(of, "f1", once));
}

TEST(AccessModelCalls, ReachPointersInsideStructures) {
    const ModelOf of("struct S s, struct S *p, struct N n", "v(s); w(p); x(n);",
                     "struct S { int k; double *d; }; struct N { int k; };\n"
                     "void v(struct S), w(const struct S *), x(struct N);");
    EXPECT_EQ(callAccesses(of, "s0"), "*r *w");
    EXPECT_EQ(of.findAll("s0", false).size(), 2u);
    EXPECT_EQ(callAccesses(of, "p0"), "*r **r **w");
    EXPECT_EQ(callAccesses(of, "n0"), "");
    EXPECT_TRUE(reads(of, "n0", once));
}

TEST(AccessModelCalls, ComeAfterTheirArguments) {
    const ModelOf of("int n, double a[]", "g(a, n++);", "void g(double *, int);");
    EXPECT_LT(of.findAll("n0", true)[0]->positions[0], of.findAll("a0", false)[0]->positions[0]);
    EXPECT_LT(of.findAll("a0", false)[0]->positions[0], of.findAll("a0", true)[0]->positions[0]);
}

TEST(AccessModelCalls, MayChangeWhatOthersKnow) {
    const char* loop = "for (int i = 0; i < N; i++) { a[i] = 0; call; }";
    const auto boundsDoubt = [loop](const std::string& call, const std::string& declarations) {
        std::string text = loop;
        text.replace(text.find("call"), 4, call);
        const ModelOf of("int n, double a[], double x", text, declarations);
        const Access& access = *of.findAll("a0", true).at(0);
        EXPECT_EQ(access.assumption.doubt == Doubt::None,
                  access.domain.is_equal(isl::set(access.domain.ctx(), "[N] -> { [k] : 0 <= k < N }")));
        return access.assumption.doubt;
    };
    const std::string global = "int N;\n";
    EXPECT_EQ(boundsDoubt("x++", global), Doubt::None);
    EXPECT_EQ(boundsDoubt("g()", global + "void g(void);"), Doubt::Bounds);
    EXPECT_EQ(boundsDoubt("x = sqrt(x)", "#include <math.h>\n" + global), Doubt::None);
    EXPECT_EQ(boundsDoubt("qsort(a, 3, 8, 0)", "#include <stdlib.h>\n" + global), Doubt::Bounds);
    EXPECT_EQ(boundsDoubt("g()", global + "int g(void) __attribute__((pure));"), Doubt::None);
    EXPECT_EQ(boundsDoubt("g()", global + "int g(void) __attribute__((const));"), Doubt::None);
}

TEST(AccessModelCalls, AreLookedInto) {
    const auto doubtWith = [](const std::string& behind) {
        const ModelOf of("int N, M, *P; void g(int), h(int); void o(void);\n"
                         "void f(double a[]) { for (int i = 0; i < N; i++) { a[i] = 0; g(i); } }\n" +
                         behind);
        return of.findAll("a0", true).at(0)->assumption.doubt;
    };
    EXPECT_EQ(doubtWith("void g(int k) { k = 3; M = k; }"), Doubt::None);
    EXPECT_EQ(doubtWith("void g(int k) { N = k; }"), Doubt::Bounds);
    EXPECT_EQ(doubtWith("void g(int k) { int N; N = k; h(k); } void h(int k) { M++; g(k); }"), Doubt::None);
    EXPECT_EQ(doubtWith("void g(int k) { h(k); } void h(int k) { if (k) N++; else g(k); }"), Doubt::Bounds);
    EXPECT_EQ(doubtWith("void g(int k) { h(k); }"), Doubt::Bounds);
    EXPECT_EQ(doubtWith("void g(int k) { *P = k; }"), Doubt::None) << "names that differ are memory that differs";
    EXPECT_EQ(doubtWith("void g(int k) { P = &N; o(); } void o(void) {}"), Doubt::None);
}

TEST(AccessModelCalls, MayChangeLocalsWhoseAddressIsKnown) {
    const ModelOf of("double a[], int n, int m, struct S { int k; } *p",
                     "int *q = &m; a[n] = 0; a[m] = 0; a[p->k] = 0; g(); a[1] = *q;", "void g(void);");
    EXPECT_TRUE(writes(of, "a0", once, {"[n] -> { [] -> [n] }"}));
    EXPECT_TRUE(writes(of, "a1", once, {"?"}, Doubt::Subscript));
    EXPECT_TRUE(writes(of, "a2", once, {"?"}, Doubt::Subscript));
    const ModelOf quiet("double a[], struct S { int k; } s, struct S *p", "int *q = &s.k; a[p->k] = s.k; a[s.k] = *q;");
    EXPECT_EQ(quiet.findAll("a0", true).at(0)->assumption.doubt, Doubt::None);
    EXPECT_EQ(quiet.findAll("a1", true).at(0)->assumption.doubt, Doubt::None);
}

TEST(AccessModelCalls, ThatNeverComeBackEndTheBlock) {
    const ModelOf of("int n, double a[]",
                     "if (n < 0) exit(1);\n"
                     "a[0] = 0;\n"
                     "for (int i = 0; i < n; i++) { a[1] = 0; if (i == 3) abort(); a[2] = 0; }\n"
                     "n || (exit(2), 0);\n"
                     "a[3] = 0;",
                     "#include <stdlib.h>");
    EXPECT_TRUE(writes(of, "a0", "[n] -> { [] : n >= 0 }", {"{ [] -> [0] }"}));
    EXPECT_TRUE(writes(of, "a1", "[n] -> { [i] : 0 <= i < n }", {"{ [i] -> [1] }"}, Doubt::Jump));
    EXPECT_TRUE(writes(of, "a2", "[n] -> { [i] : 0 <= i < n and i != 3 }", {"{ [i] -> [2] }"}, Doubt::Jump));
    EXPECT_TRUE(writes(of, "a3", "[n] -> { [] : n >= 0 }", {"{ [] -> [3] }"}, Doubt::Jump));
}

TEST(AccessModelCalls, OfTheFunctionItselfAreCallsAsAny) {
    const ModelOf of("int N; void f(int n, double a[]) { if (n == 0) return; a[n] = N; f(n - 1, a); a[0] = n; }");
    EXPECT_TRUE(writes(of, "a0", "[n] -> { [] : n != 0 }", {"[n] -> { [] -> [n] }"}));
    EXPECT_EQ(callAccesses(of, "a1"), "*r *w");
    EXPECT_TRUE(writes(of, "a2", "[n] -> { [] : n != 0 }", {"{ [] -> [0] }"}));
}

} // namespace
