// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/ExpressionWalker_p.h"
#include "environment/tessel/ExpressionStatement.h"
#include "environment/tessel/SubroutineCallExpression.h"
#include "environment/tessel/SubroutineReference.h"
#include "environment/tessel/VariableReference.h"
#include "tests/frontends/c/FirstBody.h"

#include <gtest/gtest.h>

using namespace Kova::Test;
using namespace Kova::Tessel;
using namespace DepGraph;

namespace {

/// Writes down what it hears: "r a[1]" with the number of subscripts, "f p" for a pointer that is followed, a star for
/// each pointer behind which the access is, "?" where it is assumed.
class Listener final : public AccessSink {
public:
    void read(const Place& place) override { say("r", place); }
    void write(const Place& place) override { say("w", place); }
    void followPointer(const Place& pointer) override { say("f", pointer); }
    void call(const SubroutineCallExpression& call) override { add("call" + std::to_string(call.getArgumentCount())); }
    void enterIf(const ExpressionBase& /*condition*/, bool value) override { add(value ? "if(" : "else("); }
    void leaveIf() override { add(")"); }
    void enterBlock(BlockStatement& block) override { add("block" + std::to_string(block.getChildCount())); }

    std::string text;

private:
    void add(const std::string& part) { text += (text.empty() ? "" : " ") + part; }
    void say(const std::string& what, const Place& place) {
        std::string name = std::string(place.memory.pointee ? 1 : 0, '*') +
                           std::string(place.memory.loaded ? 1 : 0, '*') + place.leaf->getVariable().getName();
        for (const DeclarationBase* member : place.memory.members)
            name += "." + member->getName();
        if (!place.subscripts.empty())
            name += "[" + std::to_string(place.subscripts.size()) + "]";
        add(what + " " + name + (place.isWhole ? "!" : "") + (place.assumption.doubt != Doubt::None ? "?" : ""));
    }
};

const char* const declarations =
    "struct S { double re, im; struct S *next; double *data; };\n"
    "union U { int i; float f; };\n"
    "void g(double *), h(const double *), k(int);\n"
    "void f(int n, int m, double x, double *p, double **q, struct S s, struct S *t, union U u) {\n"
    "double a[9], b[9][9]; int c[9]; struct S v[9];\n";

std::string hear(const std::string& expression) {
    const FirstBody body(declarations + expression + ";\n}\n");
    Listener listener;
    ExpressionWalker walker(listener, false);
    walker.walk(body.findAll<ExpressionStatement>().at(0)->getExpression());
    return listener.text;
}

TEST(ExpressionWalker, ReadsBeforeItWrites) {
    EXPECT_EQ(hear("x = n"), "r n w x");
    EXPECT_EQ(hear("a[n] = a[m] + x"), "r n r m r a[1] r x w a[1]");
    EXPECT_EQ(hear("b[n][m] = 1"), "r n r m w b[2]");
    // The value of an assignment is what was assigned: nothing is read again.
    EXPECT_EQ(hear("x = n = m"), "r m w n w x");
}

TEST(ExpressionWalker, CompoundAssignmentsReadAndWriteTheirTarget) {
    EXPECT_EQ(hear("x += n"), "r x r n w x");
    EXPECT_EQ(hear("a[n] *= a[m]"), "r n r a[1] r m r a[1] w a[1]");
    EXPECT_EQ(hear("c[n] <<= 2"), "r n r c[1] w c[1]");
}

TEST(ExpressionWalker, IncrementsReadAndWrite) {
    EXPECT_EQ(hear("n++"), "r n w n");
    EXPECT_EQ(hear("--a[n]"), "r n r a[1] w a[1]");
    EXPECT_EQ(hear("a[n++] = m"), "r n w n r m w a[1]");
}

TEST(ExpressionWalker, SubscriptsAreEvaluatedInside) {
    EXPECT_EQ(hear("a[c[n]] = 0"), "r n r c[1] w a[1]");
    EXPECT_EQ(hear("x = n[a]"), "r n r a[1] w x");
}

TEST(ExpressionWalker, FollowsPointers) {
    // The element that a pointer leads to is its first one.
    EXPECT_EQ(hear("*p = 1"), "f p w *p[1]");
    EXPECT_EQ(hear("p[n] = 1"), "f p r n w *p[1]");
    EXPECT_EQ(hear("*(p + n) = 1"), "f p r n w *p[1]");
    EXPECT_EQ(hear("p = a"), "w p");
    EXPECT_EQ(hear("x = **q"), "f q f *q[1] r **q[2] w x");
    EXPECT_EQ(hear("*p++ = x"), "r p w p r x w *p[1]");
}

TEST(ExpressionWalker, ChoosesMembers) {
    EXPECT_EQ(hear("s.re = s.im"), "r s.im w s.re");
    EXPECT_EQ(hear("t->re = 1"), "f t w *t.re[1]");
    EXPECT_EQ(hear("v[n].im = 1"), "r n w v.im[1]");
    EXPECT_EQ(hear("x = t->next->re").substr(0, 12), "f t f *t.nex");
    // The members of a union are the same memory.
    EXPECT_EQ(hear("u.i = u.f"), "r u w u");
}

TEST(ExpressionWalker, AddressesAreNoAccesses) {
    EXPECT_EQ(hear("p = &x"), "w p");
    EXPECT_EQ(hear("p = &a[n]"), "r n w p");
    EXPECT_EQ(hear("n = sizeof a[m]"), "w n");
    EXPECT_EQ(hear("x = *&x"), "r x w x");
}

TEST(ExpressionWalker, SecondOperandsOfShortCircuitsDepend) {
    EXPECT_EQ(hear("n && m"), "r n if( r m )");
    EXPECT_EQ(hear("n || m"), "r n else( r m )");
    EXPECT_EQ(hear("n && m && c[0]"), "r n if( r m ) if( r c[1] )");
}

TEST(ExpressionWalker, BranchesOfChoicesDepend) {
    EXPECT_EQ(hear("x = n ? a[0] : m"), "r n if( r a[1] ) else( r m ) w x");
    EXPECT_EQ(hear("(n ? a : p)[1] = m").find("r n if("), 0u);
    // Which of the two is written is not known.
    EXPECT_NE(hear("*(n ? &x : p) = m").find("?"), std::string::npos);
}

TEST(ExpressionWalker, CallsComeAfterTheirArguments) {
    EXPECT_EQ(hear("k(n++)"), "r n w n call1");
    EXPECT_EQ(hear("g(a)"), "r a!? w a!? call1");
    EXPECT_EQ(hear("h(a)"), "r a!? call1");
    EXPECT_EQ(hear("g(p)"), "f p r *p!? w *p!? call1");
    EXPECT_EQ(hear("g(&x)"), "r x!? w x!? call1");
    EXPECT_EQ(hear("x = sizeof(g(a), n)"), "w x");
}

TEST(ExpressionWalker, CommasAreEvaluatedInOrder) {
    EXPECT_EQ(hear("n = 1, m = n"), "w n r n w m");
}

TEST(ExpressionWalker, HandsBlocksOver) {
    EXPECT_EQ(hear("x = ({ n = 1; n; })"), "block2 w x");
}

TEST(ExpressionWalker, TakesExpressionsOfAnyDepth) {
    std::string sum = "x = n";
    for (int i = 0; i < 3000; ++i)
        sum += " + m";
    const std::string heard = hear(sum);
    EXPECT_EQ(heard.substr(0, 11), "r n r m r m");
    EXPECT_EQ(heard.substr(heard.size() - 7), "r m w x");
    // Deeper than it is followed in order: everything may be read and written, nothing is lost.
    std::string nested = "n";
    for (int i = 0; i < 600; ++i)
        nested = "c[" + nested + "]";
    const std::string unordered = hear("x = " + nested);
    EXPECT_NE(unordered.find("w c!?"), std::string::npos);
    EXPECT_NE(unordered.find("r n!?"), std::string::npos);
    EXPECT_EQ(unordered.substr(unordered.size() - 3), "w x");
}

TEST(ExpressionWalker, NothingIsNothing) {
    Listener listener;
    ExpressionWalker(listener, false).walk(nullptr);
    EXPECT_EQ(listener.text, "");
}

TEST(ExpressionWalker, OfUnknownEffectsTellsReadsAndWritesOfAllNames) {
    const FirstBody body(std::string(declarations) + "a[n] = x;\n}\n");
    Listener listener;
    ExpressionWalker(listener, false).walkUnknown(*body.findAll<ExpressionStatement>().at(0));
    EXPECT_EQ(listener.text, "r a!? w a!? r n!? w n!? r x!? w x!?");
}

} // namespace
