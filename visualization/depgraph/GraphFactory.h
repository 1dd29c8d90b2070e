// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"
#include "visualization/depgraph/ExpressionNodes.h"

#include <memory>

namespace DepGraph {
class LampArrow;
}

namespace Kova::GUI::DepGraph {

class LamportEdge;

/// Turns occurrences into nodes and dependences into edges. The text is measured by the layout that asks for the nodes.
class VISUALIZATION_EXPORT GraphFactory {
public:
    /// See ExpressionNodes.
    void registerExpr(const Tessel::ExpressionBase* expression) { m_nodes.registerExpr(expression); }
    [[nodiscard]] TextGraph::NodeBase* createNode(const QPoint& pos, const QString& text,
                                                  const Tessel::TesselBase* object) {
        return m_nodes.createNode(pos, text, object);
    }
    /// The edge of a dependence with its kind, carriers and descriptions, the latter in the order of their modes.
    /// @param arrow not null, not kept.
    /// @throws TextGraph::NodeNotFound see ExpressionNodes::find().
    [[nodiscard]] std::unique_ptr<LamportEdge> createEdge(const Tessel::ExpressionBase* from,
                                                          const Tessel::ExpressionBase* to,
                                                          const ::DepGraph::LampArrow* arrow) const;

private:
    ExpressionNodes m_nodes;
};

} // namespace Kova::GUI::DepGraph
