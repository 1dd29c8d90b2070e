// SPDX-License-Identifier: MIT
#include "shell/views/View.h"

#include "environment/core/Console.h"
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

bool View::mayTakeLong(const std::string& tag, const QString& warning) const {
    if (m_patienceListener)
        return m_patienceListener(warning);
    getOutputConsole(tag, true).log(Console::Info, warning.toStdString());
    return true;
}

} // namespace Kova::Shell
