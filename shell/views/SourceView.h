// SPDX-License-Identifier: MIT
#pragma once

#include "shell/views/ViewKind.h"

namespace Kova::GUI {
class SourceSelector;
}

namespace Kova::Shell {

class SourceSheet;

/// The printed text of the program or a subroutine; a statement is marked in that of its subroutine.
class SourceView final : public View {
public:
    [[nodiscard]] static ViewKind kind();

    SourceView();
    ~SourceView() override;

    [[nodiscard]] GUI::GraphWidgetBase& getWidget() const override;
    void show(const Subject& subject) override;
    void clear() override;
    [[nodiscard]] Picked findAt(const QPoint& position) const override;
    /// "lines", "subroutines" and "marks"; there are no nodes and no edges.
    [[nodiscard]] QJsonObject describe() const override;
    [[nodiscard]] QString summarize() const override;

private:
    [[nodiscard]] QStringList subroutineNames() const;

    /// Never shown itself nor scrolled: it prints and keeps marks for the sheet.
    std::unique_ptr<GUI::SourceSelector> m_selector;
    std::unique_ptr<SourceSheet> m_sheet;
};

} // namespace Kova::Shell
