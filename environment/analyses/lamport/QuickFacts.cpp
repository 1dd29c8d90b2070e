// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/QuickFacts_p.h"

#include <algorithm>

namespace DepGraph {
namespace {

/// What is left of a loop's distances when the other loops have the given directions.
class LoopBounds {
public:
    LoopBounds(const QuickTests& tests, Directions directions, std::size_t loop)
        : m_tests(tests),
          m_directions(std::move(directions)),
          m_loop(loop),
          m_distances(*tests.findDistances(loop, m_directions[loop])),
          m_same(m_directions[loop] == Direction::Same) {
        if (m_directions[m_loop] == Direction::Any)
            narrow();
    }

    void addTo(DistanceCollector& collector) const { collector.add(m_loop, m_distances, m_same); }

private:
    bool mayMeet(Direction direction) {
        m_directions[m_loop] = direction;
        return m_tests.mayMeet(m_directions);
    }

    void narrow() {
        m_same = mayMeet(Direction::Same);
        if (!mayMeet(Direction::Later))
            m_distances.high = std::min(m_distances.high, m_same ? 0L : -1L);
        if (!mayMeet(Direction::Earlier))
            m_distances.low = std::max(m_distances.low, m_same ? 0L : 1L);
    }

    const QuickTests& m_tests;
    Directions m_directions;
    std::size_t m_loop;
    IterationRange m_distances;
    bool m_same;
};

} // namespace

std::optional<PairFacts> describeQuickly(const QuickTests& tests, const AccessPair& pair) {
    PairFacts facts;
    DistanceCollector collector(pair.commonLoops);
    for (const int carrier : listCarriers(pair)) {
        const Directions directions = getDirections(carrier, pair.commonLoops);
        if (!tests.mayMeet(directions))
            continue;
        facts.carriers.push_back(carrier);
        for (std::size_t loop = 0; loop < pair.commonLoops; ++loop)
            LoopBounds(tests, directions, loop).addTo(collector);
    }
    if (facts.carriers.empty())
        return std::nullopt;
    collector.writeTo(facts);
    facts.doubt = tests.isExact() ? Doubt::None : Doubt::QuickTest;
    return facts;
}

std::optional<PairFacts> QuickPairTest::test(const AccessPair& pair) {
    const QuickTests tests(m_shapes.getShape(pair.source), m_shapes.getShape(pair.target), pair.commonLoops);
    return describeQuickly(tests, pair);
}

std::optional<PairFacts> QuickPairTest::testUnordered(const AccessPair& pair) {
    const QuickTests tests(m_shapes.getShape(pair.source), m_shapes.getShape(pair.target), pair.commonLoops);
    if (!tests.mayMeet(Directions(pair.commonLoops, Direction::Any)))
        return std::nullopt;
    return assumeAll(pair, {}, tests.isExact() ? Doubt::None : Doubt::QuickTest);
}

} // namespace DepGraph
