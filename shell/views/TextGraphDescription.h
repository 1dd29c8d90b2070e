// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>

#include <functional>

namespace Kova::GUI::TextGraph {
class EdgeBase;
class NodeBase;
class TextGraphWidgetBase;
} // namespace Kova::GUI::TextGraph

namespace Kova::Shell {

/// Adds what one view has to say of a node, or of the edge at a position of the widget's list.
using TextNodeFields = std::function<void(const GUI::TextGraph::NodeBase& node, QJsonObject& description)>;
using TextEdgeFields = std::function<void(const GUI::TextGraph::EdgeBase& edge, int index, QJsonObject& description)>;

/// "nodes" (id, text, rect in graph units, visible) line by line, and "edges" (from, to, tooltip, visible) in the
/// widget's order; ids are positions in the list of nodes.
[[nodiscard]] QJsonObject describeTextGraph(const GUI::TextGraph::TextGraphWidgetBase& widget,
                                            const TextNodeFields& nodeFields, const TextEdgeFields& edgeFields);

} // namespace Kova::Shell
