// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/SubscriptEquation_p.h"

#include <gtest/gtest.h>

#include <random>

using namespace DepGraph;

namespace {

constexpr Direction any = Direction::Any;
constexpr Direction later = Direction::Later;
constexpr Direction same = Direction::Same;
constexpr Direction earlier = Direction::Earlier;

using Ranges = std::vector<IterationRange>;
using Unknowns = std::vector<std::pair<int, long>>;

LinearForm form(long constant, std::vector<long> iterations, Unknowns unknowns = {}) {
    return {constant, std::move(iterations), std::move(unknowns)};
}

bool mayHold(const LinearForm& source, const LinearForm& target, const Directions& directions, const Ranges& ranges) {
    return SubscriptEquation(source, target).mayHold(directions, {ranges, ranges});
}

const Ranges ten = {{0, 9}};
const Ranges tenByTen = {{0, 9}, {0, 9}};

TEST(SubscriptEquation, WithoutIterationsIsDecidedByItsConstants) {
    EXPECT_TRUE(mayHold(form(3, {0}), form(3, {0}), {any}, ten));
    EXPECT_FALSE(mayHold(form(3, {0}), form(4, {0}), {any}, ten));
    // n against n, n against n + 1, n against m
    EXPECT_TRUE(mayHold(form(0, {0}, {{0, 1}}), form(0, {0}, {{0, 1}}), {any}, ten));
    EXPECT_FALSE(mayHold(form(0, {0}, {{0, 1}}), form(1, {0}, {{0, 1}}), {any}, ten));
    EXPECT_TRUE(mayHold(form(0, {0}, {{0, 1}}), form(0, {0}, {{1, 1}}), {any}, ten));
    // 2n against 2m + 1
    EXPECT_FALSE(mayHold(form(0, {0}, {{0, 2}}), form(1, {0}, {{1, 2}}), {any}, ten));
}

TEST(SubscriptEquation, IsTrivialWhenBothSidesAreTheSame) {
    EXPECT_TRUE(SubscriptEquation(form(3, {0, 0}, {{1, 5}}), form(3, {0, 0}, {{1, 5}})).isTrivial());
    EXPECT_FALSE(SubscriptEquation(form(3, {0, 0}, {{1, 5}}), form(3, {0, 0}, {{2, 5}})).isTrivial());
    EXPECT_FALSE(SubscriptEquation(form(3, {0, 0}), form(2, {0, 0})).isTrivial());
    // The same counter in different iterations.
    EXPECT_FALSE(SubscriptEquation(form(0, {1}), form(0, {1})).isTrivial());
}

TEST(SubscriptEquation, NeedsTheGreatestCommonDivisor) {
    // a[2i] and a[4j + 1], a[4j + 2]
    EXPECT_FALSE(mayHold(form(0, {2, 0}), form(1, {0, 4}), {any, any}, tenByTen));
    EXPECT_TRUE(mayHold(form(0, {2, 0}), form(2, {0, 4}), {any, any}, tenByTen));
    // a[3i] and a[i + 1] in the same iteration: 2i = 1
    EXPECT_FALSE(mayHold(form(0, {3}), form(1, {1}), {same}, ten));
    EXPECT_TRUE(mayHold(form(0, {3}), form(2, {1}), {same}, ten));
    EXPECT_TRUE(mayHold(form(0, {3}), form(1, {1}), {any}, ten));
}

TEST(SubscriptEquation, StaysWithinTheBounds) {
    // a[i + j] and a[i + j + c]: the sums are from 0 to 18.
    const LinearForm sum = form(0, {1, 1});
    EXPECT_TRUE(mayHold(sum, form(18, {1, 1}), {any, any}, tenByTen));
    EXPECT_FALSE(mayHold(sum, form(19, {1, 1}), {any, any}, tenByTen));
    EXPECT_TRUE(mayHold(sum, form(-18, {1, 1}), {any, any}, tenByTen));
    EXPECT_FALSE(mayHold(sum, form(-19, {1, 1}), {any, any}, tenByTen));
}

TEST(SubscriptEquation, StaysWithinTheBoundsOfItsDirections) {
    const LinearForm sum = form(0, {1, 1});
    // The source's counters are at most 9 - 0 beyond the target's; with a later target 1 short of it at best.
    EXPECT_TRUE(mayHold(sum, form(18, {1, 1}), {earlier, earlier}, tenByTen));
    EXPECT_FALSE(mayHold(sum, form(18, {1, 1}), {later, any}, tenByTen));
    EXPECT_TRUE(mayHold(sum, form(8, {1, 1}), {later, any}, tenByTen));
    EXPECT_FALSE(mayHold(sum, form(9, {1, 1}), {later, any}, tenByTen));
    EXPECT_TRUE(mayHold(sum, form(9, {1, 1}), {same, any}, tenByTen));
    EXPECT_FALSE(mayHold(sum, form(10, {1, 1}), {same, any}, tenByTen));
    EXPECT_TRUE(mayHold(sum, form(-9, {1, 1}), {later, same}, tenByTen));
    EXPECT_FALSE(mayHold(sum, form(-10, {1, 1}), {later, same}, tenByTen));
    EXPECT_FALSE(mayHold(sum, form(0, {1, 1}), {later, later}, tenByTen));
    EXPECT_FALSE(mayHold(sum, form(0, {1, 1}), {earlier, same}, tenByTen));
    EXPECT_TRUE(mayHold(sum, form(0, {1, 1}), {earlier, later}, tenByTen));
}

TEST(SubscriptEquation, HasNoLaterIterationInALoopThatRunsOnce) {
    const Ranges once = {{0, 0}};
    EXPECT_TRUE(mayHold(form(0, {1}), form(0, {1}), {same}, once));
    EXPECT_FALSE(mayHold(form(0, {1}), form(0, {1}), {later}, once));
    EXPECT_FALSE(mayHold(form(0, {1}), form(0, {1}), {earlier}, once));
    EXPECT_FALSE(mayHold(form(0, {0}), form(0, {0}), {any}, {{0, -1}}));
}

TEST(SubscriptEquation, CountsLoopsOfOneSideAsFree) {
    const Ranges source = {{0, 9}, {0, 3}};
    const Ranges target = {{0, 9}, {5, 6}};
    // i + 10s against i + 10t: the inner loops are different ones.
    const SubscriptEquation inner(form(0, {1, 10}), form(0, {1, 10}));
    EXPECT_FALSE(inner.mayHold({same}, {source, target}));
    EXPECT_FALSE(inner.mayHold({any}, {source, target}));
    const SubscriptEquation shifted(form(21, {1, 10}), form(0, {1, 10}));
    EXPECT_TRUE(shifted.mayHold({any}, {source, target}));
    EXPECT_FALSE(shifted.mayHold({same}, {source, target}));
}

TEST(SubscriptEquation, WithUnknownsHasNoBounds) {
    EXPECT_TRUE(mayHold(form(1000, {1}, {{0, 1}}), form(0, {1}), {later}, ten));
    // 2i + 2n against 2i + 1 is even against odd.
    EXPECT_FALSE(mayHold(form(0, {2}, {{0, 2}}), form(1, {2}), {any}, ten));
}

TEST(SubscriptEquation, TakesAFixedDistance) {
    // i + j against i + j + 3, the target being two iterations of i later: j = j' + 5
    SubscriptEquation equation(form(0, {1, 1}), form(3, {1, 1}));
    equation.substitute(0, 2);
    const auto single = equation.findSingle();
    ASSERT_TRUE(single);
    EXPECT_EQ(single->sourceLoop, 1u);
    EXPECT_EQ(single->targetLoop, 1u);
    EXPECT_EQ(single->sourceFactor, 1);
    EXPECT_EQ(single->targetFactor, 1);
    EXPECT_EQ(single->constant, -5);
}

TEST(SubscriptEquation, IsSingleWithOneLoopOnEachSide) {
    const auto single = SubscriptEquation(form(7, {0, 3}), form(2, {-4, 0})).findSingle();
    ASSERT_TRUE(single);
    EXPECT_EQ(single->sourceLoop, 1u);
    EXPECT_EQ(single->targetLoop, 0u);
    EXPECT_EQ(single->sourceFactor, 3);
    EXPECT_EQ(single->targetFactor, -4);
    EXPECT_EQ(single->constant, 5);
    EXPECT_FALSE(SubscriptEquation(form(0, {1, 1}), form(0, {1, 0})).findSingle());
    EXPECT_FALSE(SubscriptEquation(form(0, {1}, {{0, 1}}), form(0, {1})).findSingle());
    EXPECT_TRUE(SubscriptEquation(form(0, {1}, {{0, 1}}), form(0, {1}, {{0, 1}})).findSingle());
    const auto none = SubscriptEquation(form(1, {0}), form(1, {0})).findSingle();
    ASSERT_TRUE(none);
    EXPECT_FALSE(none->sourceLoop || none->targetLoop);
    EXPECT_TRUE(SubscriptEquation(form(1L << 40, {1}), form(0, {1})).findSingle());
    EXPECT_FALSE(SubscriptEquation(form(1L << 40, {1}), form(-1, {1})).findSingle());
}

bool isIn(Direction direction, long distance) {
    return direction == any || (direction == later && distance > 0) || (direction == same && distance == 0) ||
           (direction == earlier && distance < 0);
}

long valueOf(const LinearForm& linear, long i, long j) {
    return linear.constant + linear.iterations[0] * i + linear.iterations[1] * j;
}

bool exists(const LinearForm& source, const LinearForm& target, const Directions& directions, const Ranges& ranges) {
    for (long i = ranges[0].low; i <= ranges[0].high; ++i)
        for (long j = ranges[1].low; j <= ranges[1].high; ++j)
            for (long k = ranges[0].low; k <= ranges[0].high; ++k)
                for (long l = ranges[1].low; l <= ranges[1].high; ++l)
                    if (isIn(directions[0], k - i) && isIn(directions[1], l - j) &&
                        valueOf(source, i, j) == valueOf(target, k, l))
                        return true;
    return false;
}

TEST(SubscriptEquation, NeverDeniesWhatTheEnumerationFinds) {
    std::mt19937 random(5);
    const auto number = [&random](long from, long to) {
        return from + static_cast<long>(random() % static_cast<unsigned long>(to - from + 1));
    };
    int denied = 0;
    for (int trial = 0; trial < 3000; ++trial) {
        const LinearForm source = form(number(-12, 12), {number(-3, 3), number(-3, 3)});
        const LinearForm target = form(number(-12, 12), {number(-3, 3), number(-3, 3)});
        const Ranges ranges = {{number(-2, 0), number(0, 3)}, {number(-2, 0), number(0, 3)}};
        for (const Direction outer : {any, later, same, earlier})
            for (const Direction inner : {any, later, same, earlier}) {
                const bool may = mayHold(source, target, {outer, inner}, ranges);
                denied += may ? 0 : 1;
                ASSERT_TRUE(may || !exists(source, target, {outer, inner}, ranges)) << "trial " << trial;
            }
    }
    EXPECT_GT(denied, 10000);
}

} // namespace
