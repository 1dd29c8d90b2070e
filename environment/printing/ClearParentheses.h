// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/Operators.h"

namespace Kova::Tessel {
class ExpressionBase;
}

namespace Kova::Backends {

/// True for an operand that people, and compilers' warnings, want in parentheses although C needs none: `(a && b) ||
/// c`,
/// `(a & b) | c`, `(a + b) << c`, `(a < b) == c`, `(!a) == b`.
[[nodiscard]] bool isClearerInParentheses(Tessel::BinaryOperator operation, const Tessel::ExpressionBase* operand);

} // namespace Kova::Backends
