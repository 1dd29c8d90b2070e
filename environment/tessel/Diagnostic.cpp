// SPDX-License-Identifier: MIT
#include "environment/tessel/Diagnostic.h"

namespace Kova::Tessel {

const char* toString(Diagnostic::Level level) {
    switch (level) {
    case Diagnostic::Level::Note:
        return "note";
    case Diagnostic::Level::Warning:
        return "warning";
    case Diagnostic::Level::Error:
        break;
    }
    return "error";
}

std::string toString(const Diagnostic& diagnostic) {
    std::string text = diagnostic.file;
    if (!text.empty() && diagnostic.line != 0) {
        text += ':' + std::to_string(diagnostic.line);
        if (diagnostic.column != 0)
            text += ':' + std::to_string(diagnostic.column);
    }
    if (!text.empty())
        text += ": ";
    return text + toString(diagnostic.level) + ": " + diagnostic.text;
}

} // namespace Kova::Tessel
