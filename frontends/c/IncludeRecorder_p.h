// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace clang {
class PPCallbacks;
class Preprocessor;
} // namespace clang

namespace Kova::Tessel {
class TranslationUnit;
}

namespace Kova::Frontends {

class SystemHeaders;

/// Notes in the unit which system headers its own files name, in the order of the directives, each spelling once.
/// What system headers include in turn is theirs and is not noted. Notes as well with which reserved macros, such as
/// `_GNU_SOURCE`, the files choose what these headers declare, where what the command line defines is not the
/// program's, and which macros of the headers, the compiler or the command line they undefine for good.
[[nodiscard]] std::unique_ptr<clang::PPCallbacks>
recordSystemIncludes(const clang::Preprocessor& preprocessor, SystemHeaders& system, Tessel::TranslationUnit& unit);

} // namespace Kova::Frontends
