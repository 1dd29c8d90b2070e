// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/textgraph/EdgeBase.h"

namespace Kova::GUI::TextGraph {

/// An arc above the line between two nodes on it.
class EdgeT2 final : public EdgeBase::EdgeShapeBase {
public:
    [[nodiscard]] int getType() const override { return EdgeBase::Arc; }
    void processInternal(const EdgeBase* edge, QPainterPath& path, QPoint* points) const override;
    void showInternal(EdgeBase* edge) override;
};

} // namespace Kova::GUI::TextGraph
