// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/LamportGraph.h"
#include "tests/frontends/c/Reading.h"

#include <string>

namespace Kova::Tests {

/// The dependences in the body of the only function of a C program, as lines of text.
class ReadGraph {
public:
    /// @param text has one function with a body, the last of the file.
    explicit ReadGraph(const std::string& text, DepGraph::EN_RefineMethod method = DepGraph::RM_EXACT,
                       bool withInput = false);

    /// A line for each arrow: "flow 3:a[i] -> 4:a[i - 1] by 1 (1)": kind, line and text of source and target (with a
    /// number from 2 when the line has several of the same text), carriers, distances by common loop with "<", "<=" and
    /// so on where they vary; then " if CONDITION" and " assumed: DOUBT".
    [[nodiscard]] std::string describe() const;
    /// Only the arrows of one variable.
    [[nodiscard]] std::string describe(const std::string& variable) const;

    [[nodiscard]] Tessel::BlockStatement& getBody() const { return *m_body; }
    DepGraph::LamportGraph& getGraph() { return m_graph; }

private:
    [[nodiscard]] std::string name(const Tessel::ExpressionBase& occurrence) const;
    [[nodiscard]] std::string describe(const DepGraph::DependenceFacts& facts) const;

    Test::Reading m_reading;
    Tessel::BlockStatement* m_body = nullptr;
    DepGraph::LamportGraph m_graph;
};

} // namespace Kova::Tests
