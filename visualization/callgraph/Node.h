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
    Node(const QString& name, Tessel::SubroutineDeclaration& procedure) : NodeBase(name), m_procedure(&procedure) {}
    /// For a procedure of which only the name is known.
    explicit Node(const QString& name) : NodeBase(name) {}

    /// Null when only the name is known.
    [[nodiscard]] Tessel::SubroutineDeclaration* getProcedure() const { return m_procedure; }

private:
    Tessel::SubroutineDeclaration* m_procedure = nullptr;
};

} // namespace Kova::GUI::CallGraph
