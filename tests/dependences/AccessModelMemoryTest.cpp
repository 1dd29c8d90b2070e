// SPDX-License-Identifier: MIT
#include "environment/tessel/DeclarationBase.h"
#include "tests/dependences/ModelOf.h"

#include <gtest/gtest.h>

namespace {

using namespace Kova::Test;
using DepGraph::Access;
using DepGraph::Doubt;

const std::string once = "{ [] }";

std::string at(int index) {
    return "{ [] -> [" + std::to_string(index) + "] }";
}

/// "v", "*v", "**v" with the members behind it.
std::string memoryOf(const ModelOf& of, const std::string& word, bool writes) {
    const std::vector<const Access*> all = of.findAll(word, writes);
    if (all.size() != 1)
        return std::to_string(all.size()) + " accesses";
    const DepGraph::Memory& memory = all.front()->memory;
    std::string text = (memory.pointee ? memory.loaded ? "**" : "*" : "") + memory.variable->getName();
    for (const Kova::Tessel::DeclarationBase* member : memory.members)
        text += '.' + member->getName();
    return text;
}

bool mayMeet(const ModelOf& of, const std::string& first, const std::string& second) {
    const auto accessesOf = [&of](const std::string& word) {
        std::vector<const Access*> all = of.findAll(word, false);
        for (const Access* access : of.findAll(word, true))
            all.push_back(access);
        return all;
    };
    for (const Access* left : accessesOf(first))
        for (const Access* right : accessesOf(second))
            if (DepGraph::mayMeet(left->memory, right->memory))
                return true;
    return false;
}

TEST(AccessModelMemory, ElementsOfArrays) {
    const ModelOf of("int n, int m",
                     "double a[9], b[9][9][9];\n"
                     "a[n] = b[n][m][n + m];\n"
                     "*a = *(a + 2) + *(1 + a + n) + a[n - m] + 3[a] + *&a[4] + (&a[1])[n] + *(&a[6] - 1);\n"
                     "b[1][2][3] = (*b)[4][5] + *(*(b[6] + 1) + n) + **b[2];");
    EXPECT_TRUE(writes(of, "a0", once, {"[n] -> { [] -> [n] }"}));
    EXPECT_TRUE(reads(of, "b0", once, {"[n] -> { [] -> [n] }", "[m] -> { [] -> [m] }", "[n, m] -> { [] -> [n + m] }"}));
    EXPECT_TRUE(writes(of, "a1", once, {at(0)}));
    EXPECT_TRUE(reads(of, "a2", once, {at(2)}));
    EXPECT_TRUE(reads(of, "a3", once, {"[n] -> { [] -> [n + 1] }"}));
    EXPECT_TRUE(reads(of, "a4", once, {"[n, m] -> { [] -> [n - m] }"}));
    EXPECT_TRUE(reads(of, "a5", once, {at(3)}));
    EXPECT_TRUE(reads(of, "a6", once, {at(4)}));
    EXPECT_TRUE(reads(of, "a7", once, {"[n] -> { [] -> [n + 1] }"}));
    EXPECT_TRUE(reads(of, "a8", once, {at(5)}));
    EXPECT_TRUE(writes(of, "b1", once, {at(1), at(2), at(3)}));
    EXPECT_TRUE(reads(of, "b2", once, {at(0), at(4), at(5)}));
    EXPECT_TRUE(reads(of, "b3", once, {at(6), at(1), "[n] -> { [] -> [n] }"}));
    EXPECT_TRUE(reads(of, "b4", once, {at(2), at(0), at(0)}));
    EXPECT_EQ(memoryOf(of, "a0", true), "a");
}

TEST(AccessModelMemory, WhatPointersLeadTo) {
    const ModelOf of("int n, double *p, double r[9], double (*w)[7]",
                     "p[n] = *p + r[1] + *(p + n + 1) + w[n][2] + (*w)[3];");
    EXPECT_TRUE(writes(of, "p0", once, {"[n] -> { [] -> [n] }"}));
    EXPECT_TRUE(reads(of, "p1", once, {at(0)}));
    EXPECT_TRUE(reads(of, "r0", once, {at(1)}));
    EXPECT_TRUE(reads(of, "p2", once, {"[n] -> { [] -> [n + 1] }"}));
    EXPECT_TRUE(reads(of, "w0", once, {"[n] -> { [] -> [n] }", at(2)}));
    EXPECT_TRUE(reads(of, "w1", once, {at(0), at(3)}));
    for (const char* word : {"p1", "r0", "w0"})
        EXPECT_EQ(memoryOf(of, word, false), "*" + std::string(word, 1));
}

TEST(AccessModelMemory, AssignedPointersAreDataAndLeadAnywhere) {
    const ModelOf of("int n, double *p, double *q, double r[]",
                     "p = q + 1; p[n] = *p; *p++ = q[1]; r++; r[2] = 0; *(q = p) = 1;");
    EXPECT_TRUE(writes(of, "p0", once));
    EXPECT_EQ(of.findAll("p1", false).size(), 1u);
    EXPECT_EQ(memoryOf(of, "p1", false), "p");
    EXPECT_TRUE(writes(of, "p1", once, {}, Doubt::Pointer));
    EXPECT_EQ(memoryOf(of, "p1", true), "*p");
    EXPECT_EQ(of.findAll("p2", false).size(), 2u);
    EXPECT_EQ(of.findAll("p3", true).size(), 2u);
    EXPECT_EQ(of.findAll("q1", false).size(), 2u);
    EXPECT_TRUE(writes(of, "r1", once, {}, Doubt::Pointer));
    EXPECT_EQ(memoryOf(of, "r0", true), "r");
    EXPECT_EQ(of.findAll("q2", true).size(), 2u);
    EXPECT_FALSE(mayMeet(of, "r0", "p0"));
}

TEST(AccessModelMemory, PointersAreNamesOnceTheyAreSet) {
    const ModelOf of("int i, int n",
                     "double *p = g(), *q, *r; q = g(); r = p;\n"
                     "q[i] = p[i];\n"
                     "for (i = 0; i < n; i++) { double *w = g(); w[i] = 0; r = g(); r[i] = 0; *q = *p; }\n"
                     "r[3] = 0;",
                     "double *g(void);");
    EXPECT_TRUE(reads(of, "p1", once, {"?"}, Doubt::Subscript));
    EXPECT_TRUE(reads(of, "q1", once));
    EXPECT_TRUE(writes(of, "q1", once, {"?"}, Doubt::Subscript));
    EXPECT_TRUE(writesWith(of, "w0", Doubt::Pointer));
    EXPECT_TRUE(writesWith(of, "r2", Doubt::Pointer));
    EXPECT_TRUE(writes(of, "q2", "[n] -> { [k] : 0 <= k < n }", {"{ [k] -> [0] }"}));
    EXPECT_TRUE(writes(of, "r3", once, {at(3)}));
}

TEST(AccessModelMemory, NumbersFromOutsideAreUnknowns) {
    const ModelOf of("char *v[], double a[], int c[]",
                     "int n = h(v[1]), m, k, l, s = 0, t = 2; m = c[0]; scan(&k); l = n * m; s += h(0); t = h(1);\n"
                     "a[n] = 0; a[m] = 0; a[k] = 0; a[l] = 0; a[s] = 0; a[t] = 0;\n"
                     "int w = v[0] ? h(v[0]) : 7; a[w] = 0;",
                     "int h(char *); void scan(int *);");
    EXPECT_TRUE(writes(of, "a0", once, {"[n] -> { [] -> [n] }"}));
    EXPECT_TRUE(writes(of, "a1", once, {"[m] -> { [] -> [m] }"}));
    // Its address is known to others, so the later calls may write it.
    EXPECT_TRUE(writes(of, "a2", once, {"?"}, Doubt::Subscript));
    EXPECT_TRUE(writes(of, "a3", once, {"?"}, Doubt::Subscript));
    EXPECT_TRUE(writes(of, "a4", once, {"?"}, Doubt::Subscript));
    EXPECT_TRUE(writes(of, "a5", once, {"?"}, Doubt::Subscript));
    EXPECT_TRUE(writes(of, "a6", once, {"[w] -> { [] -> [w] }"}));
    const ModelOf scanned("double a[]", "int n; scanf(\"%d\", &n); for (int i = 0; i < n; i++) a[i] = sqrt(2);",
                          "#include <math.h>\n#include <stdio.h>");
    EXPECT_TRUE(writes(scanned, "a0", "[n] -> { [k] : 0 <= k < n }", {"{ [k] -> [k] }"}));
}

TEST(AccessModelMemory, MembersAreToldApart) {
    const ModelOf of("int n",
                     "struct S s, t, v[5];\n"
                     "s.x = s.y + s.in.k + s.z[n];\n"
                     "v[n].z[2] = v[1].y;\n"
                     "s = t;\n"
                     "v[n] = s;",
                     "struct I { int k; };\nstruct S { int x, y; struct I in; int z[9]; };");
    EXPECT_EQ(memoryOf(of, "s0", true), "s.x");
    EXPECT_EQ(memoryOf(of, "s2", false), "s.in.k");
    EXPECT_TRUE(reads(of, "s3", once, {"[n] -> { [] -> [n] }"}));
    EXPECT_TRUE(writes(of, "v0", once, {"[n] -> { [] -> [n] }", at(2)}));
    EXPECT_EQ(memoryOf(of, "v0", true), "v.z");
    EXPECT_TRUE(writes(of, "s4", once));
    EXPECT_TRUE(reads(of, "t0", once));
    EXPECT_TRUE(writes(of, "v2", once, {"[n] -> { [] -> [n] }"}));
    EXPECT_TRUE(mayMeet(of, "s0", "s4"));
    EXPECT_FALSE(mayMeet(of, "s0", "s1"));
    EXPECT_TRUE(mayMeet(of, "v0", "v2"));
    EXPECT_FALSE(mayMeet(of, "v0", "v1"));
}

TEST(AccessModelMemory, MembersBehindPointers) {
    const ModelOf of("int n, struct S *p", "p->x = (*p).y + p[n].x + (p + 1)->x;", "struct S { int x, y; };");
    EXPECT_EQ(memoryOf(of, "p0", true), "*p.x");
    EXPECT_TRUE(writes(of, "p0", once, {at(0)}));
    EXPECT_TRUE(reads(of, "p1", once, {at(0)}));
    EXPECT_TRUE(reads(of, "p2", once, {"[n] -> { [] -> [n] }"}));
    EXPECT_TRUE(reads(of, "p3", once, {at(1)}));
    EXPECT_FALSE(mayMeet(of, "p0", "p1"));
}

TEST(AccessModelMemory, MembersOfUnionsOverlap) {
    const ModelOf of("int n, struct S *p, union U u",
                     "p->m.i = p->m.f + p->m.s.b + p->m.z[n] + p->x;\n"
                     "u.i = u.f + u.s.c;",
                     "union U { int i; float f; struct { char b, c; } s; int z[4]; };\n"
                     "struct S { int x; union U m; };");
    EXPECT_TRUE(writes(of, "p0", once, {at(0)}));
    EXPECT_TRUE(reads(of, "p1", once, {at(0)}));
    EXPECT_TRUE(reads(of, "p2", once, {at(0)}, Doubt::Member));
    EXPECT_TRUE(reads(of, "p3", once, {at(0)}, Doubt::Member));
    EXPECT_EQ(memoryOf(of, "p3", false), "*p.m");
    EXPECT_TRUE(mayMeet(of, "p0", "p2"));
    EXPECT_FALSE(mayMeet(of, "p0", "p4"));
    EXPECT_TRUE(writes(of, "u0", once));
    EXPECT_TRUE(reads(of, "u1", once));
    EXPECT_TRUE(reads(of, "u2", once, {}, Doubt::Member));
    EXPECT_EQ(memoryOf(of, "u2", false), "u");
}

TEST(AccessModelMemory, UnnamedMembersAreStepsToo) {
    const ModelOf of("struct S *p", "p->a = p->b + p->c + p->d + p->x;",
                     "struct S { int x; union { int a; struct { char b, c; }; }; struct { int d; }; };");
    EXPECT_TRUE(mayMeet(of, "p0", "p1"));
    EXPECT_TRUE(mayMeet(of, "p1", "p2"));
    EXPECT_FALSE(mayMeet(of, "p0", "p3"));
    EXPECT_FALSE(mayMeet(of, "p3", "p4"));
    EXPECT_TRUE(writesWith(of, "p0", Doubt::None));
    EXPECT_TRUE(readsWith(of, "p1", Doubt::Member));
    EXPECT_TRUE(readsWith(of, "p3", Doubt::None));
}

TEST(AccessModelMemory, LoadedPointersLeadAnywhere) {
    const ModelOf of("int i, int j, double **p, struct L *s",
                     "p[i][j] = p[j][i]; s->next->x = s->x + s->next->next->x;",
                     "struct L { int x; struct L *next; };");
    EXPECT_TRUE(writes(of, "p0", once, {}, Doubt::Pointer));
    EXPECT_TRUE(reads(of, "p1", once, {}, Doubt::Pointer));
    EXPECT_EQ(memoryOf(of, "p0", true), "**p");
    EXPECT_TRUE(writes(of, "s0", once, {}, Doubt::Pointer));
    EXPECT_TRUE(reads(of, "s1", once, {at(0)}));
    EXPECT_TRUE(reads(of, "s2", once, {}, Doubt::Pointer));
    EXPECT_TRUE(mayMeet(of, "s0", "s1"));
    EXPECT_TRUE(mayMeet(of, "s0", "s2"));
    EXPECT_TRUE(mayMeet(of, "p0", "p1"));
}

TEST(AccessModelMemory, LoadedPointersThatStayAreNames) {
    const ModelOf of("int i, struct M *m, struct M k",
                     "m->data[i] = m->data[i + 1] + m->rows; k.data[i] = m->rows;\n"
                     "m->other = 0; m->other[i] = 0;",
                     "struct M { int rows; double *data, *other; };");
    EXPECT_TRUE(writes(of, "m0", once, {at(0), "[i] -> { [] -> [i] }"}));
    EXPECT_TRUE(reads(of, "m1", once, {at(0), "[i] -> { [] -> [i + 1] }"}));
    EXPECT_EQ(memoryOf(of, "m0", true), "**m.data");
    EXPECT_TRUE(writes(of, "k0", once, {"[i] -> { [] -> [i] }"}));
    EXPECT_EQ(memoryOf(of, "k0", true), "*k.data");
    EXPECT_FALSE(mayMeet(of, "m0", "m2"));
    EXPECT_FALSE(mayMeet(of, "m0", "m4"));
    // One that is assigned is data as well.
    EXPECT_EQ(memoryOf(of, "m5", false), "*m.other");
}

TEST(AccessModelMemory, OtherElementTypesAreAssumed) {
    const ModelOf of(
        "int n, double a[], void *v, long adr",
        "((char *)a)[n] = 1; *(double *)v = 2; *(int *)adr = 3; ((const double *)a)[n]; *(double *)&a[2] = 4;");
    EXPECT_TRUE(writes(of, "a0", once, {}, Doubt::Pointer));
    EXPECT_TRUE(writes(of, "v0", once, {}, Doubt::Pointer));
    EXPECT_TRUE(writes(of, "adr0", once, {}, Doubt::Pointer));
    EXPECT_EQ(memoryOf(of, "adr0", true), "*adr");
    EXPECT_TRUE(reads(of, "a1", once, {"[n] -> { [] -> [n] }"}));
    EXPECT_TRUE(writes(of, "a2", once, {at(2)}));
}

TEST(AccessModelMemory, UnknownPointersMayBeEachOfTheirNames) {
    const ModelOf of("int n, double *p, double *q, double *r",
                     "*(n ? p : q) = 1; g(r)[n] = 2; (n ? p : 0)[1] = 3; (&n)[1] = 4;", "double *g(double *);");
    EXPECT_TRUE(writes(of, "p0", once, {at(0)}, Doubt::Pointer));
    EXPECT_TRUE(writes(of, "q0", once, {at(0)}, Doubt::Pointer));
    EXPECT_EQ(of.findAll("r0", true).size(), 2u);
    EXPECT_TRUE(writesWith(of, "n3", Doubt::Pointer));
}

TEST(AccessModelMemory, WhatHasNoNameIsNoAccess) {
    const ModelOf of("int n", "\"abc\"[n]; *\"x\"; (int[]){1, 2}[n]; g()->x = 1; g()->x;",
                     "struct S { int x; } *g(void);");
    EXPECT_EQ(of.words(), "n0 r, n1 r");
}

TEST(AccessModelMemory, AddressesAndSizesAreNotAccessed) {
    const ModelOf of("int n, double a[], struct S { int x[4]; } s",
                     "double *p; int c[9], k; p = &a[n]; p = a; int *q = &s.x[n]; q = c; q = s.x + n; q = &k;\n"
                     "n = sizeof a[n++] + sizeof *p + _Alignof(int[3]); &*a; c == q;");
    EXPECT_TRUE(isSilent(of, "a0"));
    EXPECT_TRUE(isSilent(of, "s0"));
    EXPECT_TRUE(isSilent(of, "s1"));
    EXPECT_TRUE(isSilent(of, "c0"));
    EXPECT_TRUE(isSilent(of, "k0"));
    EXPECT_TRUE(isSilent(of, "a2"));
    EXPECT_TRUE(isSilent(of, "n4"));
    EXPECT_TRUE(writes(of, "n3", once));
    EXPECT_EQ(of.findAll("n0", false).size(), 1u);
    EXPECT_TRUE(reads(of, "a1", once));
}

TEST(AccessModelMemory, VariableArraysEvaluateTheirSizes) {
    const ModelOf of("int n, int m", "double v[n][m]; int k = sizeof v; k = sizeof(int[m]); typedef char T[n];");
    EXPECT_EQ(of.words(), "n0 r, m0 r, k0 w, m1 r, n1 r");
}

TEST(AccessModelMemory, ReadsComeBeforeWrites) {
    const ModelOf of("int i, int x, int y, double a[]", "a[i] += a[x] * y; x = x + 1; x++; --y; a[i++] = x = y;");
    EXPECT_EQ(of.words(), "a0 r, a0 w, i0 r, a1 r, x0 r, y0 r, x1 w, x2 r, x3 r, x3 w, y1 r, y1 w, a2 w, i1 r, i1 w, "
                          "x4 w, y2 r");
    const auto position = [&of](const std::string& word, bool writes) {
        return of.findAll(word, writes).at(0)->positions.at(0);
    };
    EXPECT_LT(position("i0", false), position("a0", false));
    EXPECT_LT(position("a0", false), position("x0", false));
    EXPECT_LT(position("y0", false), position("a0", true));
    EXPECT_LT(position("x2", false), position("x1", true));
    EXPECT_LT(position("x3", false), position("x3", true));
    EXPECT_LT(position("i1", true), position("y2", false));
    EXPECT_LT(position("y2", false), position("x4", true));
    EXPECT_LT(position("x4", true), position("a2", true));
}

TEST(AccessModelMemory, DeclarationsWriteWithoutAWord) {
    const ModelOf of("int n, double a[]",
                     "for (int i = 0; i < n; i++) { double t = a[i], u; static int c = 3; u = t; a[i] = u + c; }");
    EXPECT_EQ(of.words(), "n0 r, a0 r, u0 w, t0 r, a1 w, u1 r, c0 r");
    const auto& declared = of.model.getDeclarations();
    ASSERT_EQ(declared.size(), 2u);
    EXPECT_EQ(declared[0].memory.variable->getName(), "t");
    EXPECT_EQ(declared[1].memory.variable->getName(), "u");
    EXPECT_TRUE(declared[0].domain.is_equal(isl::set(declared[0].domain.ctx(), "[n] -> { [i] : 0 <= i < n }")));
    EXPECT_EQ(declared[0].occurrence, nullptr);
    EXPECT_LT(of.findAll("a0", false)[0]->positions[1], declared[0].positions[1]);
    EXPECT_LT(declared[0].positions[1], of.findAll("t0", false)[0]->positions[1]);
    // The variable is one, however often it is declared.
    EXPECT_TRUE(writes(of, "u0", "[n] -> { [i] : 0 <= i < n }"));
}

TEST(AccessModelMemory, OtherExpressionsAreEvaluated) {
    const ModelOf of("int n, int m, double a[]", "int v[3] = {n, [2] = a[0]}; struct { int x; } s = {.x = m};\n"
                                                 "n = ({ int t = m; a[1] = t; t + 1; });\n"
                                                 "n = _Generic(m, int: a[2], default: a[3]);\n"
                                                 "(void)a[4]; n, m; -a[5]; (n);");
    EXPECT_EQ(of.words(), "n0 r, a0 r, m0 r, n1 w, m1 r, a1 w, t0 r, t1 r, n2 w, a2 r, a4 r, n3 r, m3 r, a5 r, n4 r");
}

TEST(AccessModelMemory, VolatileValuesAreNotKnown) {
    const ModelOf of("volatile int n, double a[]", "a[n] = 0; a[n] = 1; if (n) a[2] = 0;");
    EXPECT_TRUE(writes(of, "a0", once, {"?"}, Doubt::Subscript));
    EXPECT_TRUE(writes(of, "a2", once, {at(2)}, Doubt::Condition));
}

} // namespace
