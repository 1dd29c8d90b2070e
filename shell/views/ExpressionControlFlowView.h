// SPDX-License-Identifier: MIT
#pragma once

#include "shell/views/ViewKind.h"

class ControlFlowGraphExpr;

namespace Kova::GUI::ControlFlowGraphExpr {
class ControlFlowGraphExprWidget;
}

namespace Kova::Shell {

/// The basic blocks of expressions that a statement or the body of a subroutine evaluates.
class ExpressionControlFlowView final : public View {
public:
    /// With more blocks, or more rows of blocks that arrows pass, `dot` runs only when the user agrees: so many take it
    /// a second or two, and twice as many rows eight times as long.
    static constexpr std::size_t mostBlocksUnasked = 1500;
    static constexpr std::size_t mostRowsUnasked = 2000;

    [[nodiscard]] static ViewKind kind();

    ExpressionControlFlowView();
    ~ExpressionControlFlowView() override;

    [[nodiscard]] GUI::GraphWidgetBase& getWidget() const override;
    void show(const Subject& subject) override;
    void clear() override;
    /// The expression on a line of a block, or the expressions that an arrow connects.
    [[nodiscard]] Picked findAt(const QPoint& position) const override;
    /// Highlights the block that evaluates the node, what is around it or the first that is in it.
    void selectNode(const Tessel::TesselBase& node) override;
    [[nodiscard]] QJsonObject describe() const override;
    [[nodiscard]] QString summarize() const override;

private:
    [[nodiscard]] bool chooseGraphviz() const;

    std::unique_ptr<GUI::ControlFlowGraphExpr::ControlFlowGraphExprWidget> m_widget;
    /// The widget has a node for each block and an edge for each successor, in the graph's order.
    std::unique_ptr<::ControlFlowGraphExpr> m_graph;
};

} // namespace Kova::Shell
