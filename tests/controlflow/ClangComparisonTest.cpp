// SPDX-License-Identifier: MIT
// Both graphs against those that Clang makes of the same functions.
#include "tests/controlflow/FlowComparison.h"
#include "tests/controlflow/FunctionGenerator.h"
#include "tests/frontends/c/Reading.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

namespace Kova::Test {

namespace {

FlowComparison compareFile(const std::string& path, const Frontends::COptions& options = {}) {
    Tessel::ProgramUnit program;
    if (Frontends::CFrontend(options).read(path, program) == Frontends::CFrontend::Result::Unreadable) {
        FlowComparison failed;
        failed.differences = messagesOf(program, "");
        return failed;
    }
    return compareFlow(program, ClangFlow(path, options));
}

unsigned countFunctions() {
    const char* wanted = std::getenv("KOVA_GENERATED_FUNCTIONS");
    return wanted != nullptr ? static_cast<unsigned>(std::atol(wanted)) : 300;
}

TEST(ClangComparisonTest, allSamples) {
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(KOVA_SAMPLES))
        if (entry.path().extension() == ".c")
            files.push_back(entry.path().string());
    std::sort(files.begin(), files.end());
    EXPECT_GE(files.size(), 9U);
    unsigned functions = 0;
    unsigned ambiguous = 0;
    for (const std::string& file : files) {
        const FlowComparison compared = compareFile(file);
        EXPECT_EQ(compared.differences, "") << file;
        EXPECT_EQ(compared.unknown, 0U) << file;
        functions += compared.functions;
        ambiguous += compared.ambiguous;
    }
    EXPECT_GE(functions, 30U);
    EXPECT_EQ(ambiguous, 0U);
}

TEST(ClangComparisonTest, generatedFunctions) {
    unsigned statements = 0;
    for (unsigned seed = 1; seed <= countFunctions() && !HasFailure(); ++seed) {
        const std::string text = FunctionGenerator(seed).write();
        const SourceFolder folder;
        const FlowComparison compared = compareFile(folder.write("a.c", text));
        EXPECT_EQ(compared.differences, "") << "seed " << seed << "\n" << text;
        EXPECT_EQ(compared.functions, 1U) << text;
        EXPECT_EQ(compared.ambiguous, 0U) << text;
        statements += compared.statements;
    }
    EXPECT_GE(statements, 10 * countFunctions());
}

/// For programs of others: KOVA_FLOW_FILES names files with one path on each line, preprocessed best, since what a
/// macro writes has one place.
TEST(ClangComparisonTest, otherPrograms) {
    const char* list = std::getenv("KOVA_FLOW_FILES");
    if (list == nullptr)
        GTEST_SKIP() << "KOVA_FLOW_FILES names no list of files";
    std::ifstream files(list);
    FlowComparison all;
    for (std::string file; std::getline(files, file);) {
        const FlowComparison compared = compareFile(file);
        EXPECT_EQ(compared.differences, "") << file;
        all.functions += compared.functions;
        all.statements += compared.statements;
        all.expressions += compared.expressions;
        all.ambiguous += compared.ambiguous;
        all.unknown += compared.unknown;
    }
    std::cout << all.functions << " functions, " << all.statements << " statements, " << all.expressions
              << " expressions, " << all.ambiguous << " ambiguous graphs, " << all.unknown << " unknown expressions\n";
}

} // namespace

} // namespace Kova::Test
