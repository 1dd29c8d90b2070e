// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace DepGraph {

/// Iteration numbers, and differences of them, from `low` to `high`, both included.
struct IterationRange {
    /// Stands for no bound: no loop runs that often.
    static constexpr long unbounded = 1L << 62;

    long low = 0;
    long high = unbounded;

    [[nodiscard]] bool isBounded() const { return low > -unbounded && high < unbounded; }
    [[nodiscard]] bool isEmpty() const { return high < low; }
};

/// How the target's iteration number of a loop stands to the source's.
enum class Direction { Any, Later, Same, Earlier };

/// What a direction leaves of target - source.
[[nodiscard]] IterationRange getDistances(Direction direction);

/// The pairs of one iteration number of the source and one of the target, each within its range, for which
/// source * sourceFactor - target * targetFactor + constant = 0: what a subscript of a single loop demands.
struct IterationPairs {
    IterationRange source;
    IterationRange target;
    /// These three lie within 2^40 of zero; all zero: every pair of the two ranges.
    long sourceFactor = 0;
    long targetFactor = 0;
    long constant = 0;

    /// The least and the greatest of target - source over the pairs of that direction; nothing when there is none.
    [[nodiscard]] std::optional<IterationRange> findDistances(Direction direction) const;
};

} // namespace DepGraph
