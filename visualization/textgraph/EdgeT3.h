// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/textgraph/EdgeBase.h"

namespace Kova::GUI::TextGraph {

/// A loop on the left of a node, from its top to its bottom.
class EdgeT3 final : public EdgeBase::EdgeShapeBase {
public:
    [[nodiscard]] int getType() const override { return EdgeBase::Loop; }
    void processInternal(const EdgeBase* edge, QPainterPath& path, QPoint* points) const override;
    void showInternal(EdgeBase* edge) override;
};

} // namespace Kova::GUI::TextGraph
