// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"
#include "visualization/graphcore/EdgeBase.h"

#include <string>
#include <vector>

namespace Kova::GUI::CallGraph {

class Node;

/// All calls from one procedure to one other, or to itself. The calls are the tool tip, one a line; there is no label.
class VISUALIZATION_EXPORT Edge : public GenericGraph::EdgeBase {
public:
    /// @param calls the call expressions as program text, in the order in which they are to be shown.
    Edge(Node* caller, Node* callee, const std::vector<std::string>& calls);
};

} // namespace Kova::GUI::CallGraph
