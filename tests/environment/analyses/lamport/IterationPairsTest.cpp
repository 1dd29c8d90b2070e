// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/IterationPairs_p.h"

#include <gtest/gtest.h>

#include <ostream>

namespace DepGraph {

static bool operator==(const IterationRange& left, const IterationRange& right) {
    return left.low == right.low && left.high == right.high;
}

static std::ostream& operator<<(std::ostream& out, const IterationRange& range) {
    return out << range.low << ".." << range.high;
}

} // namespace DepGraph

using namespace DepGraph;

namespace {

using Distances = std::optional<IterationRange>;

constexpr Direction directions[] = {Direction::Any, Direction::Later, Direction::Same, Direction::Earlier};

/// source * sourceFactor + constant = target * targetFactor over 0..9 on both sides.
Distances overTen(Direction direction, long sourceFactor, long targetFactor, long constant) {
    return IterationPairs{{0, 9}, {0, 9}, sourceFactor, targetFactor, constant}.findDistances(direction);
}

bool isIn(Direction direction, long distance) {
    switch (direction) {
    case Direction::Any:
        return true;
    case Direction::Later:
        return distance > 0;
    case Direction::Same:
        return distance == 0;
    case Direction::Earlier:
        return distance < 0;
    }
    return false;
}

Distances enumerate(const IterationPairs& pairs, Direction direction) {
    Distances found;
    for (long source = pairs.source.low; source <= pairs.source.high; ++source)
        for (long target = pairs.target.low; target <= pairs.target.high; ++target) {
            const long distance = target - source;
            if (source * pairs.sourceFactor - target * pairs.targetFactor + pairs.constant != 0 ||
                !isIn(direction, distance))
                continue;
            found = found ? IterationRange{std::min(found->low, distance), std::max(found->high, distance)}
                          : IterationRange{distance, distance};
        }
    return found;
}

TEST(IterationPairs, OfEqualFactorsHaveOneDistance) {
    EXPECT_EQ(overTen(Direction::Any, 1, 1, 2), Distances({2, 2}));
    EXPECT_EQ(overTen(Direction::Later, 1, 1, 2), Distances({2, 2}));
    EXPECT_EQ(overTen(Direction::Same, 1, 1, 2), std::nullopt);
    EXPECT_EQ(overTen(Direction::Earlier, 1, 1, 2), std::nullopt);
    EXPECT_EQ(overTen(Direction::Earlier, 1, 1, -2), Distances({-2, -2}));
    EXPECT_EQ(overTen(Direction::Same, 1, 1, 0), Distances({0, 0}));
    EXPECT_EQ(overTen(Direction::Any, 3, 3, 6), Distances({2, 2}));
}

TEST(IterationPairs, EndWithTheLoop) {
    // From the first iteration to the last one, but no farther.
    EXPECT_EQ(overTen(Direction::Any, 1, 1, 9), Distances({9, 9}));
    EXPECT_EQ(overTen(Direction::Any, 1, 1, 10), std::nullopt);
    EXPECT_EQ(overTen(Direction::Any, 1, 1, -9), Distances({-9, -9}));
    EXPECT_EQ(overTen(Direction::Any, 1, 1, -10), std::nullopt);
}

TEST(IterationPairs, NeedTheGreatestCommonDivisor) {
    EXPECT_EQ(overTen(Direction::Any, 2, 4, 1), std::nullopt);
    // source = 2 * target - 1: from (1, 1) to (9, 5)
    EXPECT_EQ(overTen(Direction::Any, 2, 4, 2), Distances({-4, 0}));
}

TEST(IterationPairs, WithAFixedSideTakeAllOfTheOther) {
    // The source is iteration 5.
    EXPECT_EQ(overTen(Direction::Any, 1, 0, -5), Distances({-5, 4}));
    EXPECT_EQ(overTen(Direction::Later, 1, 0, -5), Distances({1, 4}));
    EXPECT_EQ(overTen(Direction::Later, 1, 0, -9), std::nullopt);
    EXPECT_EQ(overTen(Direction::Any, 1, 0, -10), std::nullopt);
    // The target is.
    EXPECT_EQ(overTen(Direction::Any, 0, 1, 5), Distances({-4, 5}));
    EXPECT_EQ(overTen(Direction::Earlier, 0, 1, 9), std::nullopt);
    EXPECT_EQ(overTen(Direction::Later, 0, 1, 0), std::nullopt);
}

TEST(IterationPairs, ThatCrossMeetInTheMiddle) {
    // source + target = 9: no iteration meets itself.
    EXPECT_EQ(overTen(Direction::Any, 1, -1, -9), Distances({-9, 9}));
    EXPECT_EQ(overTen(Direction::Later, 1, -1, -9), Distances({1, 9}));
    EXPECT_EQ(overTen(Direction::Same, 1, -1, -9), std::nullopt);
    // source + target = 8: the fourth does.
    EXPECT_EQ(overTen(Direction::Same, 1, -1, -8), Distances({0, 0}));
    EXPECT_EQ(overTen(Direction::Later, 1, -1, -8), Distances({2, 8}));
    // Beyond the last two.
    EXPECT_EQ(overTen(Direction::Any, 1, -1, -18), Distances({0, 0}));
    EXPECT_EQ(overTen(Direction::Any, 1, -1, -19), std::nullopt);
}

TEST(IterationPairs, WithoutAnEquationAreAllPairs) {
    EXPECT_EQ(overTen(Direction::Any, 0, 0, 0), Distances({-9, 9}));
    EXPECT_EQ(overTen(Direction::Later, 0, 0, 0), Distances({1, 9}));
    EXPECT_EQ(overTen(Direction::Same, 0, 0, 0), Distances({0, 0}));
    EXPECT_EQ(overTen(Direction::Any, 0, 0, 1), std::nullopt);
    EXPECT_EQ((IterationPairs{{3, 3}, {3, 3}}.findDistances(Direction::Later)), std::nullopt);
    EXPECT_EQ((IterationPairs{{0, 3}, {5, 6}}.findDistances(Direction::Any)), Distances({2, 6}));
    EXPECT_EQ((IterationPairs{{0, 3}, {5, 6}}.findDistances(Direction::Earlier)), std::nullopt);
}

TEST(IterationPairs, OfALoopThatNeverRunsAreNone) {
    for (const Direction direction : directions) {
        EXPECT_EQ((IterationPairs{{0, -1}, {0, 9}}.findDistances(direction)), std::nullopt);
        EXPECT_EQ((IterationPairs{{0, 9}, {4, 3}, 1, 1, 0}.findDistances(direction)), std::nullopt);
    }
}

TEST(IterationPairs, OfEndlessLoopsHaveNoBound) {
    const IterationRange all{0, IterationRange::unbounded};
    const Distances free = IterationPairs{all, all}.findDistances(Direction::Any);
    ASSERT_TRUE(free);
    EXPECT_EQ(*free, (IterationRange{-IterationRange::unbounded, IterationRange::unbounded}));
    EXPECT_FALSE(free->isBounded());
    EXPECT_EQ((IterationPairs{all, all, 1, 1, 1L << 40}.findDistances(Direction::Any)),
              Distances({1L << 40, 1L << 40}));
    // source = 2 * target: the target is never later.
    EXPECT_EQ((IterationPairs{all, all, 1, 2, 0}.findDistances(Direction::Later)), std::nullopt);
    EXPECT_EQ((IterationPairs{all, all, 1, 2, 0}.findDistances(Direction::Any)->high), 0);
}

TEST(IterationPairs, OfLargeFactorsDoNotOverflow) {
    const long large = 1L << 40;
    EXPECT_EQ((IterationPairs{{0, IterationRange::unbounded}, {0, IterationRange::unbounded}, large, large, large}
                   .findDistances(Direction::Any)),
              Distances({1, 1}));
    EXPECT_EQ((IterationPairs{{0, 9}, {0, 9}, large, large - 1, -1}.findDistances(Direction::Any)), Distances({0, 0}));
}

TEST(IterationPairs, AreThoseOfTheEnumeration) {
    for (const auto& [source, target] : {std::pair<IterationRange, IterationRange>({0, 6}, {0, 6}),
                                         {{0, 3}, {2, 7}},
                                         {{-3, 2}, {-1, 4}},
                                         {{5, 5}, {0, 9}}})
        for (long sourceFactor = -4; sourceFactor <= 4; ++sourceFactor)
            for (long targetFactor = -4; targetFactor <= 4; ++targetFactor)
                for (long constant = -9; constant <= 9; ++constant)
                    for (const Direction direction : directions) {
                        const IterationPairs pairs{source, target, sourceFactor, targetFactor, constant};
                        ASSERT_EQ(pairs.findDistances(direction), enumerate(pairs, direction))
                            << sourceFactor << " * s - " << targetFactor << " * t + " << constant << ", s in " << source
                            << ", t in " << target << ", direction " << static_cast<int>(direction);
                    }
}

} // namespace
