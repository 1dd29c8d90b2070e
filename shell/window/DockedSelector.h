// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/sourceselector/SourceSelector.h"

namespace Kova::Shell {

/// A selector that draws all lines in view. One by itself draws as many as its width holds, which leaves the lower part
/// of a dock empty that is higher than wide.
class DockedSelector final : public GUI::SourceSelector {
    Q_OBJECT

public:
    using SourceSelector::SourceSelector;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace Kova::Shell
