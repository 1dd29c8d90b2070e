// SPDX-License-Identifier: MIT
#include "visualization/depgraph/EdgeTypeColor.h"

namespace Kova::GUI::DepGraph {

QColor edgeTypeToColor(::DepGraph::EN_DepType type) {
    switch (type) {
    case ::DepGraph::DT_FLOW:
        return Qt::blue;
    case ::DepGraph::DT_ANTI:
        return Qt::red;
    case ::DepGraph::DT_OUTPUT:
        return Qt::darkGreen;
    case ::DepGraph::DT_INPUT:
        return Qt::magenta;
    }
    return Qt::black;
}

} // namespace Kova::GUI::DepGraph
