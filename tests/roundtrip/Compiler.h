// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <vector>

namespace Kova::Test {

/// What a finished program has written.
struct Finished {
    /// As a shell gives it: 128 + signal for one that a signal ended.
    int status;
    std::string output;
};

/// Runs a shell command; both of its outputs are in the result. It ends after a minute at the latest.
[[nodiscard]] Finished runCommand(const std::string& command);

/// In single quotes, for a shell.
[[nodiscard]] std::string quoted(const std::string& word);

/// What the C compiler makes of some files.
struct Compilation {
    int status;
    /// How often each kind of warning was given, by the option that asks for it: `-Wunused-value`.
    std::map<std::string, int> warnings;
    std::string messages;
};

/// Compiles and links with all common warnings. @param options as the compiler takes them.
[[nodiscard]] Compilation compile(const std::vector<std::string>& files, const std::string& program,
                                  const std::vector<std::string>& options);

} // namespace Kova::Test
