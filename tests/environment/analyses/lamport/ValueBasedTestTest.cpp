// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/ValueBasedTest_p.h"
#include "tests/environment/analyses/lamport/AccessList.h"

#include <gtest/gtest.h>

using namespace DepGraph;
using namespace Kova::Tests;

namespace {

using Lines = std::vector<std::string>;

class ValueBasedTestTest : public testing::Test {
protected:
    /// "source -> target" and what describeFound() says, for each arrow between a write and a read or another write.
    Lines find(ValueBasedTest::Limits limits = {}) {
        const AccessShapes shapes(context.get(), list.get());
        ExactTest exact(context.get(), shapes, {});
        const DependenceFinder finder(list.get(), {}, nullptr, false);
        ValueBasedTest test(context.get(), list.get(), shapes, finder, exact, limits);
        Lines lines;
        finder.find(test, [&](const DependenceFacts& found) {
            lines.push_back(std::to_string(list.numberOf(found.source)) + " -> " +
                            std::to_string(list.numberOf(found.target)) + " " +
                            describeFound(found.carriers, found.distance, found.directions, found.condition,
                                          found.assumption.doubt));
            return true;
        });
        return lines;
    }

    IslContext context;
    AccessList list{context.get()};
};

TEST_F(ValueBasedTestTest, TheLastWriteInStraightCodeHidesTheOthers) {
    list.write("s", "{ [] }");
    list.write("s", "{ [] }");
    list.read("s", "{ [] }");
    EXPECT_EQ(find(), Lines({"0 -> 1 [-1] ()", "1 -> 2 [-1] ()"}));
}

TEST_F(ValueBasedTestTest, AWriteOfAnotherElementHidesNothing) {
    list.write("a", "{ [] }", {"{ [] -> [1] }"});
    list.write("a", "{ [] }", {"{ [] -> [2] }"});
    list.read("a", "{ [] }", {"{ [] -> [1] }"});
    list.read("a", "{ [] }");
    EXPECT_EQ(find(), Lines({"0 -> 2 [-1] ()", "0 -> 3 [-1] ()", "1 -> 3 [-1] ()"}));
}

TEST_F(ValueBasedTestTest, AScalarOfALoopComesFromTheIterationBefore) {
    // s = ...; ... = s in each iteration: what is written there is overwritten in the next one.
    const std::string loop = "{ [i] : 0 <= i < 10 }";
    list.write("s", loop);
    list.read("s", loop);
    EXPECT_EQ(find(), Lines({"0 -> 0 [1] (1) <", "0 -> 1 [-1] (0) =", "1 -> 0 [1] (1) <"}));
}

TEST_F(ValueBasedTestTest, TheReaderBeforeTheWriterGetsItsNeighboursValue) {
    const std::string loop = "[n] -> { [i] : 0 <= i < n }";
    list.read("s", loop);
    list.write("s", loop);
    EXPECT_EQ(find(),
              Lines({"0 -> 1 [-1] (0) = if n >= 1", "1 -> 0 [1] (1) < if n >= 2", "1 -> 1 [1] (1) < if n >= 2"}));
}

TEST_F(ValueBasedTestTest, AWriteUnderAConditionHidesOnlyWhereItHappens) {
    const std::string loop = "{ [i] : 0 <= i < 10 }";
    list.write("a", loop, {"{ [i] -> [i] }"});
    list.write("a", "{ [i] : 0 <= i < 4 }", {"{ [i] -> [i] }"});
    list.read("a", "{ [i] : 0 <= i < 4 }", {"{ [i] -> [i] }"});
    list.read("a", loop, {"{ [i] -> [i] }"});
    // The read 2 lies where all has been written again, the read 3 elsewhere too.
    EXPECT_EQ(find(), Lines({"0 -> 1 [-1] (0) =", "0 -> 3 [-1] (0) =", "1 -> 2 [-1] (0) =", "1 -> 3 [-1] (0) ="}));
}

TEST_F(ValueBasedTestTest, AnAssumedWriteHidesNothing) {
    list.write("s", "{ [] }");
    list.write("s", "{ [] }").assumption = {Doubt::Condition, nullptr};
    list.read("s", "{ [] }");
    const std::string assumed = " doubt " + std::to_string(static_cast<int>(Doubt::Condition));
    EXPECT_EQ(find(), Lines({"0 -> 1 [-1] ()" + assumed, "0 -> 2 [-1] ()", "1 -> 2 [-1] ()" + assumed}));
}

TEST_F(ValueBasedTestTest, AWriteOfAMemberHidesThatMemberOnly) {
    Kova::Tessel::VariableDeclaration re("re", nullptr);
    list.write("z", "{ [] }");
    list.write("z", "{ [] }").memory.members = {&re};
    list.read("z", "{ [] }");
    list.read("z", "{ [] }").memory.members = {&re};
    EXPECT_EQ(find(), Lines({"0 -> 1 [-1] ()", "0 -> 2 [-1] ()", "1 -> 2 [-1] ()", "1 -> 3 [-1] ()"}));
    list.write("z", "{ [] }");
    EXPECT_EQ(find().back(), "3 -> 4 [-1] ()");
}

TEST_F(ValueBasedTestTest, TheSameInLoops) {
    Kova::Tessel::VariableDeclaration re("re", nullptr);
    const std::string once = "{ [i] : i = 0 }";
    list.write("z", once);
    list.write("z", once).memory.members = {&re};
    list.read("z", once);
    list.read("z", once).memory.members = {&re};
    EXPECT_EQ(find(), Lines({"0 -> 1 [-1] (0) =", "0 -> 2 [-1] (0) =", "1 -> 2 [-1] (0) =", "1 -> 3 [-1] (0) ="}));
}

TEST_F(ValueBasedTestTest, AWordThatReadsAndWritesHidesItsEarlierReads) {
    // s += ... in a loop: what the next iteration writes over was written by this one, not read.
    const std::string loop = "{ [i] : 0 <= i < 10 }";
    list.read("s", loop);
    list.write("s", loop);
    list.get()[1].occurrence = list.get()[0].occurrence;
    EXPECT_EQ(find(), Lines({"0 -> 0 [1] (1) <", "0 -> 0 [1] (1) <"})); // flow and output of the one word
    AccessList apart(context.get());
    std::swap(list, apart);
    list.read("s", loop);
    list.write("s", loop);
    EXPECT_EQ(find(), Lines({"0 -> 1 [-1] (0) =", "1 -> 0 [1] (1) <", "1 -> 1 [1] (1) <"}));
}

TEST_F(ValueBasedTestTest, AtItsLimitItKeepsWhatMeets) {
    const std::string loop = "{ [i] : 0 <= i < 10 }";
    list.write("a", loop, {"{ [i] -> [i] }"});
    list.write("a", loop, {"{ [i] -> [i] }"});
    list.read("a", loop, {"{ [i] -> [i] }"});
    EXPECT_EQ(find(), Lines({"0 -> 1 [-1] (0) =", "1 -> 2 [-1] (0) ="}));
    const std::string limit = " doubt " + std::to_string(static_cast<int>(Doubt::WorkLimit));
    const Lines all = {"0 -> 1 [-1] (0) =" + limit, "0 -> 2 [-1] (0) =" + limit, "1 -> 2 [-1] (0) =" + limit};
    EXPECT_EQ(find({1, 1000}), all);
    EXPECT_EQ(find({1'000'000, 0}), all);
}

} // namespace
