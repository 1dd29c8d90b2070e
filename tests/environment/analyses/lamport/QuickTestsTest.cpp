// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/QuickFacts_p.h"
#include "tests/environment/analyses/lamport/AccessList.h"

#include <gtest/gtest.h>

using namespace DepGraph;
using namespace Kova::Tests;

namespace {

constexpr Direction any = Direction::Any;
constexpr Direction later = Direction::Later;
constexpr Direction same = Direction::Same;
constexpr Direction earlier = Direction::Earlier;

const std::string ten = "{ [i] : 0 <= i < 10 }";
const std::string tenByTen = "{ [i, j] : 0 <= i < 10 and 0 <= j < 10 }";

/// Two accesses in the same loops.
class Pair {
public:
    Pair(const std::string& domain, const std::vector<std::string>& source, const std::vector<std::string>& target) {
        m_list.write("a", domain, source);
        m_list.read("a", domain, target);
    }

    [[nodiscard]] QuickTests test() const {
        return {m_shapes.getShape(0), m_shapes.getShape(1), m_list.get().front().loops.size()};
    }
    [[nodiscard]] bool mayMeet(const Directions& directions) const { return test().mayMeet(directions); }
    [[nodiscard]] bool isExact() const { return test().isExact(); }
    /// "low..high", or "none".
    [[nodiscard]] std::string distances(std::size_t loop, Direction direction) const {
        const auto range = test().findDistances(loop, direction);
        return range ? std::to_string(range->low) + ".." + std::to_string(range->high) : "none";
    }
    [[nodiscard]] std::string describe() const {
        const auto facts = describeQuickly(test(), orderAccesses(m_list.get(), 0, 1));
        return facts
                   ? describeFound(facts->carriers, facts->distance, facts->directions, facts->condition, facts->doubt)
                   : "none";
    }

private:
    IslContext m_context;
    AccessList m_list{m_context.get()};
    // After the list is filled, which the first use sees to.
    struct Shapes {
        const AccessShape& getShape(std::size_t access) const {
            if (!shapes)
                shapes = std::make_unique<AccessShapes>(context, list.get());
            return shapes->getShape(access);
        }
        isl::ctx context;
        const AccessList& list;
        mutable std::unique_ptr<AccessShapes> shapes;
    };
    Shapes m_shapes{m_context.get(), m_list, nullptr};
};

TEST(QuickTests, CompareConstants) {
    EXPECT_FALSE(Pair(ten, {"{ [i] -> [3] }"}, {"{ [i] -> [4] }"}).mayMeet({any}));
    const Pair equal(ten, {"{ [i] -> [3] }"}, {"{ [i] -> [3] }"});
    EXPECT_TRUE(equal.mayMeet({any}) && equal.mayMeet({later}) && equal.mayMeet({same}));
    EXPECT_TRUE(equal.isExact());
    EXPECT_EQ(equal.distances(0, later), "1..9");
}

TEST(QuickTests, CompareUnknowns) {
    const std::string loop = "[n, m] -> { [i] : 0 <= i < 10 }";
    EXPECT_FALSE(Pair(loop, {"[n] -> { [i] -> [n] }"}, {"[n] -> { [i] -> [n + 1] }"}).mayMeet({any}));
    EXPECT_TRUE(Pair(loop, {"[n] -> { [i] -> [n] }"}, {"[n] -> { [i] -> [n] }"}).isExact());
    const Pair different(loop, {"[n] -> { [i] -> [n] }"}, {"[m] -> { [i] -> [m] }"});
    EXPECT_TRUE(different.mayMeet({any}));
    EXPECT_FALSE(different.isExact());
    EXPECT_FALSE(Pair(loop, {"[n] -> { [i] -> [2n] }"}, {"[m] -> { [i] -> [2m + 1] }"}).mayMeet({any}));
}

TEST(QuickTests, DecideStrongSivToTheBorder) {
    const Pair nine(ten, {"{ [i] -> [i + 9] }"}, {"{ [i] -> [i] }"});
    EXPECT_TRUE(nine.isExact());
    EXPECT_TRUE(nine.mayMeet({later}));
    EXPECT_FALSE(nine.mayMeet({same}) || nine.mayMeet({earlier}));
    EXPECT_EQ(nine.distances(0, later), "9..9");
    EXPECT_FALSE(Pair(ten, {"{ [i] -> [i + 10] }"}, {"{ [i] -> [i] }"}).mayMeet({any}));
    EXPECT_FALSE(Pair(ten, {"{ [i] -> [2i] }"}, {"{ [i] -> [2i + 5] }"}).mayMeet({any}));
    EXPECT_EQ(Pair(ten, {"{ [i] -> [2i] }"}, {"{ [i] -> [2i + 6] }"}).distances(0, any), "-3..-3");
}

TEST(QuickTests, DecideWeakSivToTheBorder) {
    // a[i] against a[9], a[10], a[0]: weak-zero
    EXPECT_TRUE(Pair(ten, {"{ [i] -> [i] }"}, {"{ [i] -> [9] }"}).mayMeet({same}));
    EXPECT_FALSE(Pair(ten, {"{ [i] -> [i] }"}, {"{ [i] -> [9] }"}).mayMeet({later}));
    EXPECT_FALSE(Pair(ten, {"{ [i] -> [i] }"}, {"{ [i] -> [10] }"}).mayMeet({any}));
    EXPECT_FALSE(Pair(ten, {"{ [i] -> [i] }"}, {"{ [i] -> [0] }"}).mayMeet({earlier}));
    EXPECT_EQ(Pair(ten, {"{ [i] -> [i] }"}, {"{ [i] -> [0] }"}).distances(0, later), "1..9");
    // a[i] against a[9 - i], a[18 - i], a[19 - i]: weak-crossing
    EXPECT_FALSE(Pair(ten, {"{ [i] -> [i] }"}, {"{ [i] -> [9 - i] }"}).mayMeet({same}));
    EXPECT_EQ(Pair(ten, {"{ [i] -> [i] }"}, {"{ [i] -> [9 - i] }"}).distances(0, any), "-9..9");
    EXPECT_EQ(Pair(ten, {"{ [i] -> [i] }"}, {"{ [i] -> [18 - i] }"}).distances(0, any), "0..0");
    EXPECT_FALSE(Pair(ten, {"{ [i] -> [i] }"}, {"{ [i] -> [19 - i] }"}).mayMeet({any}));
    // a[i] against a[3i + 1]: (1, 0), (4, 1), (7, 2)
    EXPECT_EQ(Pair(ten, {"{ [i] -> [i] }"}, {"{ [i] -> [3i + 1] }"}).distances(0, any), "-5..-1");
    EXPECT_FALSE(Pair(ten, {"{ [i] -> [i] }"}, {"{ [i] -> [3i + 1] }"}).mayMeet({later}));
}

TEST(QuickTests, ApplyTheGcdTestToSeveralLoops) {
    EXPECT_FALSE(Pair(tenByTen, {"{ [i, j] -> [4i + 2j] }"}, {"{ [i, j] -> [6i + 2j + 1] }"}).mayMeet({any, any}));
    const Pair even(tenByTen, {"{ [i, j] -> [4i + 2j] }"}, {"{ [i, j] -> [6i + 2j + 2] }"});
    EXPECT_TRUE(even.mayMeet({any, any}));
    EXPECT_FALSE(even.isExact());
    // 2(j - j') = 6i' - 4i + 2 is positive with i' = i, so that j' is never later there.
    EXPECT_EQ(even.describe().substr(0, 4), "[1] ");
}

TEST(QuickTests, ApplyBanerjeesBoundsPerDirection) {
    // i + j from 0 to 18 on each side.
    EXPECT_FALSE(Pair(tenByTen, {"{ [i, j] -> [i + j] }"}, {"{ [i, j] -> [i + j + 19] }"}).mayMeet({any, any}));
    const Pair eighteen(tenByTen, {"{ [i, j] -> [i + j] }"}, {"{ [i, j] -> [i + j + 18] }"});
    EXPECT_TRUE(eighteen.mayMeet({earlier, earlier}));
    EXPECT_FALSE(eighteen.mayMeet({later, any}) || eighteen.mayMeet({same, any}));
    const Pair zero(tenByTen, {"{ [i, j] -> [i + j] }"}, {"{ [i, j] -> [i + j] }"});
    EXPECT_TRUE(zero.mayMeet({later, earlier}) && zero.mayMeet({same, same}));
    EXPECT_FALSE(zero.mayMeet({later, later}) || zero.mayMeet({same, later}));
    EXPECT_EQ(zero.describe(), "[-1 1] (* *) <= => doubt " + std::to_string(static_cast<int>(Doubt::QuickTest)));
}

TEST(QuickTests, PutFixedDistancesIntoOtherSubscripts) {
    // The rows are two apart, so the sums in the columns are j against j - 2.
    const Pair pair(tenByTen, {"{ [i, j] -> [i] }", "{ [i, j] -> [i + j] }"},
                    {"{ [i, j] -> [i - 2] }", "{ [i, j] -> [i + j - 2] }"});
    EXPECT_TRUE(pair.isExact());
    EXPECT_EQ(pair.distances(0, any), "2..2");
    EXPECT_EQ(pair.distances(1, any), "0..0");
    EXPECT_EQ(pair.describe(), "[1] (2 0) < =");
    // The other way round the sum comes first.
    EXPECT_EQ(Pair(tenByTen, {"{ [i, j] -> [i + j] }", "{ [i, j] -> [i] }"},
                   {"{ [i, j] -> [i + j - 2] }", "{ [i, j] -> [i - 2] }"})
                  .describe(),
              "[1] (2 0) < =");
    // Of a chain each link gives the next one.
    EXPECT_EQ(Pair("{ [i, j, k] : 0 <= i < 10 and 0 <= j < 10 and 0 <= k < 10 }",
                   {"{ [i, j, k] -> [i + j] }", "{ [i, j, k] -> [i] }", "{ [i, j, k] -> [j + k] }"},
                   {"{ [i, j, k] -> [i + j - 3] }", "{ [i, j, k] -> [i - 2] }", "{ [i, j, k] -> [j + k - 4] }"})
                  .describe(),
              "[1] (2 1 3) < < <");
    // Two subscripts demand different distances of one loop.
    EXPECT_EQ(Pair(ten, {"{ [i] -> [i] }", "{ [i] -> [i] }"}, {"{ [i] -> [i - 1] }", "{ [i] -> [i - 2] }"}).describe(),
              "none");
}

TEST(QuickTests, AreNotExactInTriangles) {
    const std::string triangle = "{ [i, j] : 0 <= i < 10 and 0 <= j <= i }";
    const Pair pair(triangle, {"{ [i, j] -> [i] }"}, {"{ [i, j] -> [i] }"});
    EXPECT_FALSE(pair.isExact());
    EXPECT_TRUE(Pair(tenByTen, {"{ [i, j] -> [i] }"}, {"{ [i, j] -> [i] }"}).isExact());
    EXPECT_TRUE(pair.mayMeet({any, any}));
}

TEST(QuickTests, TakeUnknownSubscriptsForAnything) {
    const Pair pair(ten, {"?"}, {"{ [i] -> [i] }"});
    EXPECT_TRUE(pair.mayMeet({later}) && pair.mayMeet({same}) && pair.mayMeet({earlier}));
    EXPECT_FALSE(Pair(ten, {"{ [i] -> [1] }", "?"}, {"{ [i] -> [2] }", "?"}).mayMeet({any}));
}

TEST(QuickTests, FindNothingInLoopsThatNeverRun) {
    EXPECT_FALSE(Pair("{ [i] : 5 <= i < 5 }", {"{ [i] -> [i] }"}, {"{ [i] -> [i] }"}).mayMeet({any}));
}

TEST(QuickTests, KnowTheLoopsOfOneSideOnly) {
    const IslContext context;
    AccessList list(context.get());
    list.write("a", ten, {"{ [i] -> [i] }"});
    list.read("a", tenByTen, {"{ [i, j] -> [j + 10] }"});
    list.read("a", tenByTen, {"{ [i, j] -> [j + 9] }"});
    const AccessShapes shapes(context.get(), list.get());
    EXPECT_FALSE(QuickTests(shapes.getShape(0), shapes.getShape(1), 1).mayMeet({any}));
    EXPECT_TRUE(QuickTests(shapes.getShape(0), shapes.getShape(2), 1).mayMeet({any}));
}

TEST(QuickTests, DecideOneLoopOnEachSideExactly) {
    // 3k + 2 = 7l for the first time with k = 4, l = 2.
    const IslContext context;
    AccessList list(context.get());
    list.write("a", "{ [k] : 0 <= k <= 3 }", {"{ [k] -> [3k + 2] }"});
    list.read("a", "{ [l] : 0 <= l <= 3 }", {"{ [l] -> [7l] }"});
    list.write("a", "{ [k] : 0 <= k <= 4 }", {"{ [k] -> [3k + 2] }"});
    const AccessShapes shapes(context.get(), list.get());
    EXPECT_FALSE(QuickTests(shapes.getShape(0), shapes.getShape(1), 0).mayMeet({}));
    EXPECT_TRUE(QuickTests(shapes.getShape(2), shapes.getShape(1), 0).mayMeet({}));
}

} // namespace
