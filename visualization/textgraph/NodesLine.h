// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"

#include <QList>

namespace Kova::GUI::TextGraph {

class NodeBase;

/// What stands on one printed line, from left to right; does not own it.
struct VISUALIZATION_EXPORT NodesLine {
    QList<NodeBase*> nodes;
    /// Of the base line, in graph units.
    int y = 0;

    /// Moves the line with its nodes, which keep their x.
    void setY(int newY);
};

} // namespace Kova::GUI::TextGraph
