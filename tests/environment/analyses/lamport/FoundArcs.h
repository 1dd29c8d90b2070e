// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/QuickFacts_p.h"
#include "environment/analyses/lamport/ValueBasedTest_p.h"
#include "tests/environment/analyses/lamport/EnumeratedNest.h"
#include "tests/environment/analyses/lamport/NestAccesses.h"

namespace Kova::Tests {

/// An arrow as the numbers that an enumeration finds, with what only the analysis says.
struct FoundArc {
    Arc arc;
    DepGraph::Assumption assumption;
    std::string condition;
};
using FoundArcs = std::map<ArcKey, FoundArc>;

inline Arc makeArc(const DepGraph::DependenceFacts& facts) {
    return {{facts.carriers.begin(), facts.carriers.end()}, facts.distance, facts.directions};
}

inline FoundArcs findArcs(const NestAccesses& accesses, DepGraph::PairTest& test) {
    FoundArcs arcs;
    DepGraph::DependenceFinder(accesses.get(), {}, nullptr, true)
        .find(test, [&](const DepGraph::DependenceFacts& facts) {
            const ArcKey key{accesses.getNumber(facts.source), accesses.getNumber(facts.target), facts.type};
            arcs.emplace(key, FoundArc{makeArc(facts), facts.assumption, facts.condition});
            return true;
        });
    return arcs;
}

inline FoundArcs findExactly(isl::ctx context, const NestAccesses& accesses, DepGraph::ExactTest::Limits limits = {}) {
    const DepGraph::AccessShapes shapes(context, accesses.get());
    DepGraph::ExactTest test(context, shapes, limits);
    return findArcs(accesses, test);
}

inline FoundArcs findQuickly(isl::ctx context, const NestAccesses& accesses) {
    const DepGraph::AccessShapes shapes(context, accesses.get());
    DepGraph::QuickPairTest test(shapes);
    return findArcs(accesses, test);
}

inline FoundArcs findValueBased(isl::ctx context, const NestAccesses& accesses,
                                DepGraph::ValueBasedTest::Limits limits = {}) {
    const DepGraph::AccessShapes shapes(context, accesses.get());
    DepGraph::ExactTest exact(context, shapes, {});
    const DepGraph::DependenceFinder finder(accesses.get(), {}, nullptr, true);
    DepGraph::ValueBasedTest test(context, accesses.get(), shapes, finder, exact, limits);
    return findArcs(accesses, test);
}

} // namespace Kova::Tests
