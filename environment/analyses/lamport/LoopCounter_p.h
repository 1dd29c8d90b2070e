// SPDX-License-Identifier: MIT
#pragma once

namespace Kova::Tessel {
class LoopStatement;
class VariableDeclaration;
} // namespace Kova::Tessel

namespace DepGraph {

/// The variable by which people call a loop: the one that the increment changes (rather one that the condition names
/// when there are several), else the one that the initialization sets. Null when there is none, as in a `while`.
[[nodiscard]] const Kova::Tessel::VariableDeclaration* findNamingCounter(const Kova::Tessel::LoopStatement& loop);

} // namespace DepGraph
