// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace Kova::Backends {

/// How tightly an expression holds together, loosest first: an operand that is looser than its place asks for stands in
/// parentheses. One scale serves C and Fortran, so that what one language has not still has its place among the
/// operators of the other: C has nothing at Equivalent, Not, Concatenation and Power, Fortran compares at Relational
/// only and has the signs at Additive.
enum class Precedence : std::uint8_t {
    Comma,
    Assignment,
    Conditional,
    Equivalent,
    LogicalOr,
    LogicalAnd,
    Not,
    BitwiseOr,
    BitwiseXor,
    BitwiseAnd,
    Equality,
    Relational,
    Concatenation,
    Shift,
    Additive,
    Multiplicative,
    Power,
    Cast,
    Unary,
    Postfix,
    Primary
};

/// The next tighter level; the tightest one's is itself.
[[nodiscard]] constexpr Precedence tighter(Precedence precedence) {
    return precedence == Precedence::Primary ? precedence : static_cast<Precedence>(static_cast<int>(precedence) + 1);
}

} // namespace Kova::Backends
