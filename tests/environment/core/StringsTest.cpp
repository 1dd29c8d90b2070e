// SPDX-License-Identifier: MIT
#include "environment/core/Strings.h"

#include <gtest/gtest.h>

#include <climits>
#include <typeinfo>

using namespace Kova;

namespace {

struct Named {};

TEST(StringsTest, Formats) {
    EXPECT_EQ(Strings::format("iii :   %d", 5), "iii :   5");
    EXPECT_EQ(Strings::format("%s-%c-%%", "ab", 'c'), "ab-c-%");
    EXPECT_EQ(Strings::format("%s", ""), "");
    const std::string large(10000, 'x');
    EXPECT_EQ(Strings::format("<%s>", large.c_str()), "<" + large + ">");
}

TEST(StringsTest, FetchesIntegers) {
    const std::vector<std::pair<const char*, int>> expected = {{"0", 0},
                                                               {"42", 42},
                                                               {"007", 7},
                                                               {"-3", -3},
                                                               {"+8", 8},
                                                               {"12abc", 12},
                                                               {"5 6", 5},
                                                               {"-0", 0},
                                                               {"1.9", 1},
                                                               {"2147483647", INT_MAX},
                                                               {"-2147483648", INT_MIN},
                                                               {"+2147483647", INT_MAX},
                                                               {"0x10", 0}};
    for (const auto& [text, number] : expected) {
        int value = 99;
        EXPECT_TRUE(Strings::fetch(text, value)) << text;
        EXPECT_EQ(value, number) << text;
    }
}

TEST(StringsTest, LeavesTheValueWhereNoIntegerStarts) {
    for (const char* text : {"", " 1", "\t1", "abc", "-", "+", "+-1", "-+1", "--1", "++1", "- 1", ".5", "2147483648",
                             "-2147483649", "+2147483648", "99999999999999999999", "99999999999999999999x"}) {
        int value = 99;
        EXPECT_FALSE(Strings::fetch(text, value)) << text;
        EXPECT_EQ(value, 99) << text;
    }
    int value = 99;
    EXPECT_FALSE(Strings::fetch(nullptr, value));
    EXPECT_EQ(value, 99);
}

TEST(StringsTest, MakesTypeNamesReadable) {
    EXPECT_EQ(Strings::demangle(typeid(int).name()), "int");
    EXPECT_NE(Strings::demangle(typeid(Named).name()).find("Named"), std::string::npos);
    EXPECT_EQ(Strings::demangle("no mangled name"), "no mangled name");
}

} // namespace
