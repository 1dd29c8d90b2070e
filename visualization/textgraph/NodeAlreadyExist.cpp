// SPDX-License-Identifier: MIT
#include "visualization/textgraph/NodeAlreadyExist.h"

#include <QString>

namespace Kova::GUI::TextGraph {

NodeAlreadyExist::NodeAlreadyExist(const QString& text)
    : Exception("Node: \"" + text.toStdString() + "\" already exist.") {}

} // namespace Kova::GUI::TextGraph
