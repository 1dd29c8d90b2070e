// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/lamport/PairFacts_p.h"
#include "environment/analyses/lamport/QuickTests_p.h"

namespace DepGraph {

/// What the quick tests leave of a pair; nothing when they disprove it under every carrier. Doubt::QuickTest unless
/// they are exact.
[[nodiscard]] std::optional<PairFacts> describeQuickly(const QuickTests& tests, const AccessPair& pair);

/// The method RM_QUICK_TESTS.
class QuickPairTest final : public PairTest {
public:
    /// Both are kept by reference.
    explicit QuickPairTest(const AccessShapes& shapes) : m_shapes(shapes) {}

    [[nodiscard]] std::optional<PairFacts> test(const AccessPair& pair) override;
    [[nodiscard]] std::optional<PairFacts> testUnordered(const AccessPair& pair) override;

private:
    const AccessShapes& m_shapes;
};

} // namespace DepGraph
