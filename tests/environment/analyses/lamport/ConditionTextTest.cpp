// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/AccessModel_p.h"
#include "environment/analyses/lamport/ConditionText_p.h"
#include "tests/environment/analyses/lamport/ConditionReader.h"

#include <gtest/gtest.h>
#include <isl/set.h>

using namespace DepGraph;

namespace {

class ConditionTextTest : public testing::Test {
protected:
    std::string describe(const std::string& constraints) {
        return describeCondition(isl::set(context.get(), "[n, m, k] -> { : " + constraints + " }"));
    }
    /// Whether the text holds for the same small numbers as the set.
    void expectTrue(const std::string& constraints) {
        const isl::set set(context.get(), "[n, m] -> { : " + constraints + " }");
        const std::string text = describeCondition(set);
        for (int n = -7; n <= 7; ++n)
            for (int m = -7; m <= 7; ++m) {
                isl::set fixed = isl::manage(isl_set_fix_si(set.copy(), isl_dim_param, 0, n));
                fixed = isl::manage(isl_set_fix_si(fixed.release(), isl_dim_param, 1, m));
                ASSERT_EQ(Kova::Tests::ConditionReader::holds(text, {{"n", n}, {"m", m}}), !fixed.is_empty())
                    << constraints << " as \"" << text << "\" with n = " << n << ", m = " << m;
            }
    }

    IslContext context;
};

TEST_F(ConditionTextTest, IsEmptyForAll) {
    EXPECT_EQ(describe("true"), "");
    EXPECT_EQ(describe("n >= 0 or n < 5"), "");
    EXPECT_EQ(describe("n > 3 or n <= 3"), "");
}

TEST_F(ConditionTextTest, IsFalseForNone) {
    EXPECT_EQ(describe("false"), "false");
    EXPECT_EQ(describe("n > 3 and n < 2"), "false");
}

TEST_F(ConditionTextTest, ComparesOneUnknownWithANumber) {
    EXPECT_EQ(describe("n >= 2"), "n >= 2");
    EXPECT_EQ(describe("n > -3"), "n >= -2");
    EXPECT_EQ(describe("n <= 7"), "n <= 7");
    EXPECT_EQ(describe("n < 0"), "n <= -1");
    EXPECT_EQ(describe("n = 4"), "n = 4");
    EXPECT_EQ(describe("n >= 0"), "n >= 0");
    EXPECT_EQ(describe("2n >= 5"), "n >= 3");
}

TEST_F(ConditionTextTest, ComparesUnknowns) {
    EXPECT_EQ(describe("m > n"), "m > n");
    EXPECT_EQ(describe("n >= m"), "n >= m");
    EXPECT_EQ(describe("n >= m + 2"), "n >= m + 2");
    EXPECT_EQ(describe("n >= m - 3"), "n >= m - 3");
    EXPECT_EQ(describe("2n + 3m >= k + 4"), "2*n + 3*m >= k + 4");
}

TEST_F(ConditionTextTest, JoinsConjunctionsByTheNumberOfUnknowns) {
    EXPECT_EQ(describe("m > n and n >= 2"), "n >= 2 and m > n");
    EXPECT_EQ(describe("n >= 2 and n <= 5"), "n <= 5 and n >= 2");
}

TEST_F(ConditionTextTest, JoinsAlternatives) {
    EXPECT_EQ(describe("n >= 5 or m <= 1"), "m <= 1 or n >= 5");
    EXPECT_EQ(describe("n != 0"), "n <= -1 or n >= 1");
}

TEST_F(ConditionTextTest, NamesRemainders) {
    EXPECT_EQ(describe("n mod 2 = 0"), "n mod 2 = 0");
    EXPECT_EQ(describe("n mod 3 = 2"), "n mod 3 = 2");
    EXPECT_EQ(describe("exists (a : n = 4a + 1) and n >= 2"), "n >= 2 and n mod 4 = 1");
    EXPECT_EQ(describe("(n + m) mod 2 = 1"), "(n + m) mod 2 = 1");
}

TEST_F(ConditionTextTest, IsTrueOfTheSet) {
    for (const char* constraints :
         {"n = m + 1", "n >= 2 and m > n", "2n >= 3m - 1", "n != m", "3n = 2m", "n mod 2 = 0 and m < n",
          "(n - m) mod 3 = 1", "(2n + m) mod 4 = 3 or n < -2", "n >= 0 and m >= 0 and n + m <= 6 and n != 3",
          "-n - m >= 2", "exists (a, b : n = 2a and m = 3b + 1)", "n = 5 or (m = 2 and n > 0)", "floor(n / 2) >= m"})
        expectTrue(constraints);
}

} // namespace
