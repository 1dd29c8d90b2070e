// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/IterationPairs_p.h"
#include "environment/analyses/lamport/WideInteger_p.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace DepGraph {
namespace {

/// base + step * q for every integer q.
struct Line {
    WideInteger base;
    WideInteger step;

    [[nodiscard]] WideInteger at(WideInteger q) const { return base + step * q; }
};

/// All solutions of the equation, before ranges and direction.
struct Solutions {
    Line source;
    Line target;
};

constexpr WideInteger farAway = WideInteger(1) << 120;

WideInteger divideDown(WideInteger value, WideInteger divisor) {
    const WideInteger quotient = value / divisor;
    return value % divisor != 0 && (value < 0) != (divisor < 0) ? quotient - 1 : quotient;
}

WideInteger divideUp(WideInteger value, WideInteger divisor) {
    return -divideDown(-value, divisor);
}

long clamp(WideInteger value) {
    return static_cast<long>(std::clamp<WideInteger>(value, WideInteger(-IterationRange::unbounded),
                                                     WideInteger(IterationRange::unbounded)));
}

/// x with a * x = gcd(a, b) modulo b, for b > 0 (Euclid).
WideInteger findInverse(WideInteger a, WideInteger b) {
    WideInteger previous = 0;
    WideInteger current = 1;
    WideInteger rest = b;
    WideInteger value = ((a % b) + b) % b;
    while (value != 0) {
        const WideInteger quotient = rest / value;
        rest = std::exchange(value, rest - quotient * value);
        previous = std::exchange(current, previous - quotient * current);
    }
    return previous;
}

std::optional<Solutions> solve(const IterationPairs& pairs) {
    const WideInteger a = pairs.sourceFactor;
    const WideInteger b = pairs.targetFactor;
    const WideInteger c = pairs.constant;
    const long divisor = std::gcd(pairs.sourceFactor, pairs.targetFactor);
    if (c % divisor != 0)
        return std::nullopt;
    if (b == 0)
        return Solutions{{-c / a, 0}, {0, 1}};
    if (a == 0)
        return Solutions{{0, 1}, {c / b, 0}};
    const WideInteger modulus = absolute(b);
    const WideInteger period = modulus / divisor;
    const WideInteger start = (-c / divisor) % period * (findInverse(a, modulus) % period) % period;
    return Solutions{{start, b / divisor}, {(a * start + c) / b, a / divisor}};
}

/// Keeps the q for which the line lies within the range.
void narrow(WideRange& q, const Line& line, IterationRange range) {
    if (line.step == 0) {
        if (line.base < range.low || line.base > range.high)
            q = {1, 0};
        return;
    }
    const WideInteger fromLow = range.low - line.base;
    const WideInteger fromHigh = range.high - line.base;
    q.low = std::max(q.low, line.step > 0 ? divideUp(fromLow, line.step) : divideUp(fromHigh, line.step));
    q.high = std::min(q.high, line.step > 0 ? divideDown(fromHigh, line.step) : divideDown(fromLow, line.step));
}

std::optional<IterationRange> findFreeDistances(const IterationPairs& pairs, IterationRange allowed) {
    const IterationRange distances{
        clamp(std::max<WideInteger>(allowed.low, WideInteger(pairs.target.low) - pairs.source.high)),
        clamp(std::min<WideInteger>(allowed.high, WideInteger(pairs.target.high) - pairs.source.low))};
    return distances.isEmpty() ? std::nullopt : std::optional(distances);
}

} // namespace

IterationRange getDistances(Direction direction) {
    switch (direction) {
    case Direction::Later:
        return {1, IterationRange::unbounded};
    case Direction::Same:
        return {0, 0};
    case Direction::Earlier:
        return {-IterationRange::unbounded, -1};
    case Direction::Any:
        break;
    }
    return {-IterationRange::unbounded, IterationRange::unbounded};
}

std::optional<IterationRange> IterationPairs::findDistances(Direction direction) const {
    if (source.isEmpty() || target.isEmpty())
        return std::nullopt;
    const IterationRange allowed = getDistances(direction);
    if (sourceFactor == 0 && targetFactor == 0)
        return constant == 0 ? findFreeDistances(*this, allowed) : std::nullopt;
    const std::optional<Solutions> solutions = solve(*this);
    if (!solutions)
        return std::nullopt;
    const Line distance{solutions->target.base - solutions->source.base,
                        solutions->target.step - solutions->source.step};
    WideRange q{-farAway, farAway};
    narrow(q, solutions->source, source);
    narrow(q, solutions->target, target);
    narrow(q, distance, allowed);
    if (q.high < q.low)
        return std::nullopt;
    const auto [least, greatest] = std::minmax({distance.at(q.low), distance.at(q.high)});
    return IterationRange{clamp(least), clamp(greatest)};
}

} // namespace DepGraph
