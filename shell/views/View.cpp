// SPDX-License-Identifier: MIT
#include "shell/views/View.h"

#include "visualization/graphcore/GraphWidgetBase.h"

namespace Kova::Shell {

QList<QAction*> View::getActions() const {
    return getWidget().actions();
}

Picked View::findAt(const QPoint& /*position*/) const {
    return {};
}

void View::selectNode(const Tessel::TesselBase& /*node*/) {}

void View::tellPicked(const Picked& picked) const {
    if (m_pickListener)
        m_pickListener(picked);
}

} // namespace Kova::Shell
