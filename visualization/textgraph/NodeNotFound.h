// SPDX-License-Identifier: MIT
#pragma once

#include "environment/core/Exception.h"
#include "visualization/VisualizationExport.h"

namespace Kova::GUI::TextGraph {

/// An edge was asked for whose end has no node.
class VISUALIZATION_EXPORT NodeNotFound : public Exception {
public:
    using Exception::Exception;

    /// For an end that was never registered.
    [[nodiscard]] static NodeNotFound notRegistered();
    /// For an end that was registered but was not in the text.
    [[nodiscard]] static NodeNotFound withoutNode();
};

} // namespace Kova::GUI::TextGraph
