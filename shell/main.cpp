// SPDX-License-Identifier: MIT
#include "shell/Shell.h"
#include "shell/commandline/StandardStreams.h"

#include <exception>

int main(int argc, char** argv) {
    try {
        return Kova::Shell::runShell(argc, argv);
    } catch (const std::exception& exception) {
        Kova::Shell::printMessage(QString("that failed: %1").arg(exception.what()));
    } catch (...) {
        Kova::Shell::printMessage("that failed for an unknown reason");
    }
    return Kova::Shell::FileFailure;
}
