// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"

#include <unordered_map>

class QPoint;
class QString;

namespace Kova::Tessel {
class ExpressionBase;
class TesselBase;
} // namespace Kova::Tessel

namespace Kova::GUI::TextGraph {
class GraphNodeBase;
class NodeBase;
} // namespace Kova::GUI::TextGraph

namespace Kova::GUI::DepGraph {

/// The nodes of the occurrences that dependences join.
class VISUALIZATION_EXPORT ExpressionNodes {
public:
    /// Announces an expression that is to have a node; does nothing when it has been announced.
    void registerExpr(const Tessel::ExpressionBase* expression);
    /// Makes the node of a piece of text, which the caller owns: one that edges attach to if the object was announced,
    /// otherwise (also for null) text alone. The node of an object must live as long as it is asked for.
    /// @throws TextGraph::NodeAlreadyExist when an announced object has its node.
    [[nodiscard]] TextGraph::NodeBase* createNode(const QPoint& pos, const QString& text,
                                                  const Tessel::TesselBase* object);

    struct Ends {
        TextGraph::GraphNodeBase* from;
        TextGraph::GraphNodeBase* to;
    };
    /// The nodes of two expressions, never null.
    /// @throws TextGraph::NodeNotFound when one of them was not announced, or else has no node.
    [[nodiscard]] Ends find(const Tessel::ExpressionBase* from, const Tessel::ExpressionBase* to) const;

private:
    // Looked up, never walked: the order of addresses reaches nobody.
    std::unordered_map<const Tessel::TesselBase*, TextGraph::GraphNodeBase*> m_nodes;
};

} // namespace Kova::GUI::DepGraph
