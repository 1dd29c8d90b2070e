// SPDX-License-Identifier: MIT
#pragma once

namespace Kova::Tessel {

enum class UnaryOperator {
    Plus,
    Minus,
    LogicalNot,
    BitwiseNot,
    Dereference,
    AddressOf,
    PreIncrement,
    PreDecrement,
    PostIncrement,
    PostDecrement,
    /// GNU `__real__` and `__imag__`.
    RealPart,
    ImaginaryPart,
    /// GNU `__extension__`.
    Extension
};

enum class BinaryOperator {
    Multiply,
    Divide,
    Remainder,
    Add,
    Subtract,
    ShiftLeft,
    ShiftRight,
    Less,
    Greater,
    LessEqual,
    GreaterEqual,
    Equal,
    NotEqual,
    BitwiseAnd,
    BitwiseXor,
    BitwiseOr,
    LogicalAnd,
    LogicalOr,
    Comma,
    /// The rest is Fortran's: `**`, `//`, `.EQV.`, `.NEQV.`.
    Power,
    Concatenate,
    Equivalent,
    NotEquivalent
};

} // namespace Kova::Tessel
