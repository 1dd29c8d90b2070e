// SPDX-License-Identifier: MIT
#include "tests/roundtrip/Compiler.h"

#include "environment/core/Exception.h"

#include <array>
#include <cstdio>
#include <sys/wait.h>

namespace Kova::Test {

Finished runCommand(const std::string& command) {
    FILE* pipe = popen(("LC_ALL=C timeout 60 " + command + " 2>&1").c_str(), "r");
    if (pipe == nullptr)
        throw RuntimeError("no shell");
    Finished finished{};
    std::array<char, 4096> buffer{};
    for (std::size_t read = 0; (read = fread(buffer.data(), 1, buffer.size(), pipe)) != 0;)
        finished.output.append(buffer.data(), read);
    const int status = pclose(pipe);
    finished.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return finished;
}

std::string quoted(const std::string& word) {
    std::string text = "'";
    for (const char c : word)
        text += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return text + "'";
}

Compilation compile(const std::vector<std::string>& files, const std::string& program,
                    const std::vector<std::string>& options) {
    std::string command = quoted(KOVA_C_COMPILER) + " -std=gnu17 -Wall -Wextra -o " + quoted(program);
    for (const std::string& option : options)
        command += ' ' + quoted(option);
    for (const std::string& file : files)
        command += ' ' + quoted(file);
    const Finished finished = runCommand(command + " -lm");
    Compilation result{finished.status, {}, finished.output};
    const std::string& text = finished.output;
    for (std::size_t at = text.find("[-W"); at != std::string::npos; at = text.find("[-W", at + 1))
        ++result.warnings[text.substr(at + 1, text.find(']', at) - at - 1)];
    return result;
}

} // namespace Kova::Test
