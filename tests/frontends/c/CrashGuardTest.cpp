// SPDX-License-Identifier: MIT
#include "frontends/c/CrashGuard_p.h"

#include <gtest/gtest.h>

#include <csignal>
#include <stdexcept>
#include <thread>

namespace Kova::Frontends {

namespace {

// The volatile array keeps the frame and the call.
int descend(int depth) {
    volatile char frame[512] = {};
    frame[0] = static_cast<char>(depth);
    return depth == 0 ? frame[0] : descend(depth - 1) + frame[0];
}

} // namespace

TEST(CrashGuardTest, worksOnAThreadOfItsOwn) {
    const std::thread::id here = std::this_thread::get_id();
    std::thread::id there = here;
    EXPECT_TRUE(runGuarded([&there] { there = std::this_thread::get_id(); }));
    EXPECT_NE(there, here);
}

TEST(CrashGuardTest, theStackIsLarge) {
    // 300,000 frames of more than half a KiB are more than 150 MiB.
    EXPECT_TRUE(runGuarded([] { (void)descend(300000); }));
}

TEST(CrashGuardTest, anExceptionIsAFailure) {
    EXPECT_FALSE(runGuarded([] { throw std::runtime_error("no"); }));
}

TEST(CrashGuardTest, anOverflowIsAFailureAndTheProcessGoesOn) {
    for (int i = 0; i < 2; ++i)
        EXPECT_FALSE(runGuarded([] { (void)descend(2000000000); }));
    EXPECT_TRUE(runGuarded([] {}));
}

TEST(CrashGuardTest, aCrashIsAFailureAndTheProcessGoesOn) {
    EXPECT_FALSE(runGuarded([] { std::raise(SIGSEGV); }));
    EXPECT_FALSE(runGuarded([] { std::raise(SIGABRT); }));
    EXPECT_TRUE(runGuarded([] {}));
}

} // namespace Kova::Frontends
