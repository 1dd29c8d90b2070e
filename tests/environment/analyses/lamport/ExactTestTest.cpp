// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/ExactTest_p.h"
#include "tests/environment/analyses/lamport/AccessList.h"

#include <gtest/gtest.h>

using namespace DepGraph;
using namespace Kova::Tests;

namespace {

const std::string none = "none";

std::string describe(const std::optional<PairFacts>& facts) {
    return facts ? describeFound(facts->carriers, facts->distance, facts->directions, facts->condition, facts->doubt)
                 : none;
}

/// Two accesses, the first one a write, and what is found from the first to the second.
class Pair {
public:
    Pair(const std::string& domain, const std::vector<std::string>& source, const std::string& otherDomain,
         const std::vector<std::string>& target) {
        m_list.write("a", domain, source);
        m_list.read("a", otherDomain, target);
    }
    Pair(const std::string& domain, const std::vector<std::string>& source, const std::vector<std::string>& target)
        : Pair(domain, source, domain, target) {}

    std::string find(ExactTest::Limits limits, ExactTest::Means means) {
        const AccessShapes shapes(m_context.get(), m_list.get());
        ExactTest test(m_context.get(), shapes, limits, means);
        return describe(test.test(orderAccesses(m_list.get(), 0, 1)));
    }
    /// By both means, which have to agree.
    std::string find() {
        const std::string found = find({}, ExactTest::Means::EliminationFirst);
        EXPECT_EQ(find({}, ExactTest::Means::IslAlone), found);
        return found;
    }
    std::string findBackward() {
        const AccessShapes shapes(m_context.get(), m_list.get());
        ExactTest test(m_context.get(), shapes, {});
        return describe(test.test(orderAccesses(m_list.get(), 1, 0)));
    }
    std::string findUnordered() {
        const AccessShapes shapes(m_context.get(), m_list.get());
        ExactTest test(m_context.get(), shapes, {});
        return describe(test.testUnordered(orderAccesses(m_list.get(), 0, 1)));
    }

private:
    IslContext m_context;
    AccessList m_list{m_context.get()};
};

TEST(ExactTest, FindsDistances) {
    const std::string loop = "[n] -> { [i] : 0 <= i < n }";
    // a[i + 2] is written, a[i] is read two iterations later.
    EXPECT_EQ(Pair(loop, {"{ [i] -> [i + 2] }"}, {"{ [i] -> [i] }"}).find(), "[1] (2) < if n >= 3");
    EXPECT_EQ(Pair(loop, {"{ [i] -> [i + 2] }"}, {"{ [i] -> [i] }"}).findBackward(), none);
    EXPECT_EQ(Pair(loop, {"{ [i] -> [i] }"}, {"{ [i] -> [i] }"}).find(), "[-1] (0) = if n >= 1");
    EXPECT_EQ(Pair(loop, {"{ [i] -> [i] }"}, {"{ [i] -> [i + 2] }"}).find(), none);
    EXPECT_EQ(Pair(loop, {"{ [i] -> [i] }"}, {"{ [i] -> [i + 2] }"}).findBackward(), "[1] (2) < if n >= 3");
}

TEST(ExactTest, EndsWithTheLoop) {
    const std::string loop = "{ [i] : 0 <= i < 10 }";
    EXPECT_EQ(Pair(loop, {"{ [i] -> [i + 9] }"}, {"{ [i] -> [i] }"}).find(), "[1] (9) <");
    EXPECT_EQ(Pair(loop, {"{ [i] -> [i + 10] }"}, {"{ [i] -> [i] }"}).find(), none);
    EXPECT_EQ(Pair("{ [i] : 1 = 0 }", {"{ [i] -> [i] }"}, {"{ [i] -> [i] }"}).find(), none);
}

TEST(ExactTest, TellsOddFromEven) {
    const std::string loop = "[n] -> { [i] : 0 <= i < n }";
    EXPECT_EQ(Pair(loop, {"{ [i] -> [2i] }"}, {"{ [i] -> [2i + 1] }"}).find(), none);
    // 2i = 2i' + 4: the read is of the element two iterations ahead.
    EXPECT_EQ(Pair(loop, {"{ [i] -> [2i] }"}, {"{ [i] -> [2i + 4] }"}).findBackward(), "[1] (2) < if n >= 3");
}

TEST(ExactTest, MeetsInTriangles) {
    // a[i][j] is written for j <= i, a[j][i] read: they meet on the diagonal only, in the same iteration.
    EXPECT_EQ(Pair("[n] -> { [i, j] : 0 <= j <= i < n }", {"{ [i, j] -> [i] }", "{ [i, j] -> [j] }"},
                   {"{ [i, j] -> [j] }", "{ [i, j] -> [i] }"})
                  .find(),
              "[-1] (0 0) = = if n >= 1");
    // In the square a[j][i] is read as well in a later iteration of i, where j is smaller.
    EXPECT_EQ(Pair("{ [i, j] : 0 <= j < 3 and 0 <= i < 3 }", {"{ [i, j] -> [i] }", "{ [i, j] -> [j] }"},
                   {"{ [i, j] -> [j] }", "{ [i, j] -> [i] }"})
                  .find(),
              "[-1 1] (* *) <= =>");
}

TEST(ExactTest, SeesConditionsExcludeEachOther) {
    EXPECT_EQ(Pair("[n] -> { [i] : 0 <= i < n and i <= 3 }", {"{ [i] -> [0] }"},
                   "[n] -> { [i] : 0 <= i < n and i > 8 }", {"{ [i] -> [0] }"})
                  .find(),
              "[1] (*) < if n >= 10");
    EXPECT_EQ(Pair("[n] -> { [i] : 0 <= i < 9 and n > 0 }", {"{ [i] -> [0] }"},
                   "[n] -> { [i] : 0 <= i < 9 and n <= 0 }", {"{ [i] -> [0] }"})
                  .find(),
              none);
}

TEST(ExactTest, TakesUnknownSubscriptsForAnything) {
    const std::string loop = "{ [i] : 0 <= i < 4 }";
    EXPECT_EQ(Pair(loop, {"?"}, {"{ [i] -> [i] }"}).find(), "[-1 1] (*) <=");
    // The first subscript tells them apart all the same.
    EXPECT_EQ(Pair(loop, {"{ [i] -> [1] }", "?"}, {"{ [i] -> [2] }", "{ [i] -> [i] }"}).find(), none);
    // A whole row meets each of its elements.
    EXPECT_EQ(Pair(loop, {"{ [i] -> [i] }"}, {"{ [i] -> [i] }", "{ [i] -> [7] }"}).find(), "[-1] (0) =");
}

TEST(ExactTest, WithoutAnOrderKnowsOnlyThatTheyMeet) {
    const std::string loop = "[n] -> { [i] : 0 <= i < n }";
    EXPECT_EQ(Pair(loop, {"{ [i] -> [i] }"}, {"{ [i] -> [i + 2] }"}).findUnordered(), "[] (*) ? if n >= 3");
    EXPECT_EQ(Pair(loop, {"{ [i] -> [2i] }"}, {"{ [i] -> [2i + 1] }"}).findUnordered(), none);
}

/// Where i meets 2j: no elimination with factors of 1, so that isl has to work.
Pair hard() {
    return Pair("[n, m] -> { [i, j] : 0 <= 3i < n and 2j <= 5i and 3j >= i - m }", {"{ [i, j] -> [7i + 5j] }"},
                {"{ [i, j] -> [3i + 2j + 1] }"});
}

TEST(ExactTest, GivesUpAtItsLimitAndSaysSo) {
    const std::string assumed = hard().find({1, 100}, ExactTest::Means::IslAlone);
    EXPECT_EQ(assumed.substr(assumed.size() - 8), "doubt " + std::to_string(static_cast<int>(Doubt::WorkLimit)));
    const std::string known = hard().find({100'000'000, 100}, ExactTest::Means::IslAlone);
    EXPECT_EQ(known.find("doubt"), std::string::npos);
    // Nothing that is there may be missing from what is assumed.
    EXPECT_NE(assumed.find("[-1 1 2]"), std::string::npos) << assumed;
    const std::string noPairs = hard().find({1'000'000, 0}, ExactTest::Means::EliminationFirst);
    EXPECT_EQ(noPairs, assumed);
}

TEST(ExactTest, WorksAfterItHasGivenUp) {
    const IslContext context;
    AccessList list(context.get());
    list.write("a", "[n] -> { [i] : 0 <= 3i < n }", {"{ [i] -> [7i] }"});
    list.read("a", "[n] -> { [i] : 0 <= 3i < n }", {"[n] -> { [i] -> [3i + n] }"});
    const AccessShapes shapes(context.get(), list.get());
    ExactTest limited(context.get(), shapes, {1, 100}, ExactTest::Means::IslAlone);
    const auto assumed = limited.test(orderAccesses(list.get(), 0, 1));
    ASSERT_TRUE(assumed);
    EXPECT_EQ(assumed->doubt, Doubt::WorkLimit);
    ExactTest test(context.get(), shapes, {});
    const auto known = test.test(orderAccesses(list.get(), 0, 1));
    ASSERT_TRUE(known);
    EXPECT_EQ(known->doubt, Doubt::None);
}

TEST(ExactTest, KnowsTheElementsOfAnAccess) {
    const IslContext context;
    AccessList list(context.get());
    list.write("a", "{ [i] : 0 <= i < 4 }", {"{ [i] -> [2i] }", "?"});
    list.write("b", "{ [i] : 0 <= i < 4 }", {"{ [i] -> [2i] }"});
    const AccessShapes shapes(context.get(), list.get());
    ExactTest test(context.get(), shapes, {});
    EXPECT_FALSE(test.isSingleElement(0));
    EXPECT_TRUE(test.isSingleElement(1));
    const auto is = [&](const isl::map& map, const char* text) { return map.is_equal(isl::map(context.get(), text)); };
    EXPECT_TRUE(is(test.getElements(0, 0), "{ [i] -> [] : 0 <= i < 4 }"));
    EXPECT_TRUE(is(test.getElements(0, 1), "{ [i] -> [2i] : 0 <= i < 4 }"));
    EXPECT_TRUE(is(test.getElements(0, 2), "{ [i] -> [2i, x] : 0 <= i < 4 }"));
    EXPECT_TRUE(is(test.getElements(1, 3), "{ [i] -> [2i, x, y] : 0 <= i < 4 }"));
}

} // namespace
