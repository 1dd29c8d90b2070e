// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace Kova::Tessel {
class BlockStatement;
class ExpressionBase;
} // namespace Kova::Tessel

namespace DepGraph {

/// Calls a function for every expression below a block that is no part of another one, in the order in which they are
/// printed.
void forEachRootExpression(Kova::Tessel::BlockStatement& block,
                           const std::function<void(Kova::Tessel::ExpressionBase&)>& use);

[[nodiscard]] bool isFortranCode(const Kova::Tessel::BlockStatement& block);

} // namespace DepGraph
