// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/textgraph/EdgeBase.h"

namespace Kova::GUI::TextGraph {

/// A straight edge between two lines: from the bottom of the upper node to the top of the lower one.
class EdgeT1 final : public EdgeBase::EdgeShapeBase {
public:
    [[nodiscard]] int getType() const override { return EdgeBase::Straight; }
    void processInternal(const EdgeBase* edge, QPainterPath& path, QPoint* points) const override;
    void showInternal(EdgeBase* edge) override;
};

} // namespace Kova::GUI::TextGraph
