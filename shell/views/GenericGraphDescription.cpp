// SPDX-License-Identifier: MIT
#include "shell/views/GenericGraphDescription.h"

#include "visualization/graphcore/GenericGraphWidgetBase.h"

#include <QHash>
#include <QJsonArray>

namespace Kova::Shell {

namespace {

using GUI::GenericGraph::EdgeBase;
using GUI::GenericGraph::NodeBase;

QJsonObject describeNode(const NodeBase& node, int id) {
    return {{"id", id},
            {"text", node.getText()},
            {"rect", QJsonArray{node.getX(), node.getY(), node.getWidth(), node.getHeight()}},
            {"visible", node.isVisible()}};
}

QJsonObject describeEdge(const EdgeBase& edge, const QHash<const NodeBase*, int>& ids) {
    return {{"from", ids.value(edge.getSource(), -1)},
            {"to", ids.value(edge.getTarget(), -1)},
            {"tooltip", edge.getToolTip()},
            {"visible", edge.getSource()->isVisible() && edge.getTarget()->isVisible()}};
}

} // namespace

QJsonObject describeGenericGraph(const GUI::GenericGraph::GenericGraphWidgetBase& widget, const NodeFields& nodeFields,
                                 const EdgeFields& edgeFields) {
    QHash<const NodeBase*, int> ids; // looked up, never walked
    QJsonArray nodes;
    for (const NodeBase* node : widget.getNodes()) {
        ids.insert(node, nodes.size());
        QJsonObject description = describeNode(*node, nodes.size());
        nodeFields(*node, description);
        nodes.append(description);
    }
    QJsonArray edges;
    for (const EdgeBase* edge : widget.getEdges()) {
        QJsonObject description = describeEdge(*edge, ids);
        edgeFields(*edge, description);
        edges.append(description);
    }
    return {{"nodes", nodes}, {"edges", edges}};
}

} // namespace Kova::Shell
