// SPDX-License-Identifier: MIT
#include "shell/views/View.h"

#include "visualization/graphcore/GraphWidgetBase.h"

namespace Kova::Shell {

QList<QAction*> View::getActions() const {
    return getWidget().actions();
}

} // namespace Kova::Shell
