// SPDX-License-Identifier: MIT
#pragma once

#include "environment/printing/Precedence.h"

namespace Kova::Backends {

/// How a language writes an operator of two operands.
struct BinaryForm {
    enum class Shape {
        /// `a op b op c` means `(a op b) op c`.
        LeftAssociative,
        /// `a op b op c` means `a op (b op c)`.
        RightAssociative,
        /// `a op b op c` has no meaning.
        NotAssociative,
        /// `symbol(a, b)`.
        Call
    };

    /// With the blanks around it; a call's without.
    const char* symbol;
    Precedence precedence;
    Shape shape = Shape::LeftAssociative;
};

/// How a language writes an operator of one operand.
struct UnaryForm {
    enum class Shape { Prefix, Postfix, Call };

    /// With the blank that a word needs behind it.
    const char* symbol;
    Precedence precedence;
    /// What the operand must be at least to stand without parentheses.
    Precedence operand;
    Shape shape = Shape::Prefix;
};

} // namespace Kova::Backends
