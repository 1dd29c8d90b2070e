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
    const std::string text = hasGraphviz()
                                 ? "Graphviz's program 'dot' failed: blocks are placed plainly. The Debian package "
                                   "graphviz brings it; its files /tmp/1.dot and /tmp/1.dot.plain must not be "
                                   "somebody else's or in use by another run."
                                 : "Graphviz's program 'dot' is missing: blocks are placed plainly. The Debian package "
                                   "graphviz brings it.";
    getOutputConsole(tag, true).log(Console::AuxUnavailable, text);
}

} // namespace Kova::Shell
