// SPDX-License-Identifier: MIT
#include "shell/views/TextGraphDescription.h"

#include "visualization/textgraph/EdgeBase.h"
#include "visualization/textgraph/GraphNodeBase.h"
#include "visualization/textgraph/TextGraphWidgetBase.h"

#include <QHash>
#include <QJsonArray>

namespace Kova::Shell {

namespace {

using GUI::TextGraph::EdgeBase;
using GUI::TextGraph::NodeBase;

QJsonObject describeNode(const NodeBase& node, int id) {
    const QRect rect = node.getRect().translated(node.getPos());
    return {{"id", id},
            {"text", node.getText()},
            {"rect", QJsonArray{rect.x(), rect.y(), rect.width(), rect.height()}},
            {"visible", true}};
}

} // namespace

QJsonObject describeTextGraph(const GUI::TextGraph::TextGraphWidgetBase& widget, const TextNodeFields& nodeFields,
                              const TextEdgeFields& edgeFields) {
    QHash<const NodeBase*, int> ids; // looked up, never walked
    QJsonArray nodes;
    for (const GUI::TextGraph::NodesLine& line : widget.getLines())
        for (const NodeBase* node : line.nodes) {
            ids.insert(node, nodes.size());
            QJsonObject description = describeNode(*node, nodes.size());
            nodeFields(*node, description);
            nodes.append(description);
        }
    QJsonArray edges;
    for (const EdgeBase* edge : widget.getEdges()) {
        QJsonObject description{{"from", ids.value(edge->getFrom(), -1)},
                                {"to", ids.value(edge->getTo(), -1)},
                                {"tooltip", edge->getHint()},
                                {"visible", edge->isVisible()}};
        edgeFields(*edge, edges.size(), description);
        edges.append(description);
    }
    return {{"nodes", nodes}, {"edges", edges}};
}

} // namespace Kova::Shell
