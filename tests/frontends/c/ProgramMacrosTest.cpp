// SPDX-License-Identifier: MIT
#include "tests/frontends/c/Reading.h"

#include <gtest/gtest.h>

namespace Kova::Frontends {

using namespace Test;

namespace {

/// What is kept of a directive behind definitions.
std::string directive(const std::string& definitions, const std::string& text) {
    return Reading(definitions + "\n#pragma " + text + "\n").tree();
}

std::string kept(const std::string& text) {
    return "opaque `#pragma " + text + "`\n";
}

} // namespace

TEST(ProgramMacrosTest, areReplacedByTheirValues) {
    EXPECT_EQ(directive("#define N 4", "mine(N, \"N\", NN)"), kept("mine(4, \"N\", NN)"));
    EXPECT_EQ(directive("#define N (M + 1)\n#define M 2", "mine(N)"), kept("mine((2 + 1))"));
    EXPECT_EQ(directive("#define EMPTY", "a EMPTY b"), kept("a  b"));
    EXPECT_EQ(directive("#define N N + M\n#define M N", "a N"), kept("a N + N"));
}

TEST(ProgramMacrosTest, areReplacedByTheValuesOfTheirPlace) {
    EXPECT_EQ(directive("#define N 1\n#undef N", "a N"), kept("a N"));
    EXPECT_EQ(Reading("#define N 1\n#pragma a N\n#undef N\n#define N 2\n#pragma b N\n").tree(),
              kept("a 1") + kept("b 2"));
}

TEST(ProgramMacrosTest, takeTheirArguments) {
    EXPECT_EQ(directive("#define ADD(x, y) x + y\n#define ONE 1", "a(ADD(ONE, f(2, 3)))"), kept("a(1 + f(2, 3))"));
    EXPECT_EQ(directive("#define ADD(x, y) x + y", "a(ADD, ADD(1), ADD(1"), kept("a(ADD, ADD(1), ADD(1"));
    EXPECT_EQ(
        directive("#define JOIN(x, y) x ## y\n#define TEXT(x) #x\n#define ANY(...) 1", "a JOIN(1, 2) TEXT(3) ANY(4)"),
        kept("a JOIN(1, 2) TEXT(3) ANY(4)"));
}

TEST(ProgramMacrosTest, areNotThoseOfSystemHeaders) {
    EXPECT_EQ(directive("#include <limits.h>", "a INT_MAX"), kept("a INT_MAX"));
}

} // namespace Kova::Frontends
