// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/Operators.h"

#include <clang/AST/OperationKinds.h>

#include <optional>

namespace Kova::Frontends {

/// None for an operator that C does not have.
[[nodiscard]] std::optional<Tessel::UnaryOperator> mapOperator(clang::UnaryOperatorKind kind);
/// None for assignments and for an operator that C does not have.
[[nodiscard]] std::optional<Tessel::BinaryOperator> mapOperator(clang::BinaryOperatorKind kind);

} // namespace Kova::Frontends
