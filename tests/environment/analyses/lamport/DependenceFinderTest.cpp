// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/DependenceFinder_p.h"
#include "environment/tessel/GotoStatement.h"
#include "tests/environment/analyses/lamport/AccessList.h"

#include <gtest/gtest.h>

using namespace DepGraph;
using namespace Kova::Tests;

namespace {

using Lines = std::vector<std::string>;

/// Says what a test has written down for a pair, and remembers what it was asked.
class ScriptedTest final : public PairTest {
public:
    [[nodiscard]] std::optional<PairFacts> test(const AccessPair& pair) override {
        ordered.push_back(nameOf(pair) + (pair.inOrder ? " in order" : "") + (pair.ownLoops > 0 ? " own" : ""));
        const auto answer = answers.find(nameOf(pair));
        return answer == answers.end() ? std::nullopt : std::optional(answer->second);
    }
    [[nodiscard]] std::optional<PairFacts> testUnordered(const AccessPair& pair) override {
        unordered.push_back(nameOf(pair));
        return assumeAll(pair, {}, Doubt::None);
    }

    std::map<std::string, PairFacts> answers;
    Lines ordered;
    Lines unordered;

private:
    static std::string nameOf(const AccessPair& pair) {
        return std::to_string(pair.source) + " -> " + std::to_string(pair.target);
    }
};

PairFacts facts(std::vector<int> carriers, std::vector<std::optional<long>> distance = {},
                std::vector<std::string> directions = {}, std::string condition = {}, Doubt doubt = Doubt::None) {
    return {std::move(carriers), std::move(distance), std::move(directions), std::move(condition), doubt};
}

class DependenceFinderTest : public testing::Test {
protected:
    /// "kind source -> target" and what describeFound() says, for each arrow.
    Lines find(bool withInput = true, const Kova::Tessel::TesselBase* disorder = nullptr,
               const std::vector<Access>& declarations = {}) {
        Lines lines;
        DependenceFinder(list.get(), declarations, disorder, withInput).find(test, [&](const DependenceFacts& found) {
            const char* kind = found.type == DT_FLOW     ? "flow "
                               : found.type == DT_ANTI   ? "anti "
                               : found.type == DT_OUTPUT ? "output "
                                                         : "input ";
            lines.push_back(kind + std::to_string(list.numberOf(found.source)) + " -> " +
                            std::to_string(list.numberOf(found.target)) + " " +
                            describeFound(found.carriers, found.distance, found.directions, found.condition,
                                          found.assumption.doubt));
            m_found.push_back(found);
            return lines.size() < m_most;
        });
        return lines;
    }

