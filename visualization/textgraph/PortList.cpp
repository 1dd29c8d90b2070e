// SPDX-License-Identifier: MIT
#include "visualization/textgraph/PortList.h"

#include "visualization/textgraph/EdgeBase.h"

#include <algorithm>
#include <cstdlib>

namespace Kova::GUI::TextGraph {

void PortList::add(EdgeBase* edge, EdgeSide side) {
    m_ports.push_back({edge, side});
    edge->setPort(side, m_sign * static_cast<int>(m_ports.size()));
}

void PortList::release(int heldNumber) {
    // A gap keeps its place until it is closed, so that the numbers which the other edges hold stay true.
    const auto index = static_cast<std::size_t>(std::abs(static_cast<long>(heldNumber))) - 1;
    if (index >= m_ports.size())
        return;
    m_ports[index].edge = nullptr;
    ++m_gaps;
}

void PortList::closeGaps() {
    m_ports.erase(std::remove_if(m_ports.begin(), m_ports.end(), [](const Port& port) { return port.edge == nullptr; }),
                  m_ports.end());
    m_gaps = 0;
    number();
}

void PortList::number() {
    int next = 0;
    for (const Port& port : m_ports) {
        ++next;
        if (port.edge != nullptr)
            port.edge->setPort(port.side, m_sign * next);
    }
}

std::vector<Port>& PortList::ports() {
    settle();
    return m_ports;
}

} // namespace Kova::GUI::TextGraph
