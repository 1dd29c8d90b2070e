// SPDX-License-Identifier: MIT
#pragma once

#include "environment/core/Exception.h"
#include "visualization/VisualizationExport.h"

class QString;

namespace Kova::GUI::TextGraph {

/// A second node was asked for something that has one.
class VISUALIZATION_EXPORT NodeAlreadyExist : public Exception {
public:
    /// @param text of the node that was asked for; its message is in UTF-8.
    explicit NodeAlreadyExist(const QString& text);
};

} // namespace Kova::GUI::TextGraph
