// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/LoopReader_p.h"
#include "environment/tessel/DoWhileStatement.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/WhileStatement.h"
#include "tests/frontends/c/FirstBody.h"

#include <gtest/gtest.h>

using namespace Kova::Test;
using namespace Kova::Tessel;
using namespace DepGraph;

namespace {

/// A loop of a function, entered at the start of its body.
class EnteredLoop {
public:
    /// @param statements with one loop, of class Loop.
    template <class Loop>
    static EnteredLoop of(const std::string& statements) {
        EnteredLoop entered(statements);
        LoopReader reader(*entered.m_course, *entered.m_loops);
        entered.m_iterations = reader.enter(*entered.m_body->findAll<Loop>().at(0));
        return entered;
    }

    [[nodiscard]] bool tests(const char* domain) const { return is(m_iterations.tests.domain, domain); }
    [[nodiscard]] bool runs(const char* domain) const { return is(m_iterations.body.domain, domain); }
    [[nodiscard]] Doubt doubt() const { return m_iterations.body.assumption.doubt; }
    /// Whether a variable is known to be this function of the iteration numbers.
    [[nodiscard]] bool knows(const std::string& variable, const char* value) const {
        const auto found = m_course->getNest().findValue(m_body->findVariable(variable));
        const isl::set all = m_iterations.body.domain;
        return found && all.is_subset(found->eq_set(isl::pw_aff(m_context->get(), value)));
    }
    [[nodiscard]] bool knowsNothingOf(const std::string& variable) const {
        return !m_course->getNest().findValue(m_body->findVariable(variable));
    }
    [[nodiscard]] unsigned depth() const { return m_course->getDepth(); }

private:
    explicit EnteredLoop(const std::string& statements)
        : m_context(std::make_unique<IslContext>()),
          m_body(std::make_unique<FirstBody>("void f(int n, int m, unsigned u, double a[]) { int i;\n" + statements +
                                             "\n}")),
          m_facts(std::make_unique<BlockFacts>(m_body->get())),
          m_course(std::make_unique<Course>(m_context->get(), *m_facts)),
          m_loops(std::make_unique<CountedLoops>(m_body->get(), *m_facts, m_course->getReader())) {}

    [[nodiscard]] bool is(const isl::set& set, const char* text) const {
        return set.is_equal(isl::set(m_context->get(), text));
    }

