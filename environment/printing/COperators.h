// SPDX-License-Identifier: MIT
#pragma once

#include "environment/printing/OperatorForm.h"
#include "environment/tessel/Operators.h"

namespace Kova::Backends {

/// How C writes operators. Those that only Fortran has are written as calls, for a reader; equivalence of truth values
/// as a comparison.
[[nodiscard]] BinaryForm cFormOf(Tessel::BinaryOperator operation);
[[nodiscard]] UnaryForm cFormOf(Tessel::UnaryOperator operation);

} // namespace Kova::Backends
