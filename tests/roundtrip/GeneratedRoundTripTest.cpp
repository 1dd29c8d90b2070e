// SPDX-License-Identifier: MIT
#include "tests/roundtrip/RoundTrip.h"
#include "tests/roundtrip/generator/ProgramGenerator.h"

#include <cstdlib>

namespace Kova::Test {

namespace {

/// KOVA_GENERATED_PROGRAMS asks for more, or fewer, than a test run usually has time for.
unsigned programCount() {
    const char* asked = std::getenv("KOVA_GENERATED_PROGRAMS");
    return asked != nullptr ? static_cast<unsigned>(std::strtoul(asked, nullptr, 10)) : 30;
}

} // namespace

TEST(GeneratedRoundTripTest, aSeedAlwaysGivesTheSameProgram) {
    EXPECT_EQ(generateProgram(7), generateProgram(7));
    EXPECT_NE(generateProgram(7), generateProgram(8));
}

TEST(GeneratedRoundTripTest, generatedPrograms) {
    for (unsigned seed = 1; seed <= programCount(); ++seed)
        ASSERT_TRUE(textSurvivesRoundTrip(generateProgram(seed))) << "seed " << seed;
}

} // namespace Kova::Test