    std::unique_ptr<IslContext> m_context;
    std::unique_ptr<FirstBody> m_body;
    std::unique_ptr<BlockFacts> m_facts;
    std::unique_ptr<Course> m_course;
    std::unique_ptr<CountedLoops> m_loops;
    LoopIterations m_iterations;
};

EnteredLoop enterFor(const std::string& header, const std::string& body = "a[0] = 0;") {
    return EnteredLoop::of<ForStatement>("for (" + header + ") { " + body + " }");
}

TEST(LoopReader, TestsOnceMoreThanItRuns) {
    const EnteredLoop loop = enterFor("i = 2; i < n; i++");
    EXPECT_TRUE(loop.runs("[n] -> { [k] : 0 <= k and k + 2 < n }"));
    EXPECT_TRUE(loop.tests("[n] -> { [k] : 0 <= k and (k = 0 or k + 1 < n) }"));
    EXPECT_EQ(loop.doubt(), Doubt::None);
    EXPECT_TRUE(loop.knows("i", "{ [k] -> [k + 2] }"));
    EXPECT_EQ(loop.depth(), 1u);
}

TEST(LoopReader, CountsInSteps) {
    EXPECT_TRUE(enterFor("i = 0; i < 10; i += 3").runs("{ [k] : 0 <= k <= 3 }"));
    EXPECT_TRUE(enterFor("i = 10; i > 0; i -= 3").runs("{ [k] : 0 <= k <= 3 }"));
    EXPECT_TRUE(enterFor("i = 9; i > 0; i -= 3").runs("{ [k] : 0 <= k <= 2 }"));
    EXPECT_TRUE(enterFor("i = 10; i > 0; i -= 3").knows("i", "{ [k] -> [10 - 3k] }"));
}

TEST(LoopReader, EndsAtTheFirstFailure) {
    EXPECT_TRUE(enterFor("i = 0; i != 4; i++").runs("{ [k] : 0 <= k <= 3 }"));
    EXPECT_TRUE(enterFor("i = 0; i < 3 || i > 5; i++").runs("{ [k] : 0 <= k <= 2 }"));
    EXPECT_TRUE(enterFor("i = 0; i < n && i < m; i++").runs("[n, m] -> { [k] : 0 <= k < n and k < m }"));
}

TEST(LoopReader, KnowsLoopsThatNeverRun) {
    for (const char* header : {"i = 3; i < 3; i++", "i = 0; i > n && n > i; i++", "i = 0; 0; i++"}) {
        const EnteredLoop loop = enterFor(header);
        EXPECT_TRUE(loop.runs("{ [k] : false }")) << header;
        EXPECT_TRUE(loop.tests("{ [0] }")) << header;
        EXPECT_EQ(loop.doubt(), Doubt::None) << header;
    }
}

TEST(LoopReader, DoubtsWhatItCannotCount) {
    // Steps of zero and of unknown sign, no condition, a bound from memory, a counter or bound that changes.
    for (const char* header : {"i = 0; i < n; i += 0", "i = 0; i < n; i += m", "i = 0; ; i++", "i = 0; i < a[0]; i++",
                               "i = 0; i < n; i *= 2", "i = 0; i < n; n--"}) {
        const EnteredLoop loop = enterFor(header);
        EXPECT_TRUE(loop.runs("{ [k] : 0 <= k }")) << header;
        EXPECT_EQ(loop.doubt(), Doubt::Bounds) << header;
    }
    const EnteredLoop changed = enterFor("i = 0; i < n; i++", "i += 2;");
    EXPECT_TRUE(changed.runs("{ [k] : 0 <= k }"));
    EXPECT_EQ(changed.doubt(), Doubt::Bounds);
    EXPECT_TRUE(changed.knowsNothingOf("i"));
}

TEST(LoopReader, KnowsTheCounterThoughNotTheEnd) {
    const EnteredLoop loop = enterFor("i = 1; i < a[0]; i += 2");
    EXPECT_TRUE(loop.knows("i", "{ [k] -> [2k + 1] }"));
}

TEST(LoopReader, DoubtsCountersThatWrapAround) {
    const EnteredLoop loop = enterFor("unsigned k = u; k >= 0; k--");
    EXPECT_TRUE(loop.runs("{ [k] : 0 <= k }"));
    EXPECT_EQ(loop.doubt(), Doubt::Bounds);
    EXPECT_TRUE(loop.knowsNothingOf("k"));
    EXPECT_EQ(enterFor("unsigned k = u; k > 0; k--").doubt(), Doubt::None);
    EXPECT_EQ(enterFor("unsigned char k = 0; k < 256; k++").doubt(), Doubt::Bounds);
    EXPECT_EQ(enterFor("unsigned char k = 0; k < 255; k++").doubt(), Doubt::None);
}

TEST(LoopReader, WhileLoopsRunAnyNumberOfTimes) {
    const EnteredLoop loop = EnteredLoop::of<WhileStatement>("while (n > 0) n--;");
    EXPECT_TRUE(loop.tests("{ [k] : 0 <= k }"));
    EXPECT_TRUE(loop.runs("{ [k] : 0 <= k }"));
    EXPECT_EQ(loop.doubt(), Doubt::Bounds);
    const EnteredLoop never = EnteredLoop::of<WhileStatement>("while (0) n--;");
    EXPECT_TRUE(never.tests("{ [0] }"));
    EXPECT_TRUE(never.runs("{ [k] : false }"));
    EXPECT_EQ(never.doubt(), Doubt::None);
}

TEST(LoopReader, DoWhileLoopsRunOnceAtLeast) {
    const EnteredLoop loop = EnteredLoop::of<DoWhileStatement>("do n--; while (n > 0);");
    EXPECT_TRUE(loop.runs("{ [k] : 0 <= k }"));
    EXPECT_EQ(loop.doubt(), Doubt::Bounds);
    const EnteredLoop once = EnteredLoop::of<DoWhileStatement>("do n--; while (0);");
    EXPECT_TRUE(once.runs("{ [0] }"));
    EXPECT_EQ(once.doubt(), Doubt::None);
}

} // namespace
