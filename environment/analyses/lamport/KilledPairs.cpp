// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/KilledPairs_p.h"
#include "environment/analyses/lamport/LevelCut_p.h"

#include <isl/set.h>

#include <algorithm>

namespace DepGraph {
namespace {

using Members = std::vector<const Kova::Tessel::DeclarationBase*>;

bool begins(const Members& start, const Members& list) {
    return start.size() <= list.size() && std::equal(start.begin(), start.end(), list.begin());
}

/// The elements with the numbers of the parts that an access to the members touches.
isl::map attachParts(const isl::map& elements, const Members& members, const std::vector<Members>& parts) {
    const auto last = static_cast<unsigned>(isl_map_dim(elements.get(), isl_dim_out));
    const isl::map extended = isl::manage(isl_map_add_dims(elements.copy(), isl_dim_out, 1));
    isl::map result = isl::map::empty(extended.space());
    for (std::size_t part = 0; part < parts.size(); ++part)
        if (begins(members, parts[part]))
            result =
                result.unite(isl::manage(isl_map_fix_si(extended.copy(), isl_dim_out, last, static_cast<int>(part))));
    return result;
}

/// Iterations and elements in one vector.
isl::set joinElements(const isl::map& elements) {
    return isl::manage(isl_set_flatten(isl_map_wrap(elements.copy())));
}

/// The pairs of vectors that end in the same element.
isl::map pairEqualElements(const isl::map& first, const isl::map& second) {
    const int dimensions = isl_map_dim(first.get(), isl_dim_out);
    const int source = isl_map_dim(first.get(), isl_dim_in);
    const int target = isl_map_dim(second.get(), isl_dim_in);
    isl::map pairs =
        isl::manage(isl_map_from_domain_and_range(joinElements(first).release(), joinElements(second).release()));
    for (int i = 0; i < dimensions; ++i)
        pairs = isl::manage(isl_map_equate(pairs.release(), isl_dim_in, source + i, isl_dim_out, target + i));
    return pairs;
}

} // namespace

KilledPairs::KilledPairs(const std::vector<Access>& accesses, const DependenceFinder& finder, ExactTest& exact)
    : m_accesses(accesses),
      m_finder(finder),
      m_exact(exact) {}

isl::map KilledPairs::findLiving(std::size_t source, std::size_t target, const std::vector<std::size_t>& writes) {
    startVariable(target);
    isl::map living = findBefore(source, target);
    for (const std::size_t write : writes) {
        ++m_steps;
        const isl::map toWrite = findBefore(source, write);
        const isl::map killed = toWrite.apply_range(findBefore(write, target)).intersect(living);
        if (killed.is_empty())
            continue;
        living = living.subtract(killed).coalesce();
        if (living.is_empty())
            break;
    }
    return living;
}

void KilledPairs::startVariable(std::size_t access) {
    const std::vector<std::size_t>& variable = m_finder.getAccessesOf(access);
    if (m_variable == &variable)
        return;
    m_variable = &variable;
    m_before.clear();
    m_parts.clear();
    m_subscripts = 0;
    for (const std::size_t each : variable) {
        const Access& other = m_accesses[each];
        m_subscripts = std::max(m_subscripts, other.subscripts.size());
        if (std::find(m_parts.begin(), m_parts.end(), other.memory.members) == m_parts.end())
            m_parts.push_back(other.memory.members);
    }
    m_single = m_parts.size() == 1 && std::all_of(variable.begin(), variable.end(), [&](std::size_t each) {
                   return m_exact.isSingleElement(each) && m_accesses[each].subscripts.size() == m_subscripts;
               });
}

isl::map KilledPairs::findElements(std::size_t access) {
    const isl::map& elements = m_exact.getElements(access, m_subscripts);
    return m_parts.size() == 1 ? elements : attachParts(elements, m_accesses[access].memory.members, m_parts);
}

isl::map KilledPairs::findMeetings(std::size_t first, std::size_t second) {
    const isl::map source = findElements(first);
    const isl::map target = findElements(second);
    return m_single ? source.apply_range(target.reverse()) : pairEqualElements(source, target);
}

/// The pairs of iterations that meet, the first access coming before the second.
const isl::map& KilledPairs::findBefore(std::size_t first, std::size_t second) {
    isl::map& before = m_before[first * m_accesses.size() + second];
    if (!before.is_null())
        return before;
    AccessPair pair = m_finder.makePair(first, second);
    // Here the read and the write of one occurrence are two.
    pair.inOrder = isInOrder(m_accesses, first, second, pair.commonLoops);
    isl::map same = findMeetings(first, second);
    isl::map all = isl::map::empty(same.space());
    const std::optional<PairFacts> facts = m_exact.test(pair);
    const std::vector<int> carriers = facts ? facts->carriers : std::vector<int>();
    for (std::size_t loop = 0; loop < pair.commonLoops; ++loop) {
        if (std::find(carriers.begin(), carriers.end(), static_cast<int>(loop) + 1) != carriers.end())
            all = all.unite(cutLater(same, loop));
        same = cutSame(same, loop);
    }
    if (std::find(carriers.begin(), carriers.end(), withinIteration) != carriers.end())
        all = all.unite(same);
    return before = all;
}

} // namespace DepGraph
