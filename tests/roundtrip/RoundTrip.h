// SPDX-License-Identifier: MIT
#pragma once

#include "frontends/c/CFrontend.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Kova::Test {

/// What a program is compiled and run with, as written and as printed.
struct RoundTripUse {
    Frontends::COptions reading;
    std::vector<std::string> compilerOptions;
    /// What the program reads on its standard input.
    std::string input;
};

/// Reads the program's files, prints them, compiles both, compares warnings, exit status and output, and reads and
/// prints the printed files again.
/// @return a failure with all that is needed to see why.
[[nodiscard]] ::testing::AssertionResult survivesRoundTrip(const std::vector<std::string>& files,
                                                           const RoundTripUse& use = {});

/// The same of a program in one text. @param name of its file, without folders.
[[nodiscard]] ::testing::AssertionResult textSurvivesRoundTrip(const std::string& text, const RoundTripUse& use = {},
                                                               const std::string& name = "a.c");

} // namespace Kova::Test
