// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/PairFacts_p.h"

#include <algorithm>

namespace DepGraph {

PairFacts assumeAll(const AccessPair& pair, std::vector<int> carriers, Doubt doubt) {
    PairFacts facts;
    facts.carriers = std::move(carriers);
    facts.distance.resize(pair.commonLoops);
    facts.directions.resize(pair.commonLoops);
    facts.doubt = doubt;
    return facts;
}

void DistanceCollector::add(std::size_t loop, IterationRange distances, bool same) {
    Loop& facts = m_loops[loop];
    facts.distances.low = std::min(facts.distances.low, distances.low);
    facts.distances.high = std::max(facts.distances.high, distances.high);
    facts.same = facts.same || same;
}

void DistanceCollector::writeTo(PairFacts& facts) const {
    facts.distance.reserve(m_loops.size());
    facts.directions.reserve(m_loops.size());
    for (const Loop& loop : m_loops) {
        const auto [low, high] = loop.distances;
        facts.distance.push_back(low == high ? std::optional(low) : std::nullopt);
        std::string& directions = facts.directions.emplace_back();
        if (high > 0)
            directions += '<';
        if (loop.same)
            directions += '=';
        if (low < 0)
            directions += '>';
    }
}

} // namespace DepGraph
