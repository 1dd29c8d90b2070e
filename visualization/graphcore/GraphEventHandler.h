// SPDX-License-Identifier: MIT
#pragma once

class QPoint;

namespace Kova::GUI::GenericGraph {

class EdgeBase;
class NodeBase;

/// Receives clicks on the items of a generic graph. Positions are viewport pixels. Not owned by the widget.
class GraphEventHandler {
public:
    /// The right button was released over a node.
    virtual void nodeClicked(const QPoint& viewportPos, NodeBase* node) = 0;
    virtual void nodeDoubleClicked(NodeBase* node) = 0;
    /// The right button was released over an edge and no node.
    virtual void edgeClicked(const QPoint& viewportPos, EdgeBase* edge) = 0;

protected:
    ~GraphEventHandler() = default;
};

} // namespace Kova::GUI::GenericGraph
