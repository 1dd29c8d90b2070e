// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/controlflow/ControlFlowGraph.h"
#include "environment/analyses/controlflow/ControlFlowGraphExpr.h"
#include "tests/controlflow/FlowEdges.h"

#include <functional>
#include <string>

namespace Kova::Tessel {
class ExpressionBase;
class StatementBase;
} // namespace Kova::Tessel

namespace Kova::Test {

/// The name of a statement among a flow's nodes: its kind and where it begins.
[[nodiscard]] std::string flowNameOf(const Tessel::StatementBase& statement);
/// The name of an expression: where it begins and ends.
[[nodiscard]] std::string flowNameOf(const Tessel::ExpressionBase& expression);

/// Which statements are executed right after which. A block is two places, its opening and its closing brace, and so is
/// a loop that tests last; they and what is not kept are left out: control passes through them.
[[nodiscard]] FlowEdges flowOf(const ControlFlowGraph& graph, const std::function<bool(const std::string&)>& isKept);

/// Which expressions are evaluated right after which.
[[nodiscard]] FlowEdges flowOf(const ControlFlowGraphExpr& graph,
                               const std::function<bool(const std::string&)>& isKept);

} // namespace Kova::Test
