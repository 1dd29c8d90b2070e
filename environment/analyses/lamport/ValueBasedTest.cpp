// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/FlowRelations_p.h"
#include "environment/analyses/lamport/OperationLimit_p.h"
#include "environment/analyses/lamport/RelationFacts_p.h"
#include "environment/analyses/lamport/ValueBasedTest_p.h"

#include <isl/map.h>

#include <algorithm>

namespace DepGraph {
namespace {

bool isDefiniteWrite(const Access& access) {
    return access.writes && access.assumption.doubt == Doubt::None;
}

using Members = std::vector<const Kova::Tessel::DeclarationBase*>;

bool begins(const Members& start, const Members& list) {
    return start.size() <= list.size() && std::equal(start.begin(), start.end(), list.begin());
}

/// Tells the parts of a structure apart by a number, so that a write of one member does not end what another holds.
class Parts {
public:
    void add(const Members& members) {
        if (std::find(m_parts.begin(), m_parts.end(), members) == m_parts.end())
            m_parts.push_back(members);
    }

    /// The elements with the numbers of the parts that an access to the members touches.
    [[nodiscard]] isl::map attach(const isl::map& elements, const Members& members) const {
        if (m_parts.size() < 2)
            return elements;
        const isl::map extended = isl::manage(isl_map_add_dims(elements.copy(), isl_dim_out, 1));
        const auto last = static_cast<unsigned>(isl_map_dim(elements.get(), isl_dim_out));
        isl::map result = isl::map::empty(extended.space());
        for (std::size_t part = 0; part < m_parts.size(); ++part)
            if (begins(members, m_parts[part]))
                result = result.unite(
                    isl::manage(isl_map_fix_si(extended.copy(), isl_dim_out, last, static_cast<int>(part))));
        return result;
    }

private:
    std::vector<Members> m_parts;
};

} // namespace

ValueBasedTest::ValueBasedTest(isl::ctx context, const std::vector<Access>& accesses, const AccessShapes& shapes,
                               const DependenceFinder& finder, ExactTest& exact, unsigned long operations)
    : m_context(context),
      m_accesses(accesses),
      m_shapes(shapes),
      m_finder(finder),
      m_exact(exact),
      m_operations(operations),
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
        if (!mayMeet(m_accesses[access].memory, m_accesses[target].memory))
            continue;
        const AccessPair pair = orderAccesses(m_accesses, access, target);
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
    try {
        const OperationLimit limit(m_context, m_operations);
        return findWithIsl(target, sources);
    } catch (const isl::exception&) {
        Flows flows;
        for (Source& source : sources) {
            source.memoryBased.doubt = Doubt::WorkLimit;
            flows.emplace(source.pair.source, std::move(source.memoryBased));
        }
        return flows;
    }
}

ValueBasedTest::Flows ValueBasedTest::findWithIsl(std::size_t target, const std::vector<Source>& sources) {
    Parts parts;
    parts.add(m_accesses[target].memory.members);
    std::size_t subscripts = m_accesses[target].subscripts.size();
    for (const Source& source : sources) {
        parts.add(m_accesses[source.pair.source].memory.members);
        subscripts = std::max(subscripts, m_accesses[source.pair.source].subscripts.size());
    }
    const auto elements = [&](std::size_t access) {
        return parts.attach(m_exact.getElements(access, subscripts), m_accesses[access].memory.members);
    };
    FlowRelations problem(m_accesses, target);
    for (const Source& source : sources)
        problem.addSource(source.pair.source, elements(source.pair.source));
    const std::unordered_map<std::size_t, isl::map> relations = problem.compute(elements(target));
    Flows flows;
    for (const auto& [pair, memoryBased] : sources) {
        const auto relation = relations.find(pair.source);
        if (relation == relations.end())
            continue;
        const QuickTests tests(m_shapes.getShape(pair.source), m_shapes.getShape(target), pair.commonLoops);
        if (auto facts =
                RelationFacts(relation->second.coalesce(), pair.commonLoops, tests).describe(listCarriers(pair)))
            flows.emplace(pair.source, std::move(*facts));
    }
    return flows;
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
    const Members& members = m_accesses[write].memory.members;
    if (!begins(members, m_accesses[pair.source].memory.members) &&
        !begins(members, m_accesses[pair.target].memory.members))
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
