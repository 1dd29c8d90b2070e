// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ProgramUnit.h"
#include "tests/controlflow/ClangFlow.h"

#include <string>

namespace Kova::Test {

/// What comes of comparing the control flow of a file's functions with Clang's.
struct FlowComparison {
    unsigned functions = 0;
    unsigned statements = 0;
    unsigned expressions = 0;
    /// Functions in which two statements, or two expressions, stand at one place, as a macro writes them.
    unsigned ambiguous = 0;
    /// Expressions that Clang's graph does not have.
    unsigned unknown = 0;
    /// What differs, for people; empty when nothing does.
    std::string differences;
};

/// @param program into which the file was read, its last translation unit.
[[nodiscard]] FlowComparison compareFlow(const Tessel::ProgramUnit& program, const ClangFlow& clang);

} // namespace Kova::Test
