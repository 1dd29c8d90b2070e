// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/AccessPair_p.h"

#include <unordered_map>

namespace DepGraph {

/// isl's data flow analysis for what one access depends on.
class FlowRelations {
public:
    /// @param accesses kept by reference.
    FlowRelations(const std::vector<Access>& accesses, std::size_t target) : m_accesses(accesses), m_target(target) {}

    /// @param elements from the access's iterations to what it touches.
    void addSource(std::size_t access, isl::map elements) { m_sources.push_back({access, std::move(elements)}); }

    /// For each source that the target depends on the relation from its iterations to the target's, without the pairs
    /// between which a write without an assumption touches the element.
    /// @throws isl::exception when isl has come to its limit.
    [[nodiscard]] std::unordered_map<std::size_t, isl::map> compute(const isl::map& targetElements) const;

private:
    struct Source {
        std::size_t access;
        isl::map elements;
    };

    const std::vector<Access>& m_accesses;
    std::size_t m_target;
    std::vector<Source> m_sources;
};

} // namespace DepGraph
