// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <vector>

namespace Kova::Tessel {
class ProgramUnit;
class SubroutineDeclaration;
class TranslationUnit;
} // namespace Kova::Tessel

namespace Kova::Tessel::Service {

/// Finds the subroutines of a program by what their names mean where they are used. Made from a program as it is then;
/// owns nothing.
class SubroutineIndex {
public:
    explicit SubroutineIndex(const ProgramUnit& program);

    /// The subroutine with a body that a declaration means: itself, the one of its own translation unit, or, with
    /// external linkage, the first of that name in program order. Null when the program does not hold its body.
    [[nodiscard]] SubroutineDeclaration* findImplementation(const SubroutineDeclaration& declaration) const;

    /// All subroutines with a body, in program order.
    [[nodiscard]] const std::vector<SubroutineDeclaration*>& getImplementations() const { return m_implementations; }

private:
    using ByName = std::map<std::string, SubroutineDeclaration*>;

    std::vector<SubroutineDeclaration*> m_implementations;
    // Looked up by unit, never walked.
    std::map<const TranslationUnit*, ByName> m_ofUnit;
    ByName m_ofProgram;
};

} // namespace Kova::Tessel::Service
