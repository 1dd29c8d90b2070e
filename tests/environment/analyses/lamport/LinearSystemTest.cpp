// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/LinearSystem_p.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

using namespace DepGraph;

namespace {

using Row = LinearSystem::Row;

/// factors * variables + constant >= 0
Row atLeast(std::vector<long> factors, long constant) {
    return {std::move(factors), constant, false};
}

/// factors * variables + constant = 0
Row equal(std::vector<long> factors, long constant) {
    return {std::move(factors), constant, true};
}

LinearSystem make(std::size_t variables, const std::vector<Row>& rows) {
    LinearSystem system(variables);
    for (const Row& row : rows)
        system.add(row);
    return system;
}

void expectRange(const LinearSystem& system, std::size_t variable, long low, long high) {
    ASSERT_TRUE(system.isSolved());
    ASSERT_FALSE(system.isContradictory());
    EXPECT_EQ(system.findRange(variable).low, low);
    EXPECT_EQ(system.findRange(variable).high, high);
}

TEST(LinearSystem, RoundsBoundsToWholeNumbers) {
    // 2x >= 5 and 3x <= 20
    expectRange(make(1, {atLeast({2}, -5), atLeast({-3}, 20)}), 0, 3, 6);
    // 2x >= -5 and 3x <= -1
    expectRange(make(1, {atLeast({2}, 5), atLeast({-3}, -1)}), 0, -2, -1);
    expectRange(make(1, {equal({-4}, 12)}), 0, 3, 3);
}

TEST(LinearSystem, FindsContradictions) {
    EXPECT_TRUE(make(1, {equal({2}, -5)}).isContradictory());
    EXPECT_TRUE(make(2, {equal({4, 6}, 3)}).isContradictory());
    EXPECT_FALSE(make(2, {equal({4, 6}, 2)}).isContradictory());
    EXPECT_TRUE(make(1, {atLeast({1}, -3), atLeast({-1}, 2)}).isContradictory());
    EXPECT_FALSE(make(1, {atLeast({1}, -3), atLeast({-1}, 3)}).isContradictory());
    EXPECT_TRUE(make(1, {atLeast({0}, -1)}).isContradictory());
    EXPECT_FALSE(make(1, {atLeast({0}, 0), equal({0}, 0)}).isContradictory());
    EXPECT_TRUE(make(1, {equal({0}, 1)}).isContradictory());
    // 2x between 5 and 5: no whole number.
    EXPECT_TRUE(make(1, {atLeast({2}, -5), atLeast({-2}, 5)}).isContradictory());
}

TEST(LinearSystem, KeepsTheStricterOfTwoBounds) {
    const LinearSystem system = make(1, {atLeast({1}, -3), atLeast({1}, -5), atLeast({1}, -4)});
    EXPECT_EQ(system.getRows().size(), 1u);
    expectRange(system, 0, 5, IterationRange::unbounded);
}

TEST(LinearSystem, SubstitutesWhatAnEqualityGives) {
    // x = y - 2, both from 0 to 9
    LinearSystem system =
        make(2, {equal({1, -1}, 2), atLeast({1, 0}, 0), atLeast({-1, 0}, 9), atLeast({0, 1}, 0), atLeast({0, -1}, 9)});
    system.eliminate(0, 1);
    expectRange(system, 1, 2, 9);
}

TEST(LinearSystem, PairsLowerWithUpperBounds) {
    // y <= x <= 9 and x <= 2z and z <= 3
    LinearSystem system =
        make(3, {atLeast({1, -1, 0}, 0), atLeast({-1, 0, 0}, 9), atLeast({-1, 0, 2}, 0), atLeast({0, 0, -1}, 3)});
    system.eliminate(0, 1);
    system.eliminate(2, 3);
    expectRange(system, 1, -IterationRange::unbounded, 6);
}

TEST(LinearSystem, VariablesWithoutOneOfTheBoundsSayNothing) {
    LinearSystem system = make(2, {atLeast({5, -7}, 0), atLeast({0, 1}, -4)});
    system.eliminate(0, 1);
    expectRange(system, 1, 4, IterationRange::unbounded);
}

TEST(LinearSystem, LeavesToOthersWhatNeedsMore) {
    // 3x <= y and y - 5 <= 2x: neither bound of x has the factor 1.
    LinearSystem bounds = make(2, {atLeast({-3, 1}, 0), atLeast({2, -1}, 5)});
    bounds.eliminate(0, 1);
    EXPECT_FALSE(bounds.isSolved());
    LinearSystem equality = make(2, {equal({2, -3}, 0), atLeast({1, 0}, 0)});
    equality.eliminate(0, 1);
    EXPECT_FALSE(equality.isSolved());
}

TEST(LinearSystem, DoesNotCountBeyondItsNumbers) {
    const long largest = (1L << 31) - 1;
    EXPECT_TRUE(make(1, {atLeast({largest}, largest)}).isSolved());
    EXPECT_FALSE(make(1, {atLeast({largest + 1}, 0)}).isSolved());
    EXPECT_FALSE(make(1, {atLeast({1}, -largest - 1)}).isSolved());
    // y = largest * x and z = largest * y
    LinearSystem product = make(3, {equal({largest, -1, 0}, 0), equal({0, largest, -1}, 0)});
    product.eliminate(1, 2);
    EXPECT_FALSE(product.isSolved());
}

TEST(LinearSystem, AddsADifference) {
    // x from 0 to 4, y from x + 1 to 7
    LinearSystem system = make(2, {atLeast({1, 0}, 0), atLeast({-1, 0}, 4), atLeast({-1, 1}, -1), atLeast({0, -1}, 7)});
    system.addDifference(0, 1);
    ASSERT_EQ(system.countVariables(), 3u);
    system.eliminate(0, 2);
    expectRange(system, 2, 1, 7);
}

constexpr long side = 4;

bool holds(const Row& row, const std::vector<long>& values) {
    long sum = row.constant;
    for (std::size_t i = 0; i < values.size(); ++i)
        sum += row.factors[i] * values[i];
    return row.equality ? sum == 0 : sum >= 0;
}

/// The values of the last of three variables, each from 0 to `side`.
std::set<long> enumerateLast(const std::vector<Row>& rows) {
    std::set<long> found;
    for (long x = 0; x <= side; ++x)
        for (long y = 0; y <= side; ++y)
            for (long z = 0; z <= side; ++z)
                if (std::all_of(rows.begin(), rows.end(), [&](const Row& row) { return holds(row, {x, y, z}); }))
                    found.insert(z);
    return found;
}

TEST(LinearSystem, EliminatesToWhatTheEnumerationLeaves) {
    std::mt19937 random(7);
    const auto number = [&random](long from, long to) {
        return from + static_cast<long>(random() % static_cast<unsigned long>(to - from + 1));
    };
    int solved = 0;
    int contradictory = 0;
    for (int trial = 0; trial < 5000; ++trial) {
        std::vector<Row> rows;
        for (std::size_t i = 0; i < 3; ++i) {
            std::vector<long> unit(3, 0);
            unit[i] = 1;
            rows.push_back(atLeast(unit, 0));
            unit[i] = -1;
            rows.push_back(atLeast(unit, side));
        }
        for (long i = number(1, 3); i > 0; --i)
            rows.push_back({{number(-2, 2), number(-2, 2), number(-3, 3)}, number(-6, 6), number(0, 3) == 0});
        LinearSystem system = make(3, rows);
        system.eliminate(0, 2);
        if (!system.isSolved())
            continue;
        ++solved;
        const std::set<long> expected = enumerateLast(rows);
        LinearSystem existence = system;
        existence.eliminate(2, 3);
        if (!existence.isSolved())
            continue;
        ASSERT_EQ(existence.isContradictory(), expected.empty()) << "trial " << trial;
        if (expected.empty()) {
            ++contradictory;
            continue;
        }
        std::set<long> found;
        const IterationRange range = system.findRange(2);
        for (long z = std::max(range.low, -99L); z <= std::min(range.high, 99L); ++z)
            found.insert(z);
        ASSERT_EQ(found, expected) << "trial " << trial;
    }
    EXPECT_GT(solved, 2000);
    EXPECT_GT(contradictory, 200);
}

} // namespace
