// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/AccessRecorder_p.h"
#include "environment/analyses/lamport/PlaceReader_p.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/GotoStatement.h"
#include "environment/tessel/SubscriptExpression.h"
#include "environment/tessel/UnaryExpression.h"
#include "environment/tessel/VariableReference.h"
#include "tests/frontends/c/FirstBody.h"

#include <gtest/gtest.h>

using namespace Kova::Test;
using namespace Kova::Tessel;
using namespace DepGraph;

namespace {

/// A recorder at the start of a function's body.
class Recording {
public:
    explicit Recording(const std::string& statements, bool isDisordered = false)
        : body("void f(int n, int m, double *p, double *q, double a[9][9]) {\n" + statements + "\n}"),
          facts(body.get()),
          course(context.get(), facts),
          loops(body.get(), facts, course.getReader()),
          recorder(course, loops, isDisordered ? &jump : nullptr) {}

    /// The first place that an lvalue names.
    template <class Node>
    [[nodiscard]] Place place(std::size_t number) const {
        return PlaceReader(false).readLvalue(*body.findAll<Node>().at(number)).at(0);
    }
    [[nodiscard]] bool is(const isl::set& set, const char* text) const {
        return set.is_equal(isl::set(context.get(), text));
    }

    GotoStatement jump{std::string("again")};
    IslContext context;
    FirstBody body;
    BlockFacts facts;
    Course course;
    CountedLoops loops;
    AccessRecorder recorder;
};

TEST(AccessRecorder, RecordsInTheOrderOfExecution) {
    Recording of("n = m;");
    const Place target = of.place<VariableReference>(0);
    const Place value = of.place<VariableReference>(1);
    of.recorder.note(value, false);
    of.recorder.note(target, true);
    const std::vector<Access> accesses = of.recorder.takeAccesses();
    ASSERT_EQ(accesses.size(), 2u);
    EXPECT_EQ(accesses[0].occurrence, value.leaf);
    EXPECT_FALSE(accesses[0].writes);
    EXPECT_EQ(accesses[0].memory.variable, &of.body.findVariable("m"));
    EXPECT_TRUE(accesses[1].writes);
    EXPECT_EQ(accesses[0].positions, std::vector<int>{0});
    EXPECT_EQ(accesses[1].positions, std::vector<int>{1});
    EXPECT_TRUE(of.is(accesses[0].domain, "{ [] }"));
    EXPECT_EQ(accesses[0].assumption.doubt, Doubt::None);
}

TEST(AccessRecorder, TakesLoopsAndIterationsFromThePoint) {
    Recording of("for (int i = 0; i < n; i++) m = n;");
    const ForStatement& loop = *of.body.findAll<ForStatement>().at(0);
    of.course.enterLoop(loop);
    of.course.setReach({isl::set(of.context.get(), "[n] -> { [k] : 0 <= k < n }"), {Doubt::Condition, &loop}});
    of.recorder.note(of.place<VariableReference>(3), true);
    of.course.leaveLoop();
    of.course.setReach({isl::set(of.context.get(), "{ [] }"), {}});
    of.recorder.note(of.place<VariableReference>(3), true);
    const std::vector<Access> accesses = of.recorder.takeAccesses();
    ASSERT_EQ(accesses.size(), 2u);
    EXPECT_EQ(accesses[0].loops, std::vector<const LoopStatement*>{&loop});
    EXPECT_EQ(accesses[0].positions, (std::vector<int>{0, 0}));
    EXPECT_TRUE(of.is(accesses[0].domain, "[n] -> { [k] : 0 <= k < n }"));
    EXPECT_EQ(accesses[0].assumption.doubt, Doubt::Condition);
    EXPECT_EQ(accesses[0].assumption.where, &loop);
    EXPECT_TRUE(accesses[1].loops.empty());
    // After the loop, and no longer in doubt.
    EXPECT_EQ(accesses[1].positions, std::vector<int>{1});
    EXPECT_EQ(accesses[1].assumption.doubt, Doubt::None);
}

TEST(AccessRecorder, ReadsSubscripts) {
    Recording of("a[n][2 * m + 1] = 0; a[n * m][n] = 0;");
    of.recorder.note(of.place<SubscriptExpression>(0), true);
    const auto elements = of.body.findAll<SubscriptExpression>();
    const auto second = std::find_if(elements.begin() + 1, elements.end(), [&](const SubscriptExpression* element) {
        return dynamic_cast<const SubscriptExpression*>(element->getParent()) == nullptr;
    });
    of.recorder.note(PlaceReader(false).readLvalue(**second).at(0), true);
    const std::vector<Access> accesses = of.recorder.takeAccesses();
    ASSERT_EQ(accesses.size(), 2u);
    ASSERT_EQ(accesses[0].subscripts.size(), 2u);
    const auto isValue = [&](const std::optional<isl::pw_aff>& value, const char* text) {
        return value && accesses[0].domain.is_subset(value->eq_set(isl::pw_aff(of.context.get(), text)));
    };
    EXPECT_TRUE(isValue(accesses[0].subscripts[0], "[n] -> { [] -> [n] }"));
    EXPECT_TRUE(isValue(accesses[0].subscripts[1], "[m] -> { [] -> [2m + 1] }"));
    EXPECT_EQ(accesses[0].assumption.doubt, Doubt::None);
    // A product of unknowns is not affine; the other subscript is known all the same.
    ASSERT_EQ(accesses[1].subscripts.size(), 2u);
    EXPECT_FALSE(accesses[1].subscripts[0]);
    EXPECT_TRUE(isValue(accesses[1].subscripts[1], "[n] -> { [] -> [n] }"));
    EXPECT_EQ(accesses[1].assumption.doubt, Doubt::Subscript);
}

TEST(AccessRecorder, PointersThatStayAreNames) {
    Recording of("p[0] = 1; *q = 2; q = p;");
    of.recorder.noteFollowed(of.place<VariableReference>(0));
    EXPECT_TRUE(of.recorder.takeAccesses().empty());
    of.recorder.note(of.place<SubscriptExpression>(0), true);
    of.recorder.noteFollowed(of.place<VariableReference>(1));
    of.recorder.note(of.place<UnaryExpression>(0), true);
    const std::vector<Access> accesses = of.recorder.takeAccesses();
    ASSERT_EQ(accesses.size(), 3u);
    EXPECT_EQ(accesses[0].assumption.doubt, Doubt::None);
    EXPECT_TRUE(accesses[0].memory.pointee);
    EXPECT_EQ(accesses[0].subscripts.size(), 1u);
    // q changes, so it is read, and what it leads to is not known.
    EXPECT_FALSE(accesses[1].memory.pointee);
    EXPECT_FALSE(accesses[1].writes);
    EXPECT_EQ(accesses[2].assumption.doubt, Doubt::Pointer);
    EXPECT_TRUE(accesses[2].subscripts.empty());
}

TEST(AccessRecorder, CountersThatLoopsExplainAreNoData) {
    Recording of("int i; for (i = 0; i < n; i++) a[i][0] = i;");
    for (const VariableReference* word : of.body.findAll<VariableReference>())
        if (word->getVariable().getName() == "i")
            of.recorder.note(Place::of(*word), false);
    EXPECT_TRUE(of.recorder.takeAccesses().empty());
    of.recorder.noteDeclaration(of.body.findVariable("i"));
    EXPECT_TRUE(of.recorder.takeDeclarations().empty());
}

TEST(AccessRecorder, DeclarationsAreWritesWithoutAWord) {
    Recording of("double x = n;");
    of.recorder.noteDeclaration(of.body.findVariable("x"));
    EXPECT_TRUE(of.recorder.takeAccesses().empty());
    const std::vector<Access> declarations = of.recorder.takeDeclarations();
    ASSERT_EQ(declarations.size(), 1u);
    EXPECT_EQ(declarations[0].occurrence, nullptr);
    EXPECT_EQ(declarations[0].memory.variable, &of.body.findVariable("x"));
    EXPECT_TRUE(declarations[0].writes);
}

TEST(AccessRecorder, WithoutAnOrderKnowsNoIterationsOrSubscripts) {
    Recording of("for (int i = 0; i < 5; i++) a[i][0] = i;", true);
    of.course.enterLoop(*of.body.findAll<ForStatement>().at(0));
    of.course.setReach({isl::set(of.context.get(), "{ [k] : 0 <= k < 5 }"), {}});
    for (const VariableReference* word : of.body.findAll<VariableReference>())
        if (word->getVariable().getName() == "i")
            of.recorder.note(Place::of(*word), false);
    of.recorder.note(of.place<SubscriptExpression>(0), true);
    const std::vector<Access> accesses = of.recorder.takeAccesses();
    // The counter is data again: `i < 5`, `i++`, `a[i]`, `= i`; then the element.
    ASSERT_EQ(accesses.size(), 5u);
    EXPECT_TRUE(of.is(accesses.back().domain, "{ [k] : 0 <= k }"));
    EXPECT_TRUE(accesses.back().subscripts.empty());
    EXPECT_EQ(accesses.back().assumption.doubt, Doubt::Jump);
    EXPECT_EQ(accesses.back().assumption.where, &of.jump);
}

} // namespace
