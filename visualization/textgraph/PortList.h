// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/textgraph/EdgeSide.h"

#include <cstddef>
#include <vector>

namespace Kova::GUI::TextGraph {

class EdgeBase;

/// Where one end of an edge, which it does not own, is attached to a node.
struct Port {
    EdgeBase* edge;
    EdgeSide side;
};

/// The ports along the top or the bottom of a node, from left to right. Every edge is told the number of its port: -1,
/// -2, ... along the top, 1, 2, ... along the bottom.
///
/// Released ports leave gaps that are closed, and numbers that are put right, when the ports are asked for next: hiding
/// all edges of a crowded node would take quadratic time otherwise.
class PortList {
public:
    enum class Place { Top, Bottom };
    explicit PortList(Place place) : m_sign(place == Place::Top ? -1 : 1) {}

    /// Attaches the end at the right of all others.
    void add(EdgeBase* edge, EdgeSide side);
    /// Takes away the port with the number that the edge holds at present. Numbers of no port are ignored.
    void release(int heldNumber);
    /// Closes gaps and tells the edges their numbers if there are gaps.
    void settle() {
        if (m_gaps != 0)
            closeGaps();
    }
    /// Tells all edges their numbers.
    void number();
    /// Without gaps.
    [[nodiscard]] std::vector<Port>& ports();

private:
    void closeGaps();

    int m_sign;
    std::vector<Port> m_ports;
    std::size_t m_gaps = 0;
};

} // namespace Kova::GUI::TextGraph
