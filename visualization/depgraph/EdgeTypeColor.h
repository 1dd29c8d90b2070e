// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/DependenceTypes.h"
#include "visualization/VisualizationExport.h"

#include <QColor>

namespace Kova::GUI::DepGraph {

/// The colour of a dependence's arrow: flow blue, anti red, output dark green, input magenta, any other number black.
[[nodiscard]] VISUALIZATION_EXPORT QColor edgeTypeToColor(::DepGraph::EN_DepType type);

} // namespace Kova::GUI::DepGraph
