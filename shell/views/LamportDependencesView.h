// SPDX-License-Identifier: MIT
#pragma once

#include "shell/views/DependenceRecord.h"
#include "shell/views/ViewKind.h"

namespace Kova::GUI::DepGraph {
class DepGraphWidget;
}

namespace Kova::Shell {

class DependenceTable;

/// The dependences of a block drawn over its text, with a table of them. Different names are taken for different
/// memory.
class LamportDependencesView final : public View {
public:
    [[nodiscard]] static ViewKind kind();

    LamportDependencesView();
    ~LamportDependencesView() override;

    [[nodiscard]] GUI::GraphWidgetBase& getWidget() const override;
    [[nodiscard]] QWidget* getPanel() const override;
    [[nodiscard]] QList<QAction*> getActions() const override;
    void show(const Subject& subject) override;
    void clear() override;
    [[nodiscard]] Picked findAt(const QPoint& position) const override;
    void selectNode(const Tessel::TesselBase& node) override;
    [[nodiscard]] QJsonObject describe() const override;
    [[nodiscard]] QString summarize() const override;

private:
    void connectTable();
    /// The ends of an edge; none for -1.
    [[nodiscard]] Picked endsOf(int edge) const;

    std::unique_ptr<GUI::DepGraph::DepGraphWidget> m_widget;
    // Asks the widget which edges are shown, so it goes first.
    std::unique_ptr<DependenceTable> m_table;
    /// Source and target of each edge, in the widget's order.
    std::vector<Picked> m_ends;
};

} // namespace Kova::Shell
