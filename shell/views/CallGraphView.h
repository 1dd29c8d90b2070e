// SPDX-License-Identifier: MIT
#pragma once

#include "shell/views/ViewKind.h"

namespace Kova::GUI::CallGraph {
class CallGraphWidget;
}

namespace Kova::Shell {

/// Which procedure calls which: of the program, of a subroutine and what it reaches, of a statement.
class CallGraphView final : public View {
public:
    [[nodiscard]] static ViewKind kind();

    CallGraphView();
    ~CallGraphView() override;

    [[nodiscard]] GUI::GraphWidgetBase& getWidget() const override;
    void show(const Subject& subject) override;
    void clear() override;
    [[nodiscard]] Picked findAt(const QPoint& position) const override;
    void selectNode(const Tessel::TesselBase& node) override;
    [[nodiscard]] QJsonObject describe() const override;
    [[nodiscard]] QString summarize() const override;

private:
    std::unique_ptr<GUI::CallGraph::CallGraphWidget> m_widget;
};

} // namespace Kova::Shell
