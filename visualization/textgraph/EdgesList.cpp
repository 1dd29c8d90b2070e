// SPDX-License-Identifier: MIT
#include "visualization/textgraph/EdgesList.h"

#include "visualization/textgraph/EdgeBase.h"

#include <algorithm>

namespace Kova::GUI::TextGraph {

EdgesList::~EdgesList() {
    clear();
}

void EdgesList::add(EdgeBase* edge) {
    m_edges.push_back(edge);
}

void EdgesList::remove(EdgeBase* edge) {
    const auto found = std::find(m_edges.begin(), m_edges.end(), edge);
    if (found != m_edges.end())
        m_edges.erase(found);
}

void EdgesList::clear() {
    for (EdgeBase* edge : m_edges)
        delete edge;
    m_edges.clear();
}

} // namespace Kova::GUI::TextGraph