    IslContext context;
    AccessList list{context.get()};
    ScriptedTest test;
    std::vector<DependenceFacts> m_found;
    std::size_t m_most = 1000;
};

TEST_F(DependenceFinderTest, AsksForPairsOfOneVariableInTheirOrder) {
    list.write("a", "{ [] }");
    list.read("b", "{ [] }");
    list.read("a", "{ [] }");
    list.write("b", "{ [] }");
    EXPECT_EQ(find(), Lines());
    // Outside of loops nothing comes before itself or what stands before it.
    EXPECT_EQ(test.ordered, Lines({"0 -> 2 in order", "1 -> 3 in order"}));
}

TEST_F(DependenceFinderTest, AsksForBothWaysInLoops) {
    list.write("a", "{ [i] }");
    list.read("a", "{ [i] }");
    (void)find();
    EXPECT_EQ(test.ordered, Lines({"0 -> 0", "0 -> 1 in order", "1 -> 0", "1 -> 1"}));
}

TEST_F(DependenceFinderTest, LeavesPairsOfReadsOutUnlessAsked) {
    list.read("a", "{ [] }");
    list.read("a", "{ [] }");
    test.answers["0 -> 1"] = facts({-1});
    EXPECT_EQ(find(false), Lines());
    EXPECT_EQ(test.ordered, Lines());
    EXPECT_EQ(find(true), Lines({"input 0 -> 1 [-1] ()"}));
}

TEST_F(DependenceFinderTest, NamesTheKinds) {
    list.write("a", "{ [] }");
    list.read("a", "{ [] }");
    list.write("a", "{ [] }");
    for (const char* pair : {"0 -> 1", "0 -> 2", "1 -> 2"})
        test.answers[pair] = facts({-1});
    EXPECT_EQ(find(), Lines({"flow 0 -> 1 [-1] ()", "output 0 -> 2 [-1] ()", "anti 1 -> 2 [-1] ()"}));
}

TEST_F(DependenceFinderTest, SortsByTargetThenKind) {
    // `a[..] += a[..]`: the word 0 reads, then writes; what is printed first is executed last.
    Access& target = list.read("a", "{ [i] }");
    Access copy = target;
    copy.writes = true;
    copy.positions.back() = 9;
    list.read("a", "{ [i] }");
    std::vector<Access> accesses = {list.get()[0], copy, list.get()[1]};
    for (const char* pair : {"0 -> 1", "1 -> 0", "1 -> 1", "0 -> 0", "1 -> 2", "2 -> 1", "2 -> 0"})
        test.answers[pair] = facts({1});
    Lines lines;
    DependenceFinder(accesses, {}, nullptr, true).find(test, [&](const DependenceFacts& found) {
        lines.push_back(std::to_string(list.numberOf(found.source)) + std::to_string(list.numberOf(found.target)) +
                        " " + std::to_string(found.type));
        return true;
    });
    EXPECT_EQ(lines, Lines({"00 1", "00 2", "00 4", "00 8", "01 1", "10 2", "10 8"}));
}

TEST_F(DependenceFinderTest, StopsWhenToldSo) {
    for (int i = 0; i < 4; ++i)
        list.write("a", "{ [] }");
    for (const char* pair : {"0 -> 1", "0 -> 2", "0 -> 3", "1 -> 2"})
        test.answers[pair] = facts({-1});
    m_most = 2;
    EXPECT_EQ(find(), Lines({"output 0 -> 1 [-1] ()", "output 0 -> 2 [-1] ()"}));
}

/// A word that stands for two writes, of a pointer and of what it leads to.
TEST_F(DependenceFinderTest, UnitesWhatOneWordDoes) {
    list.write("p", "{ [i] }");
    list.read("p", "{ [i] }");
    std::vector<Access> accesses = list.get();
    accesses.insert(accesses.begin() + 1, accesses[0]);
    const auto unite = [&](const PairFacts& one, const PairFacts& other) {
        test.answers["0 -> 2"] = one;
        test.answers["1 -> 2"] = other;
        std::vector<DependenceFacts> found;
        DependenceFinder(accesses, {}, nullptr, false).find(test, [&](DependenceFacts arrow) {
            found.push_back(std::move(arrow));
            return true;
        });
        EXPECT_EQ(found.size(), 1u);
        const DependenceFacts& arrow = found.at(0);
        return describeFound(arrow.carriers, arrow.distance, arrow.directions, arrow.condition, arrow.assumption.doubt);
    };
    EXPECT_EQ(unite(facts({-1}, {0}, {"="}), facts({1}, {2}, {"<"})), "[-1 1] (*) <=");
    EXPECT_EQ(unite(facts({1}, {2}, {"<"}), facts({1}, {2}, {"<"})), "[1] (2) <");
    EXPECT_EQ(unite(facts({}, {{}}, {""}), facts({1}, {2}, {"<"})), "[] (*) ?");
    EXPECT_EQ(unite(facts({1}, {2}, {"<"}, "n > 1"), facts({1}, {2}, {"<"}, "m > 1")), "[1] (2) < if n > 1 or m > 1");
    EXPECT_EQ(unite(facts({1}, {2}, {"<"}, "n > 1"), facts({1}, {2}, {"<"})), "[1] (2) <");
    // One of them is known to exist: so does the arrow.
    const Doubt limit = Doubt::WorkLimit;
    EXPECT_EQ(unite(facts({1}, {2}, {"<"}, "", limit), facts({1}, {2}, {"<"})), "[1] (2) <");
    EXPECT_EQ(unite(facts({1}, {2}, {"<"}), facts({1}, {2}, {"<"}, "", limit)), "[1] (2) <");
    EXPECT_NE(unite(facts({1}, {2}, {"<"}, "", limit), facts({1}, {2}, {"<"}, "", limit)), "[1] (2) <");
}

TEST_F(DependenceFinderTest, TellsMembersApart) {
    Kova::Tessel::VariableDeclaration re("re", nullptr);
    Kova::Tessel::VariableDeclaration im("im", nullptr);
    list.write("z", "{ [] }").memory.members = {&re};
    list.read("z", "{ [] }").memory.members = {&im};
    list.read("z", "{ [] }");
    list.read("z", "{ [] }").memory.pointee = true;
    (void)find(false);
    EXPECT_EQ(test.ordered, Lines({"0 -> 2 in order"}));
}

TEST_F(DependenceFinderTest, VariablesOfALoopsBodyAreNewInEachIteration) {
    list.write("t", "{ [i, j] }");
    Access declaration = list.get().front();
    declaration.occurrence = nullptr;
    declaration.loops.resize(1);
    (void)find(false, nullptr, {declaration});
    EXPECT_EQ(test.ordered, Lines({"0 -> 0 own"}));
    // What a pointer leads to stays.
    test.ordered.clear();
    list.get().front().memory.pointee = true;
    (void)find(false, nullptr, {declaration});
    EXPECT_EQ(test.ordered, Lines({"0 -> 0"}));
}

TEST_F(DependenceFinderTest, WithoutAnOrderAsksForEveryPair) {
    list.write("a", "{ [] }");
    list.read("a", "{ [] }");
    const Kova::Tessel::GotoStatement jump{std::string("again")};
    const std::string doubt = " doubt " + std::to_string(static_cast<int>(Doubt::Jump));
    EXPECT_EQ(find(false, &jump),
              Lines({"output 0 -> 0 [] ()" + doubt, "flow 0 -> 1 [] ()" + doubt, "anti 1 -> 0 [] ()" + doubt}));
    EXPECT_EQ(test.unordered, Lines({"0 -> 0", "0 -> 1", "1 -> 0"}));
    EXPECT_EQ(test.ordered, Lines());
    EXPECT_EQ(m_found.front().assumption.where, &jump);
}

TEST_F(DependenceFinderTest, TakesTheAccessesDoubts) {
    list.write("a", "{ [] }");
    list.read("a", "{ [] }").assumption = {Doubt::Subscript, nullptr};
    list.read("a", "{ [] }");
    test.answers["0 -> 1"] = facts({-1});
    test.answers["0 -> 2"] = facts({-1}, {}, {}, "", Doubt::QuickTest);
    EXPECT_EQ(find(false), Lines({"flow 0 -> 1 [-1] () doubt " + std::to_string(static_cast<int>(Doubt::Subscript)),
                                  "flow 0 -> 2 [-1] () doubt " + std::to_string(static_cast<int>(Doubt::QuickTest))}));
    // That the work was too much counts for more.
    test.answers["0 -> 1"].doubt = Doubt::WorkLimit;
    EXPECT_EQ(find(false).front(), "flow 0 -> 1 [-1] () doubt " + std::to_string(static_cast<int>(Doubt::WorkLimit)));
}

TEST_F(DependenceFinderTest, NamesTheCommonLoops) {
    list.write("a", "{ [i, j] }");
    list.read("a", "{ [i] }");
    list.get()[1].positions[0] = 0;
    test.answers["0 -> 1"] = facts({1}, {1}, {"<"});
    EXPECT_EQ(find(false), Lines({"flow 0 -> 1 [1] (1) <"}));
    ASSERT_EQ(m_found.front().commonLoops.size(), 1u);
    EXPECT_EQ(m_found.front().commonLoops.front(), list.get()[0].loops.front());
}

} // namespace
