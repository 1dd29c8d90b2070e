// SPDX-License-Identifier: MIT
#pragma once

#include "frontends/c/CFrontend.h"
#include "tests/controlflow/FlowEdges.h"

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace Kova::Test {

/// Clang's control flow graphs of the functions of a C file. Conditions that are constants are seen as such.
class ClangFlow {
public:
    ClangFlow(const std::string& path, const Frontends::COptions& options = {});
    ~ClangFlow();

    /// The places of the bodies of all functions of the file itself that Clang makes a graph of.
    [[nodiscard]] std::vector<std::string> getBodies() const;

    /// Which statements are executed right after which. A statement is named by its kind and the place where it begins.
    /// The graph has no blocks, no null statements, nor what has no place in Clang's: control passes through them.
    /// @param body place of a function's body.
    [[nodiscard]] FlowEdges flowOfStatements(const std::string& body) const;
    /// Which expressions are evaluated right after which of them.
    /// @param listed by where they begin and end.
    [[nodiscard]] FlowEdges flowOfExpressions(const std::string& body, const std::set<std::string>& listed) const;

private:
    struct Unit;
    std::unique_ptr<Unit> m_unit;
};

} // namespace Kova::Test
