// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/controlflow/ControlTransfer.h"
#include "visualization/VisualizationExport.h"
#include "visualization/textgraph/ProgramText.h"
#include "visualization/textgraph/TextGraphWidgetBase.h"

#include <QHash>

#include <vector>

class ControlFlowGraph;

namespace Kova::Tessel {
class BlockStatement;
class StatementBase;
} // namespace Kova::Tessel

namespace Kova::GUI::ControlFlowGraph {

class GraphFactory;

/// Shows the control flow of a block over the block's own text: each line is a node, each transfer of control from
/// statement to statement a blue arrow.
///
/// The widget names statements to those who ask, so clear() it, or show something else, before their program goes. What
/// the analysis or the factory throws passes on and leaves the view half built.
class VISUALIZATION_EXPORT ControlFlowGraphWidget : public TextGraph::TextGraphWidgetBase {
    Q_OBJECT

public:
    /// What an edge stands for. Where control goes to null it ends the subroutine.
    struct Transfer {
        const Tessel::StatementBase* from = nullptr;
        const Tessel::StatementBase* to = nullptr;
        ControlTransfer kind = ControlTransfer::Next;
    };

    explicit ControlFlowGraphWidget(QWidget* parent = nullptr);

    void clear() override;
    [[nodiscard]] bool filterEdge(const TextGraph::EdgeBase* edge) override;

    /// Each entry replaces the whole picture; null empties the view. This one analyses the block.
    /// @param showExternal whether a line below the text stands for what is outside of the block, with the arrows that
    /// lead there; without it they are left out.
    virtual void onNewBlock(Tessel::BlockStatement* block, bool showExternal);
    /// Shows a graph of the block, which stays the caller's. Edges are in the order of the graph's statements and, for
    /// each one, of its successors; a transfer to what is not shown has none.
    virtual void onNewGraph(const ::ControlFlowGraph& graph, Tessel::BlockStatement& block, bool showExternal);

    /// The statement that opened the line of a node; null for the external line, for nodes that are not of the picture
    /// and for null.
    [[nodiscard]] const Tessel::StatementBase* findStatement(const TextGraph::NodeBase* node) const;
    /// The node of the line that stands for the outside; null when it is not shown.
    [[nodiscard]] const TextGraph::NodeBase* getExternalNode() const { return m_externalNode; }
    /// Of an edge by its index in getEdges(); a Transfer as made by default for an index of no edge.
    [[nodiscard]] Transfer getTransfer(int edge) const;

protected:
    /// The steps of a build, in this order; the view has to be empty.
    void buildGraph(const ::ControlFlowGraph& graph, const TextGraph::ProgramLines& text, bool showExternal);
    void convertTextToNodes(const TextGraph::ProgramLines& text, GraphFactory& factory);
    void convertCFGToEdges(const ::ControlFlowGraph& graph, const GraphFactory& factory);

private:
    QHash<const TextGraph::NodeBase*, const Tessel::StatementBase*> m_statements;
    const TextGraph::NodeBase* m_externalNode = nullptr;
    std::vector<Transfer> m_transfers;
};

} // namespace Kova::GUI::ControlFlowGraph
