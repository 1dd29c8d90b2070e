// SPDX-License-Identifier: MIT
#include "tests/roundtrip/RoundTrip.h"

#include <algorithm>
#include <filesystem>

namespace Kova::Test {

namespace {

const std::filesystem::path samples = KOVA_SAMPLES;

std::vector<std::string> filesIn(const std::filesystem::path& folder) {
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.path().extension() == ".c")
            files.push_back(entry.path().string());
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace

TEST(SamplesRoundTripTest, everyProgramOfOneFile) {
    const std::vector<std::string> files = filesIn(samples);
    EXPECT_GE(files.size(), 2u);
    for (const std::string& file : files)
        EXPECT_TRUE(survivesRoundTrip({file})) << file;
}

TEST(SamplesRoundTripTest, theProgramOfSeveralFiles) {
    const std::vector<std::string> files = filesIn(samples / "calculator");
    EXPECT_GE(files.size(), 5u);
    for (const char* input : {"1 + 2 * 3", "(1 + 2) * -3 / 7", "2 ^ 3 ^ 2", "1 +", "x = 5\nx * x\n1 / 0"}) {
        RoundTripUse use;
        use.input = std::string(input) + '\n';
        EXPECT_TRUE(survivesRoundTrip(files, use)) << input;
    }
}

} // namespace Kova::Test
