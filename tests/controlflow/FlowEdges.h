// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <set>
#include <string>

namespace Kova::Test {

/// A control flow graph by the names of its nodes, "entry" and "end" among them. Equal places of the source have equal
/// names, whoever made the graph.
struct FlowEdges {
    static constexpr const char* entry = "entry";
    static constexpr const char* end = "end";

    std::map<std::string, std::set<std::string>> successors;

    void add(const std::string& from, const std::string& to) { successors[from].insert(to); }
    [[nodiscard]] bool has(const std::string& node) const { return successors.count(node) != 0; }
    /// What can be reached from each node on one edge or more.
    [[nodiscard]] FlowEdges closure() const;
    /// The nodes that the entry reaches, itself included.
    [[nodiscard]] FlowEdges fromEntry() const;
    /// The edges that the other one does not have, one a line.
    [[nodiscard]] std::string without(const FlowEdges& other) const;
};

/// Where a node of the source begins, or begins and ends, as part of a name.
[[nodiscard]] inline std::string placeName(unsigned line, unsigned column) {
    return std::to_string(line) + ":" + std::to_string(column);
}

} // namespace Kova::Test
