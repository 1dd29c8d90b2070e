// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/graphcore/LayoutManager.h"

#include <iosfwd>
#include <map>

namespace Kova::GUI::GenericGraph {

/// Has the program `dot` of Graphviz place the nodes in layers along their edges; an inch of its drawing becomes 100
/// graph units. Uses the files /tmp/1.dot and /tmp/1.dot.plain, so that two processes that lay out at a time disturb
/// each other.
///
/// Where `dot` is missing or fails, nothing is reported: nodes stay where they are, or go where an earlier run of the
/// same user has left its result. Texts that hold quotes or end in a backslash make `dot` fail.
class VISUALIZATION_EXPORT GraphvisLayout : public LayoutManager {
public:
    void layOut(const std::vector<NodeBase*>& nodes) override;
    /// Whether `dot` itself, rather than an earlier run, placed the nodes of the last layOut().
    [[nodiscard]] bool hasSucceeded() const { return m_succeeded; }

    /// Numbers the nodes by their positions in the list and writes them and the edges between them as `dot` reads them.
    void dumpNodes(const std::vector<NodeBase*>& nodes, std::ostream& out);
    /// Moves the nodes of the last dumpNodes() to where `dot`, in its plain format, says that they are.
    void readPlain(std::istream& in);

private:
    void readNode(std::istream& in, double height);

    std::map<NodeBase*, int> m_numbers;
    std::map<int, NodeBase*> m_nodes;
    bool m_succeeded = false;
};

} // namespace Kova::GUI::GenericGraph
