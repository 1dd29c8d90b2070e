// SPDX-License-Identifier: MIT
#include "visualization/callgraph/Edge.h"

#include "visualization/callgraph/Node.h"

#include <QStringList>

namespace Kova::GUI::CallGraph {

Edge::Edge(Node* caller, Node* callee, const std::vector<std::string>& calls) : EdgeBase(caller, callee) {
    if (caller == callee)
        setShapeKind(Loop);
    QStringList lines;
    for (const std::string& call : calls)
        lines.append(QString::fromStdString(call));
    setToolTip(lines.join(QLatin1Char('\n')));
}

} // namespace Kova::GUI::CallGraph
