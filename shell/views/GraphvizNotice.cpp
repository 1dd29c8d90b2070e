// SPDX-License-Identifier: MIT
#include "shell/views/GraphvizNotice.h"

#include "environment/core/Console.h"

#include <QStandardPaths>

namespace Kova::Shell {

bool hasGraphviz() {
    return !QStandardPaths::findExecutable("dot").isEmpty();
}

// A person can do something about it once, not once for every picture.
void tellWithoutGraphviz(const std::string& tag) {
    static bool told = false;
    if (told)
        return;
    told = true;
    const std::string reason =
        hasGraphviz() ? "Graphviz's program 'dot' failed" : "Graphviz's program 'dot' is missing";
    getOutputConsole(tag, true).log(Console::AuxUnavailable,
                                    reason + ": blocks are placed plainly. The Debian package graphviz brings it.");
}

} // namespace Kova::Shell
