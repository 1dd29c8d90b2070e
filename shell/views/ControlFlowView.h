// SPDX-License-Identifier: MIT
#pragma once

#include "shell/views/ViewKind.h"

class ControlFlowGraph;

namespace Kova::GUI::ControlFlowGraph {
class ControlFlowGraphWidget;
}

namespace Kova::GUI::TextGraph {
class NodeBase;
}

namespace Kova::Tessel {
class BlockStatement;
class StatementBase;
} // namespace Kova::Tessel

namespace Kova::Shell {

/// Which statement of a block is executed after which, drawn over the block's text.
class ControlFlowView final : public View {
public:
    [[nodiscard]] static ViewKind kind();

    ControlFlowView();
    ~ControlFlowView() override;

    [[nodiscard]] GUI::GraphWidgetBase& getWidget() const override;
    /// Shows and hides what stands for everything outside of the block.
    [[nodiscard]] QList<QAction*> getActions() const override;
    void show(const Subject& subject) override;
    void clear() override;
    /// The ends of the arrow under the mouse, or the statement of a line.
    [[nodiscard]] Picked findAt(const QPoint& position) const override;
    /// Highlights the first arrow from the statement around the node; to it where none leaves it.
    void selectNode(const Tessel::TesselBase& node) override;
    [[nodiscard]] QJsonObject describe() const override;
    [[nodiscard]] QString summarize() const override;

private:
    void draw();
    [[nodiscard]] int lineOf(const GUI::TextGraph::NodeBase& node) const;
    /// The first edge from a statement, or to it; -1 for none.
    [[nodiscard]] int findEdge(const Tessel::StatementBase& statement) const;

    std::unique_ptr<GUI::ControlFlowGraph::ControlFlowGraphWidget> m_widget;
    std::unique_ptr<QAction> m_showExternal;
    /// Null while nothing is shown.
    Tessel::BlockStatement* m_block = nullptr;
    std::unique_ptr<::ControlFlowGraph> m_graph;
};

} // namespace Kova::Shell
