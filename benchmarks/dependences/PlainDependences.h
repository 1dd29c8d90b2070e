// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/AccessModel_p.h"

#include <cstddef>
#include <string>
#include <vector>

namespace Kova::Benchmark {

/// What somebody would write who calls isl for every pair of accesses: meetings, cut by each carrier, asked whether
/// they are empty. Nothing is looked at twice and nothing is known beforehand.
class PlainDependences {
public:
    enum class Questions {
        Carriers,
        /// For each carrier the least and the greatest distance of each common loop, and the condition on unknowns.
        CarriersAndDistances
    };

    /// Makes the access relations. @param model outlives this.
    explicit PlainDependences(const DepGraph::AccessModel& model);

    /// Makes the access relations once more, from isl's own notation.
    void readRelations();

    /// How many pairs of occurrences and carriers there are, input dependences included.
    [[nodiscard]] std::size_t find(Questions questions) const;

private:
    struct Relation {
        const DepGraph::Access* access;
        isl::map elements;
        std::string text;
    };

    [[nodiscard]] std::size_t findPair(const Relation& source, const Relation& target, bool inOrder,
                                       Questions questions) const;

    std::vector<Relation> m_relations;
};

} // namespace Kova::Benchmark
