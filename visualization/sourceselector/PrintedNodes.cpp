// SPDX-License-Identifier: MIT
#include "visualization/sourceselector/PrintedNodes.h"

namespace Kova::GUI {

namespace {

constexpr int smallestTableBits = 6;
constexpr int growthBits = 2;
/// Multiplicative hashing (Knuth, "The Art of Computer Programming", volume 3, 6.4): 2^64 divided by the golden ratio.
constexpr quint64 goldenRatio = 0x9E3779B97F4A7C15U;
/// Nodes are at least as large.
constexpr int nodeBits = 6;
/// How many nodes may stand side by side in what is hashed as one.
constexpr int neighbourBits = 8;

/// What is allocated side by side, as the nodes of a statement often are, stands side by side in the table: a tree is
/// printed in about the order in which it was built, and a table of scattered places would not stay in a cache.
quint64 firstPlaceOf(const PrintedNodes::Node* node, int hashShift) {
    const quint64 address = reinterpret_cast<quintptr>(node) >> nodeBits;
    const quint64 neighbour = address & ((quint64{1} << neighbourBits) - 1);
    return (((address >> neighbourBits) * goldenRatio) >> hashShift) + neighbour;
}

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
    std::size_t place = firstPlaceOf(node, m_hashShift) & mask;
    while (m_table[place] != 0 && m_nodes[m_table[place] - 1] != node)
        place = (place + 1) & mask;
    return place;
}

void PrintedNodes::grow() {
    const int bits = m_table.empty() ? smallestTableBits : 64 - m_hashShift + growthBits;
    m_hashShift = 64 - bits;
    m_table.assign(std::size_t{1} << bits, 0);
    for (std::size_t i = 0; i < m_nodes.size(); ++i)
        m_table[placeOf(m_nodes[i])] = static_cast<quint32>(i + 1);
}

} // namespace Kova::GUI
