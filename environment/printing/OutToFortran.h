// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Kova::Tessel {
class ExpressionBase;
}

namespace Kova::Backends {

/// Prints pieces of a program as Fortran.
class OutToFortran {
public:
    /// The expression on one line: operators with blanks around them, parentheses only where the precedences need
    /// them. A part that is missing from the tree prints as nothing.
    [[nodiscard]] static std::string expressionToString(const Tessel::ExpressionBase& expression);
};

} // namespace Kova::Backends
