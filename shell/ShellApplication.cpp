// SPDX-License-Identifier: MIT
#include "shell/ShellApplication.h"

#include "shell/commandline/StandardStreams.h"

#include <exception>

namespace Kova::Shell {

ShellApplication::ShellApplication(int& argc, char** argv) : QApplication(argc, argv) {
    setOrganizationName("Kova");
    setApplicationName("kova-shell");
    setApplicationVersion(KOVA_VERSION);
    connect(this, &ShellApplication::exceptionCaught, this, &printMessage);
}

bool ShellApplication::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& exception) {
        Q_EMIT exceptionCaught(QString("that failed: %1").arg(exception.what()));
    } catch (...) {
        Q_EMIT exceptionCaught("that failed for an unknown reason");
    }
    return true;
}

} // namespace Kova::Shell
