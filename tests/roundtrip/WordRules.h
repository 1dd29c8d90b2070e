// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace Kova::Tessel {
class StatementBase;
} // namespace Kova::Tessel

namespace Kova::Test {

/// What views over text rely on and a statement's printed words break, a line each; empty when all is well:
/// - both granularities have the same lines, a line of statements is one word;
/// - a line begins with its indentation alone, for the statement that opens it, or for a member of a type;
/// - every node has a piece of its own, and a variable that an expression mentions is one word, its name;
/// - a block opens the lines of its two braces, a loop, branch or switch those of its header, of its `else`, and of the
///   condition at its end, each other statement the one it begins on, in this order.
[[nodiscard]] std::vector<std::string> brokenWordRules(Tessel::StatementBase& statement);

} // namespace Kova::Test
