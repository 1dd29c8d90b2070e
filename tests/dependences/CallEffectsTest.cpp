// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/CallEffects_p.h"
#include "environment/tessel/SubroutineCallExpression.h"
#include "tests/frontends/c/FirstBody.h"

#include <gtest/gtest.h>

using namespace Kova::Test;
using namespace Kova::Tessel;
using namespace DepGraph;

namespace {

/// The effects of all calls in the first function that has a body.
class Effects {
public:
    explicit Effects(const std::string& text) : m_body(text), m_effects(m_body.get()) {
        for (const auto* call : m_body.findAll<SubroutineCallExpression>())
            m_effects.add(*call);
    }

    [[nodiscard]] bool mayWrite(const std::string& variable) const {
        return m_effects.mayWrite(m_body.findVariable(variable));
    }
    [[nodiscard]] bool mayWriteThroughPointers() const { return m_effects.mayWriteThroughPointers(); }

private:
    FirstBody m_body;
    CallEffects m_effects;
};

const std::string globals = "int N, M; static int S;\n";

TEST(CallEffects, WithoutCallsAreNone) {
    const Effects effects(globals + "void f(void) { N = 1; }");
    EXPECT_FALSE(effects.mayWrite("N"));
    EXPECT_FALSE(effects.mayWriteThroughPointers());
}

TEST(CallEffects, OfUnknownSubroutinesReachGlobalsAndWhatHasAnAddress) {
    const Effects effects(globals + "void g(void);\nvoid f(int p) { int x, y, a[3], b[3], *q = &y, *r = a;"
                                    " static int z; b[0] = *q + *r; g(); }");
    for (const char* reached : {"N", "S", "y", "a", "z"})
        EXPECT_TRUE(effects.mayWrite(reached)) << reached;
    for (const char* own : {"x", "p", "b", "q"})
        EXPECT_FALSE(effects.mayWrite(own)) << own;
    EXPECT_TRUE(effects.mayWriteThroughPointers());
}

TEST(CallEffects, OfKnownBodiesAreWhatTheseWrite) {
    const Effects effects(globals + "void g(int k);\nvoid f(void) { g(1); }\nvoid g(int k) { k = M; N += k; }");
    EXPECT_TRUE(effects.mayWrite("N"));
    EXPECT_FALSE(effects.mayWrite("M"));
    EXPECT_FALSE(effects.mayWrite("S"));
    EXPECT_FALSE(effects.mayWriteThroughPointers());
}

TEST(CallEffects, FollowCallsOfCalls) {
    const Effects effects(globals + "void g(void), h(void);\nvoid f(void) { g(); }\nvoid g(void) { h(); }\n"
                                    "void h(void) { S = 1; g(); f(); }");
    EXPECT_TRUE(effects.mayWrite("S"));
    EXPECT_FALSE(effects.mayWrite("N"));
}

TEST(CallEffects, ThroughPointersReachWhatHasAnAddress) {
    const Effects effects(globals + "void g(int *p) { *p = 1; }\n");
    EXPECT_FALSE(effects.mayWriteThroughPointers()) << "that is what the body itself does";
    const Effects calling(globals + "void g(int *);\nvoid f(void) { int x, y; g(&x); y = x; }\n"
                                    "void g(int *p) { *p = 1; }");
    EXPECT_TRUE(calling.mayWriteThroughPointers());
    EXPECT_TRUE(calling.mayWrite("x"));
    EXPECT_FALSE(calling.mayWrite("y"));
    EXPECT_FALSE(calling.mayWrite("N"));
}

TEST(CallEffects, OfPureAndSystemSubroutinesAreNone) {
    for (const char* call : {"p()", "c()", "(int)sqrt(N)", "puts(\"\")"}) {
        const Effects effects("#include <math.h>\n#include <stdio.h>\n" + globals +
                              "int p(void) __attribute__((pure)); int c(void) __attribute__((__const__));\n"
                              "void f(void) { M = " +
                              call + "; }");
        EXPECT_FALSE(effects.mayWrite("N")) << call;
    }
    const Effects calledBack("#include <stdlib.h>\n" + globals +
                             "int c(const void *, const void *);\n"
                             "void f(int *a) { qsort(a, 3, 4, c); }");
    EXPECT_TRUE(calledBack.mayWrite("N"));
    const Effects likeNamed(globals + "int pure(void);\nvoid f(void) { pure(); }");
    EXPECT_TRUE(likeNamed.mayWrite("N"));
    const Effects beforeMain(globals + "void g(void) __attribute__((constructor));\nvoid f(void) { g(); }");
    EXPECT_TRUE(beforeMain.mayWrite("N"));
}

TEST(CallEffects, ThroughFunctionPointersMayBeAnything) {
    EXPECT_TRUE(Effects(globals + "void f(void (*g)(void)) { g(); }").mayWrite("N"));
}

TEST(CallEffects, OfRecursionEnd) {
    const Effects effects(globals + "void f(int n) { if (n) f(n - 1); N = n; }");
    EXPECT_TRUE(effects.mayWrite("N"));
    EXPECT_FALSE(effects.mayWrite("M"));
}

TEST(CallEffects, OfLongChainsNeedNoStack) {
    std::string text = globals + "void g0(void);\nvoid f(void) { g0(); }\n";
    const int length = 5000;
    for (int i = 0; i < length; ++i)
        text += "void g" + std::to_string(i + 1) + "(void);\nvoid g" + std::to_string(i) + "(void) { g" +
                std::to_string(i + 1) + "(); }\n";
    EXPECT_TRUE(Effects(text + "void g" + std::to_string(length) + "(void) { N = 1; }").mayWrite("N"));
    EXPECT_FALSE(Effects(text + "void g" + std::to_string(length) + "(void) { M = 1; }").mayWrite("N"));
}

std::string useOf(const std::string& parameter, const std::string& argument) {
    const FirstBody body("struct T; void g(" + parameter + ");\nvoid f(double *p, double **q) { g(" + argument +
                         "); }");
    const ParameterUse use = parameterUseOf(*body.findAll<SubroutineCallExpression>().at(0), 0);
    return std::string(use.writesDirectly ? "writes" : "reads") + (use.writesBeyond ? ", writes" : ", reads");
}

TEST(CallEffects, ConstIsAPromise) {
    EXPECT_EQ(useOf("double *", "p"), "writes, writes");
    EXPECT_EQ(useOf("const double *", "p").substr(0, 5), "reads");
    EXPECT_EQ(useOf("double **", "q"), "writes, writes");
    EXPECT_EQ(useOf("double *const *", "q"), "reads, writes");
    EXPECT_EQ(useOf("const double *const *", "(const double *const *)q"), "reads, reads");
    EXPECT_EQ(useOf("const double **", "(const double **)q").substr(0, 6), "writes");
    EXPECT_EQ(useOf("", "p"), "writes, writes");
    EXPECT_EQ(useOf("double *const", "p"), "writes, writes");
}

} // namespace
