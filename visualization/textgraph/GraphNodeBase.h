// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"
#include "visualization/textgraph/NodeBase.h"
#include "visualization/textgraph/PortList.h"

#include <vector>

namespace Kova::GUI::TextGraph {

/// A node that edges attach to, at ports along the top and the bottom of its text. Edges, which are not owned, have to
/// be hidden, or be deleted together with the node: a deleted edge gives no ports back.
class VISUALIZATION_EXPORT GraphNodeBase : public NodeBase {
public:
    using Port = TextGraph::Port;

    GraphNodeBase(const QPoint& pos, const QString& text);
    ~GraphNodeBase() override;

    /// Attaches an end of an edge at the right of the top or bottom and tells the edge its port number.
    void addUpPort(EdgeBase* edge, EdgeSide side);
    void addDownPort(EdgeBase* edge, EdgeSide side);
    /// Takes a port away by its number (its sign does not matter) and numbers the others anew. The edge that was
    /// attached there keeps its number. Numbers of no port are ignored.
    void removeUpPort(int number);
    void removeDownPort(int number);
    /// Tells all edges the numbers of their ports as they are now: -1, -2, ... along the top, 1, 2, ... along the
    /// bottom.
    void setPorts();
    /// Where a port is; the node's position for numbers of no port.
    [[nodiscard]] QPoint getPortCoords(int number) const;
    /// Sorts the ports of top and bottom so that fewer edges cross, see PortSorter. 1 looks at edges between lines, 2
    /// at edges within the line, 3 at loops, 4 does all (3, 1, 2); others do nothing. The edges know their numbers
    /// afterwards.
    void reorder(int mode);

    /// From left to right.
    [[nodiscard]] const std::vector<Port>& getUpPorts() const;
    [[nodiscard]] const std::vector<Port>& getDownPorts() const;

private:
    friend class EdgeBase;
    /// Takes a port away without telling the others at once.
    void releasePort(int heldNumber);
    /// Makes up for what releasePort() left.
    void settlePorts() const;

    // A gap of a released port is closed by whoever asks, which shows nowhere.
    mutable PortList m_upPorts;
    mutable PortList m_downPorts;
};

} // namespace Kova::GUI::TextGraph
