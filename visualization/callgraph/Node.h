// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/graphcore/NodeBase.h"

namespace Kova::Tessel {
class SubroutineDeclaration;
}

namespace Kova::GUI::CallGraph {

/// A procedure in the picture of a call graph.
class Node : public GenericGraph::NodeBase {
public:
    /// @param procedure not owned; has to live as long as the node.
    Node(const QString& name, Tessel::SubroutineDeclaration& procedure) : NodeBase(name), m_procedure(procedure) {}

    [[nodiscard]] Tessel::SubroutineDeclaration& getProcedure() const { return m_procedure; }

private:
    Tessel::SubroutineDeclaration& m_procedure;
};

} // namespace Kova::GUI::CallGraph
