// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

namespace Kova::Tessel {
class ExpressionBase;
}

namespace ControlFlow {

/// The value that an expression has whenever it is evaluated, as C computes it: of integer constants, enumerators,
/// sizes and operators on them. None when it may vary, when C leaves it undefined, when it does not fit, and for
/// expressions nested more than a hundred deep. What else the expression does is not asked.
[[nodiscard]] std::optional<std::int64_t> constantOf(const Kova::Tessel::ExpressionBase& expression);

} // namespace ControlFlow
