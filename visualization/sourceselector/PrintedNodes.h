// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"

#include <QtGlobal>

#include <cstddef>
#include <vector>

namespace Kova::Tessel {
class TesselBase;
}

namespace Kova::GUI {

/// Numbers nodes from 0 in the order in which they were first seen, and finds the number again. Addresses are compared
/// and never followed, so that nodes may be gone. A text asks once for every piece printed, which is why this is an
/// open table of numbers and not a general map: that one would take longer than the printing.
class VISUALIZATION_EXPORT PrintedNodes {
public:
    using Node = Tessel::TesselBase;

    [[nodiscard]] int size() const { return static_cast<int>(m_nodes.size()); }
    [[nodiscard]] const Node* getNode(int number) const { return m_nodes[static_cast<std::size_t>(number)]; }

    /// -1 for a node that was never seen.
    [[nodiscard]] int find(const Node* node) const;
    /// The node's number, which is size() as it was when it is new.
    int insert(const Node* node);

private:
    /// Where the number of the node stands or would stand; the table must not be empty.
    [[nodiscard]] std::size_t placeOf(const Node* node) const;
    void grow();

    std::vector<const Node*> m_nodes;
    /// Numbers plus one; 0 is free. The size is a power of two, at most half of it is taken.
    std::vector<quint32> m_table;
    int m_hashShift = 64;
};

} // namespace Kova::GUI
