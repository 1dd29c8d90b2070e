// SPDX-License-Identifier: MIT
#include "visualization/sourceselector/PrintedNodes.h"

namespace Kova::GUI {

namespace {

constexpr int smallestTableBits = 6;
/// Multiplicative hashing (Knuth, "The Art of Computer Programming", volume 3, 6.4): 2^64 divided by the golden ratio.
constexpr quint64 goldenRatio = 0x9E3779B97F4A7C15U;

} // namespace

int PrintedNodes::find(const Node* node) const {
    if (m_table.empty())
        return -1;
    return static_cast<int>(m_table[placeOf(node)]) - 1;
}

int PrintedNodes::insert(const Node* node) {
    if (m_table.size() < 2 * (m_nodes.size() + 1))
        grow();
    quint32& entry = m_table[placeOf(node)];
    if (entry == 0) {
        m_nodes.push_back(node);
        entry = static_cast<quint32>(m_nodes.size());
    }
    return static_cast<int>(entry) - 1;
}

std::size_t PrintedNodes::placeOf(const Node* node) const {
    const std::size_t mask = m_table.size() - 1;
    std::size_t place = (reinterpret_cast<quintptr>(node) * goldenRatio) >> m_hashShift;
    while (m_table[place] != 0 && m_nodes[m_table[place] - 1] != node)
        place = (place + 1) & mask;
    return place;
}

void PrintedNodes::grow() {
    const int bits = m_table.empty() ? smallestTableBits : 64 - m_hashShift + 1;
    m_hashShift = 64 - bits;
    m_table.assign(std::size_t{1} << bits, 0);
    for (std::size_t i = 0; i < m_nodes.size(); ++i)
        m_table[placeOf(m_nodes[i])] = static_cast<quint32>(i + 1);
}

} // namespace Kova::GUI
