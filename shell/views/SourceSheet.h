// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/graphcore/GraphWidgetBase.h"

namespace Kova::GUI {
class SourceSelector;
}

namespace Kova::Shell {

/// The whole text of a selector as a picture that can be zoomed and exported, with its marks.
class SourceSheet : public GUI::GraphWidgetBase {
    Q_OBJECT

public:
    /// @param selector lives as long.
    explicit SourceSheet(const GUI::SourceSelector& selector, QWidget* parent = nullptr);

    /// Shows the selector's text as it is now.
    void update();
    void drawGraph(QPainter& painter) override;
    [[nodiscard]] bool isBuilded() const override;

private:
    const GUI::SourceSelector& m_selector;
};

} // namespace Kova::Shell
