// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/callgraph/CallGraph.h"
#include "environment/tessel/SubroutineDeclaration.h"

#include <string>

namespace Kova::Tests {

/// A call graph as text, an entry a line: its key, then each callee with the number of calls.
inline std::string textOf(const CallGraph& graph) {
    std::string text;
    for (const auto& [key, node] : graph.getGraph()) {
        text += key + ":";
        for (const auto& [callee, calls] : node->getCalls())
            text += " " + callee->getName() + "*" + std::to_string(calls.size());
        text += "\n";
    }
    return text;
}

} // namespace Kova::Tests
