// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace Kova::Tessel {
class BlockStatement;
class ExpressionBase;
class TesselBase;
} // namespace Kova::Tessel

namespace DepGraph {

/// Calls a function for every expression below a block that is no part of another one, in the order in which they are
/// printed.
void forEachRootExpression(Kova::Tessel::BlockStatement& block,
                           const std::function<void(Kova::Tessel::ExpressionBase&)>& use);

/// Whether a node is below another one or the same. False when the other one is null.
[[nodiscard]] bool isInside(const Kova::Tessel::TesselBase& node, const Kova::Tessel::TesselBase* ancestor);

[[nodiscard]] bool isFortranCode(const Kova::Tessel::BlockStatement& block);

} // namespace DepGraph
