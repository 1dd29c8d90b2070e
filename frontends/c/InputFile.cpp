// SPDX-License-Identifier: MIT
#include "frontends/c/InputFile_p.h"

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <iterator>
#include <sys/stat.h>

namespace Kova::Frontends {

namespace {

// Clang numbers all places of a unit with 31 bits.
constexpr std::uint64_t largestText = std::uint64_t{1} << 30;

/// Why a path cannot be opened as a source; empty when it can be tried.
std::string refuse(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0)
        return std::string("cannot read the file: ") + std::strerror(errno);
    if (S_ISDIR(status.st_mode))
        return "cannot read the file: it is a directory";
    if (!S_ISREG(status.st_mode) && !S_ISFIFO(status.st_mode))
        return "cannot read the file: it is neither a regular file nor a pipe";
    if (static_cast<std::uint64_t>(status.st_size) > largestText)
        return "cannot read the file: it is larger than 1 GiB";
    return {};
}

} // namespace

InputFile readInputFile(const std::string& path) {
    InputFile result;
    result.error = refuse(path);
    if (!result.error.empty())
        return result;
    std::ifstream stream(path, std::ios::binary);
    if (!stream) {
        result.error = std::string("cannot read the file: ") + std::strerror(errno);
        return result;
    }
    result.text.assign(std::istreambuf_iterator<char>(stream), {});
    if (stream.bad())
        result.error = "cannot read the file: reading stopped before its end";
    else if (const std::size_t offset = result.text.find('\0'); offset != std::string::npos)
        result.error = "this is no C text: byte " + std::to_string(offset) + " is NUL, as in a binary file";
    return result;
}

} // namespace Kova::Frontends
