// SPDX-License-Identifier: MIT
#include "tests/roundtrip/RoundTrip.h"

#include "environment/core/Exception.h"
#include "tests/frontends/c/Reading.h"
#include "tests/roundtrip/Compiler.h"
#include "tests/roundtrip/PrintedText.h"

#include <algorithm>
#include <filesystem>

namespace Kova::Test {

namespace {

using ::testing::AssertionFailure;
using ::testing::AssertionResult;
using ::testing::AssertionSuccess;

/// The warnings that only the second compilation gives, or gives more often.
std::string newWarnings(const Compilation& before, const Compilation& after) {
    std::string text;
    for (const auto& [kind, count] : after.warnings) {
        const auto known = before.warnings.find(kind);
        if (known == before.warnings.end() || known->second < count)
            text += ' ' + kind;
    }
    return text;
}

std::string firstDifference(const std::string& a, const std::string& b) {
    const std::size_t at = static_cast<std::size_t>(
        std::mismatch(a.begin(), a.begin() + static_cast<std::ptrdiff_t>(std::min(a.size(), b.size())), b.begin())
            .first -
        a.begin());
    const std::size_t begin = at < 100 ? 0 : at - 100;
    return "  first:  " + a.substr(begin, 200) + "\n  second: " + b.substr(begin, 200);
}

struct Program {
    std::vector<std::string> files;
    std::string path;
};

/// @param input the path of what the programs read.
AssertionResult behavesTheSame(const Program& original, const Program& printed, const RoundTripUse& use,
                               const std::string& input) {
    const Compilation before = compile(original.files, original.path, use.compilerOptions);
    if (before.status != 0)
        return AssertionFailure() << "the original does not compile:\n" << before.messages;
    const Compilation after = compile(printed.files, printed.path, use.compilerOptions);
    if (after.status != 0)
        return AssertionFailure() << "the printed program does not compile:\n" << after.messages;
    if (const std::string fresh = newWarnings(before, after); !fresh.empty())
        return AssertionFailure() << "new warnings:" << fresh << "\n" << after.messages;
    const Finished expected = runCommand(quoted(original.path) + " < " + quoted(input));
    const Finished actual = runCommand(quoted(printed.path) + " < " + quoted(input));
    if (expected.status != actual.status || expected.output != actual.output)
        return AssertionFailure() << "status " << expected.status << " became " << actual.status << "\n"
                                  << firstDifference(expected.output, actual.output);
    return AssertionSuccess();
}

/// Printed files stand alone: the user's headers are in them.
AssertionResult printsTheSameAgain(const std::string& path, const std::string& text, Frontends::COptions reading) {
    reading.includeDirectories.clear();
    const std::string again = printedFile(path, reading);
    if (again == text)
        return AssertionSuccess();
    return AssertionFailure() << path << " is printed differently again:\n" << firstDifference(text, again);
}

} // namespace

AssertionResult survivesRoundTrip(const std::vector<std::string>& files, const RoundTripUse& use) {
    try {
        const SourceFolder folder;
        Program printed{{}, folder.pathOf("printed")};
        for (const std::string& file : files) {
            const std::string text = printedFile(file, use.reading);
            printed.files.push_back(folder.write(std::filesystem::path(file).filename().string(), text));
            if (AssertionResult result = printsTheSameAgain(printed.files.back(), text, use.reading); !result)
                return result;
        }
        return behavesTheSame({files, folder.pathOf("original")}, printed, use, folder.write("input", use.input));
    } catch (const RuntimeError& error) {
        return AssertionFailure() << error.what();
    }
}

AssertionResult textSurvivesRoundTrip(const std::string& text, const RoundTripUse& use, const std::string& name) {
    const SourceFolder folder;
    AssertionResult result = survivesRoundTrip({folder.write(name, text)}, use);
    return result ? result : result << "\n" << text.substr(0, 40000);
}

} // namespace Kova::Test
