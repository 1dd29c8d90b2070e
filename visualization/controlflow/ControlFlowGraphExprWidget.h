// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"
#include "visualization/graphcore/GenericGraphWidgetBase.h"

class ControlFlowGraphExpr;

namespace Kova::Tessel {
class StatementBase;
}

namespace Kova::GUI::ControlFlowGraphExpr {

/// Shows the control flow of a statement as basic blocks: a box with the block's expressions as C, one a line, for each
/// block and an edge for each transfer between them, laid out by Graphviz. What control never reaches is grey.
///
/// The widget refers to the statement no longer than an entry takes.
class VISUALIZATION_EXPORT ControlFlowGraphExprWidget : public GenericGraph::GenericGraphWidgetBase {
    Q_OBJECT

public:
    explicit ControlFlowGraphExprWidget(QWidget* parent = nullptr);

    void clear() override;

    /// Each entry replaces the whole picture; null empties the view. This one analyses the statement, short-circuit and
    /// conditional operators included.
    void onNewStatement(Tessel::StatementBase* stmt);
    /// Shows a graph, which stays the caller's: nodes are in the order of its blocks, edges in that of the blocks and,
    /// for each one, of its successors.
    void showGraph(const ::ControlFlowGraphExpr& graph);

    /// Whether the program `dot` is asked for the layout, which takes it long for thousands of blocks; so it is unless
    /// set. Takes effect with the next entry.
    void setUsesGraphviz(bool uses) { m_usesGraphviz = uses; }
    [[nodiscard]] bool usesGraphviz() const { return m_usesGraphviz; }
    /// True when `dot` was asked to lay out what is shown, and is missing or failed: then blocks are in rows.
    [[nodiscard]] bool hasGraphvizFailed() const { return m_graphvizFailed; }

private:
    void addItems(const ::ControlFlowGraphExpr& graph);
    void layOut();
    /// Dot knows nothing of how far a loop rises above its box, which may be in the first row when control never
    /// reaches it.
    void keepLoopsInside();

    bool m_usesGraphviz = true;
    bool m_graphvizFailed = false;
};

} // namespace Kova::GUI::ControlFlowGraphExpr
