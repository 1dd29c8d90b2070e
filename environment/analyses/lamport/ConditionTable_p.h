// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/LinearForm_p.h"
#include "environment/analyses/lamport/LinearSystem_p.h"

#include <string>

namespace DepGraph {

/// Writes down what unknowns have to fulfil. Most pairs of a nest have the same condition: each is worked out once.
class ConditionTable {
public:
    /// A conjunction of rows.
    using Rows = std::vector<LinearSystem::Row>;

    /// @param names kept by reference.
    ConditionTable(isl::ctx context, const UnknownNumbers& names) : m_context(context), m_names(names) {}

    /// @param unknowns their numbers; their factors are the last ones of each row, in this order.
    /// @param alternatives all rows of one of these have to hold.
    /// @throws isl::exception when isl has come to its limit.
    [[nodiscard]] const std::string& describe(const std::vector<int>& unknowns, const std::vector<Rows>& alternatives);

private:
    [[nodiscard]] isl::set makeSet(const std::vector<int>& unknowns, const std::vector<Rows>& alternatives);

    isl::ctx m_context;
    const UnknownNumbers& m_names;
    // Keyed by the rows; looked up, never walked.
    std::unordered_map<std::string, std::string> m_texts;
};

} // namespace DepGraph
