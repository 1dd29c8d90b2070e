// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace Kova::Test {

/// What a generated piece of program may use where it stands.
struct Scope {
    /// Expressions without side effects, all of type unsigned int.
    std::vector<std::string> readable;
    /// Those of them that may be changed: no counter of a loop is.
    std::vector<std::string> writable;
    /// Arrays of eight unsigned int, and names that are used like them.
    std::vector<std::string> arrays;
    /// Functions of two unsigned int that change nothing.
    std::vector<std::string> functions;
    /// False where a jump from elsewhere must not end, as among the declarations of arrays of variable length.
    bool canBeJumpedTo = true;
};

} // namespace Kova::Test
