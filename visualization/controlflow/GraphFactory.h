// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"

#include <QList>

#include <memory>
#include <unordered_map>

class QPoint;
class QString;

namespace Kova::Tessel {
class StatementBase;
class TesselBase;
} // namespace Kova::Tessel

namespace Kova::GUI::TextGraph {
class EdgeBase;
class GraphNodeBase;
class NodeBase;
} // namespace Kova::GUI::TextGraph

namespace Kova::GUI::ControlFlowGraph {

/// Turns printed lines of statements into nodes and transfers of control into edges. The text is measured by the layout
/// that asks for the nodes.
class VISUALIZATION_EXPORT GraphFactory {
public:
    /// @param showExternal whether there is a node that stands for all statements that were not registered.
    explicit GraphFactory(bool showExternal);
    ~GraphFactory();
    GraphFactory(const GraphFactory&) = delete;
    GraphFactory& operator=(const GraphFactory&) = delete;

    /// Announces a statement that is to have nodes; does nothing when it has been announced.
    void registerStmt(const Tessel::StatementBase* statement);
    /// Makes the node of a printed line, which the caller owns: one that edges attach to if the object was announced,
    /// otherwise (also for null) text alone. A statement has as many nodes as it opens lines, in the order in which
    /// they are made; they must live as long as edges are made.
    [[nodiscard]] TextGraph::NodeBase* createNode(const QPoint& pos, const QString& text,
                                                  const Tessel::TesselBase* object);
    /// The blue edge of a transfer of control. Of a statement of several lines it leaves or enters the one where
    /// control is: a block at its opening brace when it is entered and at its closing one when it is left, any other
    /// statement at its last line, a branch at its last but one, where it tests.
    /// @return null when one of the ends has no node; that is told on the console "CFGraphVisual" when there is the
    /// external node.
    /// @throws StateError when the transfer leaves a block whose first statement is missing.
    [[nodiscard]] std::unique_ptr<TextGraph::EdgeBase> createEdge(const Tessel::StatementBase* from,
                                                                  const Tessel::StatementBase* to) const;

    /// "EXTERNAL"; null when it is not shown.
    [[nodiscard]] TextGraph::GraphNodeBase* getExternalNode() const { return m_external; }
    /// Leaves the external node, which belongs to the factory until then, to the caller; null when that has been done
    /// or there is none.
    [[nodiscard]] std::unique_ptr<TextGraph::GraphNodeBase> takeExternalNode();

private:
    using Nodes = QList<TextGraph::GraphNodeBase*>;

    /// Null when the statement was not announced.
    [[nodiscard]] const Nodes* findNodes(const Tessel::StatementBase* statement) const;
    [[nodiscard]] TextGraph::GraphNodeBase* findSource(const Tessel::StatementBase* from,
                                                       const Tessel::StatementBase* to) const;
    [[nodiscard]] TextGraph::GraphNodeBase* findTarget(const Tessel::StatementBase* from,
                                                       const Tessel::StatementBase* to) const;

    // Looked up, never walked: the order of addresses reaches nobody.
    std::unordered_map<const Tessel::TesselBase*, Nodes> m_nodes;
    std::unique_ptr<TextGraph::GraphNodeBase> m_ownedExternal;
    TextGraph::GraphNodeBase* m_external;
};

} // namespace Kova::GUI::ControlFlowGraph
