// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>

#include <functional>

namespace Kova::GUI::GenericGraph {
class EdgeBase;
class GenericGraphWidgetBase;
class NodeBase;
} // namespace Kova::GUI::GenericGraph

namespace Kova::Shell {

/// Adds what one view has to say of a node or edge to what is said of all.
using NodeFields = std::function<void(const GUI::GenericGraph::NodeBase& node, QJsonObject& description)>;
using EdgeFields = std::function<void(const GUI::GenericGraph::EdgeBase& edge, QJsonObject& description)>;

/// "nodes" (id, text, rect in graph units, visible) and "edges" (from, to, tooltip, visible) in the widget's order; ids
/// are positions in its lists. An edge is visible when both its nodes are.
[[nodiscard]] QJsonObject describeGenericGraph(const GUI::GenericGraph::GenericGraphWidgetBase& widget,
                                               const NodeFields& nodeFields, const EdgeFields& edgeFields);

} // namespace Kova::Shell
