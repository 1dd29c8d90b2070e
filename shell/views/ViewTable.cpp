// SPDX-License-Identifier: MIT
#include "shell/views/ViewTable.h"

#include "shell/views/CallGraphView.h"
#include "shell/views/ControlFlowView.h"
#include "shell/views/ExpressionControlFlowView.h"
#include "shell/views/LamportDependencesView.h"
#include "shell/views/SourceView.h"

namespace Kova::Shell {

const std::vector<ViewKind>& getViewKinds() {
    static const std::vector<ViewKind> kinds = {
        CallGraphView::kind(),
        ControlFlowView::kind(),
        ExpressionControlFlowView::kind(),
        LamportDependencesView::kind(),
        SourceView::kind(),
    };
    return kinds;
}

const ViewKind* findViewKind(const QString& name) {
    for (const ViewKind& kind : getViewKinds())
        if (kind.name == name)
            return &kind;
    return nullptr;
}

QStringList getViewNames() {
    QStringList names;
    for (const ViewKind& kind : getViewKinds())
        names.append(kind.name);
    return names;
}

} // namespace Kova::Shell
