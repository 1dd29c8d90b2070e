// SPDX-License-Identifier: MIT
#include "shell/commandline/Platform.h"

#include <QGuiApplication>

namespace Kova::Shell {

namespace {

constexpr auto variable = "QT_QPA_PLATFORM";
bool chosenByUser = false;

/// Qt takes the first of a list that works; where a display cannot be reached it would end the program otherwise.
QByteArray platformFor(bool needsWindow) {
    if (needsWindow && !qEnvironmentVariableIsEmpty("DISPLAY"))
        return "xcb;offscreen";
    if (needsWindow && !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        return "wayland;offscreen";
    return "offscreen";
}

} // namespace

void choosePlatform(bool needsWindow) {
    chosenByUser = !qEnvironmentVariableIsEmpty(variable);
    if (!chosenByUser)
        qputenv(variable, platformFor(needsWindow));
}

bool isWithoutDisplay() {
    return !chosenByUser && QGuiApplication::platformName() == "offscreen";
}

} // namespace Kova::Shell
