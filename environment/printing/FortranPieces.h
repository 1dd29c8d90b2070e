// SPDX-License-Identifier: MIT
#pragma once

#include "environment/printing/CUnitPieces.h"

namespace Kova::Backends {

/// How Fortran writes expressions, in its free form: `a + b`, `.NOT. a`, `x ** 2`, `a == b`, `f(a, b)`, `a(i, 1:n:2)`,
/// `s%x`, `[1, 2]`. Bitwise operators, shifts and the remainder are the intrinsic functions. What Fortran has no way to
/// write, such as an increment, a cast or a statement inside an expression, looks as in C.
class FortranPieces final : public CUnitPieces {
public:
    using CUnitPieces::CUnitPieces;
    using CUnitPieces::visit;
    void visit(Tessel::SubscriptExpression& node) override;
    void visit(Tessel::MemberExpression& node) override;
    void visit(Tessel::InitializerListExpression& node) override;

protected:
    [[nodiscard]] BinaryForm formOf(Tessel::BinaryOperator operation) const override;
    [[nodiscard]] UnaryForm formOf(Tessel::UnaryOperator operation) const override;
    [[nodiscard]] TextStyle textStyle() const override { return TextStyle::Fortran; }
    [[nodiscard]] bool isClear() const override { return false; }
    [[nodiscard]] Precedence signedNumber() const override { return Precedence::Additive; }
};

} // namespace Kova::Backends
