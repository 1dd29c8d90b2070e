// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace clang {
class PPCallbacks;
class Preprocessor;
} // namespace clang

namespace Kova::Frontends {

class Directives;
class ProgramMacros;
class SystemHeaders;

/// Notes the directives that a printed program has to repeat: `#pragma`, `_Pragma("...")` and `#ident`, on one line,
/// without comments and with the values of the program's macros. Not noted are those of system headers, those that
/// speak to Clang alone, and those that speak of the source rather than of the program: about headers (`once`,
/// `GCC system_header`, `GCC dependency`), about names of macros (`push_macro`, `pop_macro`, `GCC poison`), and `pack`,
/// which the tree says of the structures that it holds for.
[[nodiscard]] std::unique_ptr<clang::PPCallbacks> recordDirectives(const clang::Preprocessor& preprocessor,
                                                                   const SystemHeaders& system,
                                                                   const ProgramMacros& macros, Directives& directives);

} // namespace Kova::Frontends
