// SPDX-License-Identifier: MIT
#include "visualization/graphcore/LayoutManager.h"

namespace Kova::GUI::GenericGraph {

LayoutManager::~LayoutManager() = default;

} // namespace Kova::GUI::GenericGraph
