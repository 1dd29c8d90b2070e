// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/ConditionText_p.h"
#include "environment/analyses/lamport/IslBound_p.h"
#include "environment/analyses/lamport/LevelCut_p.h"
#include "environment/analyses/lamport/RelationFacts_p.h"

#include <isl/set.h>

#include <algorithm>

namespace DepGraph {
namespace {

isl::map dropLoops(isl::map relation, isl_dim_type type, std::size_t first) {
    const auto from = static_cast<unsigned>(first);
    const auto count = static_cast<unsigned>(isl_map_dim(relation.get(), type)) - from;
    return isl::manage(isl_map_project_out(relation.release(), type, from, count));
}

/// target - source for the common loops.
isl::set findDistances(const isl::map& relation, std::size_t commonLoops) {
    return dropLoops(dropLoops(relation, isl_dim_in, commonLoops), isl_dim_out, commonLoops).deltas();
}

IterationRange findBounds(const isl::set& distances, std::size_t loop) {
    const isl::val fixed =
        isl::manage(isl_set_plain_get_val_if_fixed(distances.get(), isl_dim_set, static_cast<unsigned>(loop)));
    if (fixed.is_int()) {
        const long value = readBound(fixed, IterationRange::unbounded);
        return {value, value};
    }
    return {readBound(distances.dim_min_val(static_cast<int>(loop)), -IterationRange::unbounded),
            readBound(distances.dim_max_val(static_cast<int>(loop)), IterationRange::unbounded)};
}

bool holdsZero(const isl::set& distances, std::size_t loop, IterationRange bounds) {
    if (bounds.low >= 0 || bounds.high <= 0)
        return bounds.low == 0 || bounds.high == 0;
    return !isl::manage(isl_set_fix_si(distances.copy(), isl_dim_set, static_cast<unsigned>(loop), 0)).is_empty();
}

} // namespace

RelationFacts::RelationFacts(isl::map relation, std::size_t commonLoops, const QuickTests& tests)
    : m_relation(std::move(relation)),
      m_commonLoops(commonLoops),
      m_tests(tests),
      m_collector(commonLoops) {}

std::optional<PairFacts> RelationFacts::describe(const std::vector<int>& carriers) {
    const bool within = std::find(carriers.begin(), carriers.end(), withinIteration) != carriers.end();
    isl::map same = m_relation;
    for (std::size_t loop = 0; loop < m_commonLoops; ++loop) {
        const int carrier = static_cast<int>(loop) + 1;
        if (std::find(carriers.begin(), carriers.end(), carrier) != carriers.end())
            describeCarrier(carrier, cutLater(same, loop));
        if (within || loop + 1 < m_commonLoops)
            same = cutSame(same, loop);
    }
    if (within)
        describeCarrier(withinIteration, same);
    if (m_facts.carriers.empty())
        return std::nullopt;
    std::sort(m_facts.carriers.begin(), m_facts.carriers.end());
    m_collector.writeTo(m_facts);
    if (!m_unknowns.is_null())
        m_facts.condition = describeCondition(m_unknowns);
    return std::move(m_facts);
}

void RelationFacts::describeCarrier(int carrier, const isl::map& part) {
    const Directions directions = getDirections(carrier, m_commonLoops);
    if (!m_tests.mayMeet(directions) || part.is_empty())
        return;
    m_facts.carriers.push_back(carrier);
    isl::set distances;
    for (std::size_t loop = 0; loop < m_commonLoops; ++loop)
        addDistance(loop, directions[loop], part, distances);
    if (isl_map_dim(part.get(), isl_dim_param) == 0)
        return;
    const isl::set unknowns = isl::manage(isl_map_params(part.copy()));
    m_unknowns = m_unknowns.is_null() ? unknowns : m_unknowns.unite(unknowns);
}

/// @param distances found when first asked for.
void RelationFacts::addDistance(std::size_t loop, Direction direction, const isl::map& part, isl::set& distances) {
    std::optional<IterationRange> bounds = m_tests.findDistances(loop, direction);
    if (!bounds || bounds->low != bounds->high) {
        if (distances.is_null())
            distances = findDistances(part, m_commonLoops);
        bounds = findBounds(distances, loop);
    }
    m_collector.add(loop, *bounds,
                    direction == Direction::Any ? holdsZero(distances, loop, *bounds) : direction == Direction::Same);
}

} // namespace DepGraph
