// SPDX-License-Identifier: MIT
#include "environment/core/Exception.h"

#include <gtest/gtest.h>

#include <type_traits>

using namespace Kova;

namespace {

TEST(ExceptionTest, CarriesItsText) {
    EXPECT_STREQ(Exception("one").what(), "one");
    EXPECT_STREQ(RuntimeError("two").what(), "two");
    EXPECT_STREQ(StateError(std::string(1000, 'x')).what(), std::string(1000, 'x').c_str());
    EXPECT_STREQ(Exception("").what(), "");
}

TEST(ExceptionTest, IsCaughtAsItsBases) {
    EXPECT_THROW(throw RuntimeError("x"), Exception);
    EXPECT_THROW(throw StateError("x"), Exception);
    EXPECT_THROW(throw StateError("x"), std::exception);
}

TEST(ExceptionTest, HasTwoKindsThatAreNotEachOther) {
    EXPECT_FALSE((std::is_base_of_v<RuntimeError, StateError>));
    EXPECT_FALSE((std::is_base_of_v<StateError, RuntimeError>));
    EXPECT_TRUE(std::is_copy_constructible_v<StateError>);
}

} // namespace
