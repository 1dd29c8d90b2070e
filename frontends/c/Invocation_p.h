// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace Kova::Frontends {

struct COptions;

/// What is wrong with the options, for people; empty when they can be used.
[[nodiscard]] std::string checkCOptions(const COptions& options);

/// Where Clang's own headers (stddef.h and the like) are: the folder named by the environment variable
/// KOVA_CLANG_RESOURCE_DIR, else the one found when this library was built, beside Clang's library, or in
/// /usr/lib/clang. Empty when there is none.
[[nodiscard]] std::string findResourceDirectory();

/// The command line on which Clang would read a file with these options.
/// @param resourceDirectory may be empty.
[[nodiscard]] std::vector<std::string> makeCommandLine(const COptions& options, const std::string& path,
                                                       const std::string& resourceDirectory);

} // namespace Kova::Frontends
