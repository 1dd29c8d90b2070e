// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/OperationLimit_p.h"
#include "environment/analyses/lamport/RelationFacts_p.h"
#include "environment/analyses/lamport/ValueBasedTest_p.h"

#include <algorithm>

namespace DepGraph {
namespace {

bool isDefiniteWrite(const Access& access) {
    return access.writes && access.assumption.doubt == Doubt::None;
}

bool begins(const Memory& start, const Memory& whole) {
    return start.members.size() <= whole.members.size() &&
           std::equal(start.members.begin(), start.members.end(), whole.members.begin());
}

} // namespace

ValueBasedTest::ValueBasedTest(isl::ctx context, const std::vector<Access>& accesses, const AccessShapes& shapes,
                               const DependenceFinder& finder, ExactTest& exact, Limits limits)
    : m_context(context),
      m_accesses(accesses),
      m_shapes(shapes),
      m_finder(finder),
      m_exact(exact),
      m_limits(limits),
      m_killed(accesses, finder, exact),
      m_flows(accesses.size()) {}

std::optional<PairFacts> ValueBasedTest::test(const AccessPair& pair) {
    std::optional<Flows>& flows = m_flows[pair.target];
    if (!flows)
        flows = findFlows(pair.target);
    const auto found = flows->find(pair.source);
    return found == flows->end() ? std::nullopt : std::optional(found->second);
}

/// All that meet the target before it, whatever is between.
std::vector<ValueBasedTest::Source> ValueBasedTest::findSources(std::size_t target) {
    std::vector<Source> sources;
    for (const std::size_t access : m_finder.getAccessesOf(target)) {
        if (!m_finder.isWanted(access, target))
            continue;
        const AccessPair pair = m_finder.makePair(access, target);
        if (pair.commonLoops == 0 && !pair.inOrder)
            continue;
        if (std::optional<PairFacts> facts = m_exact.test(pair))
            sources.push_back({pair, std::move(*facts)});
    }
    return sources;
}

ValueBasedTest::Flows ValueBasedTest::findFlows(std::size_t target) {
    std::vector<Source> sources = findSources(target);
    if (isStraight(target, sources))
        return scanStraight(target, std::move(sources));
    const std::vector<std::size_t> writes = findWrites(target, sources);
    Flows flows;
    for (Source& source : sources)
        if (std::optional<PairFacts> facts = findFlow(source, writes))
            flows.emplace(source.pair.source, std::move(*facts));
    return flows;
}

/// The writes that may come between a source and the target; the likeliest, those shortly before the target, first.
std::vector<std::size_t> ValueBasedTest::findWrites(std::size_t target, const std::vector<Source>& sources) const {
    std::vector<std::size_t> writes;
    for (const Source& source : sources)
        if (isDefiniteWrite(m_accesses[source.pair.source]))
            writes.push_back(source.pair.source);
    const auto behind = std::lower_bound(writes.begin(), writes.end(), target);
    std::reverse(writes.begin(), behind);
    std::reverse(behind, writes.end());
    return writes;
}

std::optional<PairFacts> ValueBasedTest::findFlow(Source& source, const std::vector<std::size_t>& writes) {
    if (writes.empty())
        return std::move(source.memoryBased);
    const AccessPair& pair = source.pair;
    if (m_killed.countSteps() < m_limits.steps)
        try {
            const OperationLimit limit(m_context, m_limits.operations);
            const isl::map living = m_killed.findLiving(pair.source, pair.target, writes);
            const QuickTests tests(m_shapes.getShape(pair.source), m_shapes.getShape(pair.target), pair.commonLoops);
            return RelationFacts(living, pair.commonLoops, tests).describe(listCarriers(pair));
        } catch (const isl::exception&) {
            // Too much for isl: below.
        }
    source.memoryBased.doubt = Doubt::WorkLimit;
    return std::move(source.memoryBased);
}

/// Whether everything is outside loops and at elements that are known, so that no isl is needed.
bool ValueBasedTest::isStraight(std::size_t target, const std::vector<Source>& sources) const {
    return m_accesses[target].loops.empty() && std::all_of(sources.begin(), sources.end(), [&](const Source& source) {
               return m_accesses[source.pair.source].loops.empty() &&
                      QuickTests(m_shapes.getShape(source.pair.source), m_shapes.getShape(target), 0).isExact();
           });
}

ValueBasedTest::Flows ValueBasedTest::scanStraight(std::size_t target, std::vector<Source> sources) const {
    std::sort(sources.begin(), sources.end(),
              [&](const Source& a, const Source& b) { return isInOrder(m_accesses, b.pair.source, a.pair.source, 0); });
    Flows flows;
    std::vector<std::size_t> writes;
    for (Source& source : sources) {
        const bool ended =
            std::any_of(writes.begin(), writes.end(), [&](std::size_t write) { return covers(write, source.pair); });
        if (!ended)
            flows.emplace(source.pair.source, std::move(source.memoryBased));
        if (!isDefiniteWrite(m_accesses[source.pair.source]))
            continue;
        writes.push_back(source.pair.source);
        if (covers(writes.back(), {target, target}))
            break;
    }
    return flows;
}

/// Whether a write outside loops touches all that both accesses touch.
bool ValueBasedTest::covers(std::size_t write, const AccessPair& pair) const {
    const Memory& memory = m_accesses[write].memory;
    if (!begins(memory, m_accesses[pair.source].memory) && !begins(memory, m_accesses[pair.target].memory))
        return false;
    const AccessShape& written = m_shapes.getShape(write);
    for (std::size_t i = 0; i < written.subscripts.size(); ++i) {
        const auto isSame = [&](std::size_t access) {
            const AccessShape& shape = m_shapes.getShape(access);
            return i < shape.subscripts.size() && written.subscripts[i]->form && shape.subscripts[i]->form &&
                   SubscriptEquation(*written.subscripts[i]->form, *shape.subscripts[i]->form).isTrivial();
        };
        if (!isSame(pair.source) && !isSame(pair.target))
            return false;
    }
    return true;
}

} // namespace DepGraph
