// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace Kova::Tessel {
class ExpressionBase;
class Type;
} // namespace Kova::Tessel

namespace ControlFlow {

/// Holds every value of every integer type, signed and unsigned.
using ConstantValue = __int128;

/// The value that an expression has whenever it is evaluated, as C computes it: of integer constants, enumerators,
/// sizes and operators on them. None when it may vary, when C leaves it undefined, and for expressions nested more than
/// a hundred deep. What else the expression does is not asked.
[[nodiscard]] std::optional<ConstantValue> constantOf(const Kova::Tessel::ExpressionBase& expression);

/// The same converted to a type, or to int where that is wider: what a label of a switch is compared as.
/// @param type null when unknown: then the value stays as it is.
[[nodiscard]] std::optional<ConstantValue> constantOf(const Kova::Tessel::ExpressionBase& expression,
                                                      const Kova::Tessel::Type* type);

/// Whether an expression holds whenever it is evaluated. That is known of constants, and of strings: their addresses
/// are never null.
[[nodiscard]] std::optional<bool> truthOf(const Kova::Tessel::ExpressionBase& expression);

} // namespace ControlFlow
