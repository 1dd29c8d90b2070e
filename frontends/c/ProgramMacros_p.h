// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace clang {
class IdentifierInfo;
class Preprocessor;
} // namespace clang

namespace Kova::Frontends {

class SystemHeaders;

/// Tells the program's macros, which are not printed, from those that the included system headers bring along.
class ProgramMacros {
public:
    ProgramMacros(const clang::Preprocessor& preprocessor, const SystemHeaders& system)
        : m_preprocessor(preprocessor),
          m_system(system) {}

    /// True when a text mentions a macro of the program, defined or no longer, or holds a directive.
    [[nodiscard]] bool areIn(const std::string& text) const;
    /// The text, without comments, with what the program's macros stand for at present. Those that join words or make
    /// strings of them stay.
    [[nodiscard]] std::string expand(const std::string& text) const;

    /// True for a name that is a macro with arguments of a system header at present.
    [[nodiscard]] bool isSystemCall(const clang::IdentifierInfo& name) const;

private:
    [[nodiscard]] bool isOfProgram(const clang::IdentifierInfo& name) const;
    [[nodiscard]] bool isOfProgram(const std::string& name) const;

    const clang::Preprocessor& m_preprocessor;
    const SystemHeaders& m_system;
};

} // namespace Kova::Frontends
