// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/Operators.h"

namespace Kova::Tessel {
class BinaryExpression;
class ExpressionBase;
} // namespace Kova::Tessel

namespace Kova::Backends {

/// True for an operand that people, and compilers' warnings, want in parentheses although C needs none: `(a && b) ||
/// c`,
/// `(a & b) | c`, `(a + b) << c`, `(a < b) == c`, `(!a) == b`.
[[nodiscard]] bool isClearerInParentheses(Tessel::BinaryOperator operation, const Tessel::ExpressionBase* operand);

/// True for the right operand of a comma that is an assignment whose value is used: it is not mistaken for a
/// comparison then, as in `if (a, (b = c))`. The value of a comma that is a statement, or a part of a loop's header,
/// is not used.
[[nodiscard]] bool isAssignedValue(const Tessel::BinaryExpression& comma);

} // namespace Kova::Backends
