// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace clang {
class PPCallbacks;
class SourceManager;
} // namespace clang

namespace Kova::Tessel {
class TranslationUnit;
}

namespace Kova::Frontends {

/// Notes in the unit which system headers its own files name, in the order of the directives, each spelling once.
/// What system headers include in turn is theirs and is not noted.
[[nodiscard]] std::unique_ptr<clang::PPCallbacks> recordSystemIncludes(const clang::SourceManager& sources,
                                                                       Tessel::TranslationUnit& unit);

} // namespace Kova::Frontends
