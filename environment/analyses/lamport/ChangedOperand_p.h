// SPDX-License-Identifier: MIT
#pragma once

namespace Kova::Tessel {
class ExpressionBase;
class TesselBase;
} // namespace Kova::Tessel

namespace DepGraph {

/// What the node itself changes: the target of an assignment, the operand of `++` or `--`. Null for anything else.
[[nodiscard]] const Kova::Tessel::ExpressionBase* findChangedOperand(const Kova::Tessel::TesselBase& node);

} // namespace DepGraph
