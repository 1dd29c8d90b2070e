// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/AccessPair_p.h"
#include "environment/analyses/lamport/DependenceFacts.h"

namespace DepGraph {

/// What a test finds of a pair of accesses that may meet; the fields are those of DependenceFacts.
struct PairFacts {
    std::vector<int> carriers;
    std::vector<std::optional<long>> distance;
    std::vector<std::string> directions;
    std::string condition;
    /// The test's own doubt, beside those of the accesses.
    Doubt doubt = Doubt::None;
};

/// All that may be, when nothing is known but the order.
[[nodiscard]] PairFacts assumeAll(const AccessPair& pair, std::vector<int> carriers, Doubt doubt);

/// Puts together what is found carrier by carrier.
class DistanceCollector {
public:
    explicit DistanceCollector(std::size_t commonLoops) : m_loops(commonLoops) {}

    /// @param distances bounds of target - source that are taken.
    /// @param same whether 0 is among the distances.
    void add(std::size_t loop, IterationRange distances, bool same);
    void writeTo(PairFacts& facts) const;

private:
    struct Loop {
        IterationRange distances{IterationRange::unbounded, -IterationRange::unbounded};
        bool same = false;
    };
    std::vector<Loop> m_loops;
};

/// Decides on pairs of accesses of one list.
class PairTest {
public:
    virtual ~PairTest() = default;
    PairTest(const PairTest&) = delete;
    PairTest& operator=(const PairTest&) = delete;

    /// Nothing when target is never after source at the same memory.
    [[nodiscard]] virtual std::optional<PairFacts> test(const AccessPair& pair) = 0;
    /// The same without an order of execution: whether they ever use the same memory.
    [[nodiscard]] virtual std::optional<PairFacts> testUnordered(const AccessPair& pair) = 0;

protected:
    PairTest() = default;
};

} // namespace DepGraph
