// SPDX-License-Identifier: MIT
#pragma once

#include "tests/visualization/textgraph/PlainPorts.h"
#include "visualization/textgraph/EdgeBase.h"
#include "visualization/textgraph/GraphNodeBase.h"
#include "visualization/textgraph/TextGraphWidgetBase.h"

#include <QHash>

#include <initializer_list>
#include <vector>

namespace Kova::GUI::TextGraph {

/// The ports of a picture's edges, sorted in these modes one after the other from the order in which the edges are
/// listed. Edges that are hidden are so from the beginning.
inline std::vector<int> sortedPorts(const TextGraphWidgetBase& widget, std::initializer_list<int> modes) {
    PlainPorts plain;
    QHash<const NodeBase*, std::size_t> places;
    for (const auto& line : widget.getLines()) {
        for (const NodeBase* word : line.nodes) {
            if (dynamic_cast<const GraphNodeBase*>(word) == nullptr)
                continue;
            places.insert(word, plain.nodes.size());
            plain.nodes.push_back({word->getPos(), word->getRect(), {}, {}});
        }
    }
    for (const auto* edge : widget.getEdges())
        plain.addEdge(places.value(edge->getFrom()), places.value(edge->getTo()));
    for (std::size_t edge = 0; edge < plain.edges.size(); ++edge) {
        if (!widget.getEdges().at(static_cast<int>(edge))->isVisible())
            plain.hide(edge);
    }
    for (const int mode : modes) {
        for (std::size_t node = 0; node < plain.nodes.size(); ++node)
            plain.reorder(node, mode);
    }
    std::vector<int> numbers;
    for (const PlainPorts::Edge& edge : plain.edges)
        numbers.insert(numbers.end(), edge.numbers.begin(), edge.numbers.end());
    return numbers;
}

/// The numbers of source and target port of each edge, in the order of the edges.
inline std::vector<int> portsOf(const TextGraphWidgetBase& widget) {
    std::vector<int> numbers;
    for (const auto* edge : widget.getEdges()) {
        numbers.push_back(edge->getPort(EdgeSide::From));
        numbers.push_back(edge->getPort(EdgeSide::To));
    }
    return numbers;
}

} // namespace Kova::GUI::TextGraph
