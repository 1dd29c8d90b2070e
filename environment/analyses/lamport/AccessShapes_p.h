// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/AccessModel_p.h"
#include "environment/analyses/lamport/DomainConstraints_p.h"
#include "environment/analyses/lamport/IterationPairs_p.h"
#include "environment/analyses/lamport/LinearForm_p.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <unordered_map>

namespace DepGraph {

/// The iterations of accesses in the same place, with what is easily known of them.
struct DomainShape {
    isl::set set;
    bool isEmpty = false;
    /// For each loop the constant bounds of its iteration numbers whatever the unknowns are.
    std::vector<IterationRange> ranges;
    /// The set is exactly the product of the ranges, which are bounded.
    bool isBox = false;
    /// The set once more; nothing when it is not of few linear parts.
    std::optional<std::vector<DomainPart>> parts;
};

struct SubscriptShape {
    /// Null when nothing is known of the subscript.
    isl::pw_aff function;
    /// Where the form holds.
    const DomainShape* domain = nullptr;
    std::optional<LinearForm> form;
};

/// What decides where accesses meet: accesses of equal shape meet all others in the same iterations.
struct AccessShape {
    std::uint32_t number = 0;
    const DomainShape* domain = nullptr;
    std::vector<const SubscriptShape*> subscripts;
};

/// Finds accesses of equal shape, so that each shape is looked at once.
class AccessShapes {
public:
    AccessShapes(isl::ctx context, const std::vector<Access>& accesses);

    [[nodiscard]] std::size_t getCount() const { return m_shapes.size(); }
    [[nodiscard]] const UnknownNumbers& getUnknowns() const { return m_unknowns; }
    /// @param access its position in the list.
    [[nodiscard]] const AccessShape& getShape(std::size_t access) const { return *m_shapeOf[access]; }

private:
    const DomainShape* addDomain(const isl::set& set);
    const SubscriptShape* addSubscript(const isl::pw_aff& function, const DomainShape* domain);
    const AccessShape* addShape(const Access& access);

    isl::ctx m_context;
    UnknownNumbers m_unknowns;
    std::deque<DomainShape> m_domains;
    SubscriptShape m_unknownSubscript;
    std::deque<SubscriptShape> m_subscripts;
    std::deque<AccessShape> m_shapes;
    std::vector<const AccessShape*> m_shapeOf;
    // Keyed by isl's hash; looked up, never walked.
    std::unordered_multimap<std::uint32_t, const DomainShape*> m_domainsByHash;
    std::unordered_multimap<std::uint32_t, const SubscriptShape*> m_subscriptsByHash;
    std::unordered_multimap<std::size_t, const AccessShape*> m_shapesByHash;
};

} // namespace DepGraph
