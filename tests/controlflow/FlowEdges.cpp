// SPDX-License-Identifier: MIT
#include "tests/controlflow/FlowEdges.h"

#include <vector>

namespace Kova::Test {

FlowEdges FlowEdges::closure() const {
    FlowEdges result;
    for (const auto& [from, direct] : successors) {
        std::set<std::string>& reached = result.successors[from];
        std::vector<std::string> open(direct.begin(), direct.end());
        while (!open.empty()) {
            const std::string node = open.back();
            open.pop_back();
            if (!reached.insert(node).second)
                continue;
            const auto further = successors.find(node);
            if (further != successors.end())
                open.insert(open.end(), further->second.begin(), further->second.end());
        }
    }
    return result;
}

FlowEdges FlowEdges::fromEntry() const {
    FlowEdges result;
    std::vector<std::string> open = {entry};
    while (!open.empty()) {
        const std::string node = open.back();
        open.pop_back();
        const auto found = successors.find(node);
        if (found != successors.end() && result.successors.insert(*found).second)
            open.insert(open.end(), found->second.begin(), found->second.end());
    }
    return result;
}

std::string FlowEdges::without(const FlowEdges& other) const {
    std::string text;
    for (const auto& [from, targets] : successors) {
        const auto others = other.successors.find(from);
        for (const std::string& to : targets)
            if (others == other.successors.end() || others->second.count(to) == 0)
                text += from + " -> " + to + "\n";
    }
    return text;
}

} // namespace Kova::Test
