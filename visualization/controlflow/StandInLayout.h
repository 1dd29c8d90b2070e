// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/graphcore/LayoutManager.h"

#include <QString>

namespace Kova::GUI::ControlFlowGraphExpr {

/// Has `dot` place nodes with texts that it could not read: instead of them it gets others with the same edges and
/// with texts of the same shape. The nodes stay where they are when `dot` is missing or fails.
class VISUALIZATION_EXPORT StandInLayout final : public GenericGraph::LayoutManager {
public:
    /// Edges that lead to nodes outside of the list make no difference.
    void layOut(const std::vector<GenericGraph::NodeBase*>& nodes) override;
    /// Whether `dot` placed the nodes of the last layOut().
    [[nodiscard]] bool hasSucceeded() const { return m_succeeded; }

    /// What stands between the quotes of a label that is as wide and high as the text: characters that mean something
    /// to `dot` are others, and a long text is several.
    [[nodiscard]] static QString readableText(const QString& text);

private:
    bool m_succeeded = false;
};

} // namespace Kova::GUI::ControlFlowGraphExpr
