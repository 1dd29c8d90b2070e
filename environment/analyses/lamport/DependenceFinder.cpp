// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/DependenceFinder_p.h"

#include <algorithm>
#include <iterator>

namespace DepGraph {
namespace {

EN_DepType getType(const Access& source, const Access& target) {
    if (source.writes)
        return target.writes ? DT_OUTPUT : DT_FLOW;
    return target.writes ? DT_ANTI : DT_INPUT;
}

void uniteCarriers(std::vector<int>& carriers, const std::vector<int>& others) {
    // Where nothing is known of one pair's carriers, nothing is known of all.
    if (carriers.empty() || others.empty()) {
        carriers.clear();
        return;
    }
    std::vector<int> all;
    std::set_union(carriers.begin(), carriers.end(), others.begin(), others.end(), std::back_inserter(all));
    carriers = std::move(all);
}

std::string uniteDirections(const std::string& left, const std::string& right) {
    std::string both;
    for (const char sign : {'<', '=', '>'})
        if (left.find(sign) != std::string::npos || right.find(sign) != std::string::npos)
            both += sign;
    return left.empty() || right.empty() ? std::string() : both;
}

std::string uniteConditions(const std::string& left, const std::string& right) {
    if (left.empty() || right.empty())
        return {};
    return left == right ? left : left + " or " + right;
}

/// One occurrence may access memory in several ways: a pointer and what it leads to, say.
void unite(DependenceFacts& facts, const DependenceFacts& other) {
    uniteCarriers(facts.carriers, other.carriers);
    for (std::size_t loop = 0; loop < facts.distance.size(); ++loop) {
        if (facts.distance[loop] != other.distance[loop])
            facts.distance[loop].reset();
        facts.directions[loop] = uniteDirections(facts.directions[loop], other.directions[loop]);
    }
    facts.condition = uniteConditions(facts.condition, other.condition);
    if (other.assumption.doubt == Doubt::None)
        facts.assumption = other.assumption;
}

} // namespace

DependenceFinder::DependenceFinder(const std::vector<Access>& accesses, const std::vector<Access>& declarations,
                                   const Kova::Tessel::TesselBase* disorder, bool withInput)
    : m_accesses(accesses),
      m_disorder(disorder),
      m_withInput(withInput) {
    std::unordered_map<const void*, std::size_t> variables;
    std::unordered_map<const void*, std::size_t> occurrences;
    for (std::size_t i = 0; i < accesses.size(); ++i) {
        m_occurrences.push_back(occurrences.emplace(accesses[i].occurrence, occurrences.size()).first->second);
        m_variables.push_back(variables.emplace(accesses[i].memory.variable, variables.size()).first->second);
        m_ofVariable.resize(variables.size());
        m_ofVariable[m_variables.back()].push_back(i);
    }
    m_ownLoops.assign(variables.size(), 0);
    for (const Access& declaration : declarations) {
        const auto variable = variables.find(declaration.memory.variable);
        if (variable != variables.end())
            m_ownLoops[variable->second] = declaration.loops.size();
    }
}

bool DependenceFinder::isWanted(std::size_t source, std::size_t target) const {
    const Access& first = m_accesses[source];
    const Access& second = m_accesses[target];
    return (first.writes || second.writes || m_withInput) && mayMeet(first.memory, second.memory);
}

AccessPair DependenceFinder::makePair(std::size_t source, std::size_t target) const {
    AccessPair pair = orderAccesses(m_accesses, source, target);
    const Memory& memory = m_accesses[source].memory;
    // What a pointer leads to does not come and go with the pointer.
    if (!memory.pointee && !memory.loaded)
        pair.ownLoops = std::min(m_ownLoops[m_variables[source]], pair.commonLoops);
    return pair;
}

void DependenceFinder::find(PairTest& test, const std::function<bool(DependenceFacts)>& use) const {
    std::vector<std::vector<std::size_t>> ofOccurrence;
    for (std::size_t i = 0; i < m_accesses.size(); ++i) {
        ofOccurrence.resize(std::max(ofOccurrence.size(), m_occurrences[i] + 1));
        ofOccurrence[m_occurrences[i]].push_back(i);
    }
    std::vector<Found> found;
    for (const std::vector<std::size_t>& sources : ofOccurrence) {
        found.clear();
        for (const std::size_t source : sources)
            findFrom(source, test, found);
        std::stable_sort(found.begin(), found.end(), [](const Found& a, const Found& b) {
            return a.target != b.target ? a.target < b.target : a.facts.type < b.facts.type;
        });
        for (std::size_t i = 0, next = 0; i < found.size(); i = next) {
            for (next = i + 1; next < found.size() && found[next].target == found[i].target &&
                               found[next].facts.type == found[i].facts.type;
                 ++next)
                unite(found[i].facts, found[next].facts);
            if (!use(std::move(found[i].facts)))
                return;
        }
    }
}

void DependenceFinder::findFrom(std::size_t source, PairTest& test, std::vector<Found>& found) const {
    for (const std::size_t target : getAccessesOf(source)) {
        if (!isWanted(source, target))
            continue;
        const AccessPair pair = makePair(source, target);
        if (std::optional<PairFacts> facts = testPair(test, pair))
            found.push_back({m_occurrences[target], makeFacts(pair, std::move(*facts))});
    }
}

std::optional<PairFacts> DependenceFinder::testPair(PairTest& test, const AccessPair& pair) const {
    if (m_disorder != nullptr)
        return test.testUnordered(pair);
    // Most pairs of statements outside loops are in the other order.
    if (pair.commonLoops == 0 && !pair.inOrder)
        return std::nullopt;
    return test.test(pair);
}

DependenceFacts DependenceFinder::makeFacts(const AccessPair& pair, PairFacts facts) const {
    const Access& source = m_accesses[pair.source];
    const Access& target = m_accesses[pair.target];
    DependenceFacts result;
    result.type = getType(source, target);
    result.source = source.occurrence;
    result.target = target.occurrence;
    result.carriers = std::move(facts.carriers);
    result.commonLoops.assign(source.loops.begin(),
                              source.loops.begin() + static_cast<std::ptrdiff_t>(pair.commonLoops));
    result.distance = std::move(facts.distance);
    result.directions = std::move(facts.directions);
    result.condition = std::move(facts.condition);
    result.assumption = assume(pair, facts.doubt);
    return result;
}

Assumption DependenceFinder::assume(const AccessPair& pair, Doubt doubt) const {
    if (doubt == Doubt::NotRefined || doubt == Doubt::WorkLimit)
        return {doubt, nullptr};
    if (m_disorder != nullptr)
        return {Doubt::Jump, m_disorder};
    for (const std::size_t access : {pair.source, pair.target})
        if (m_accesses[access].assumption.doubt != Doubt::None)
            return m_accesses[access].assumption;
    return {doubt, nullptr};
}

} // namespace DepGraph
