// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/SubscriptEquation_p.h"

#include <algorithm>
#include <utility>

namespace DepGraph {
namespace {

WideInteger findGcd(WideInteger a, WideInteger b) {
    a = absolute(a);
    b = absolute(b);
    while (b != 0)
        a = std::exchange(b, a % b);
    return a;
}

std::vector<std::pair<int, long>> subtract(const std::vector<std::pair<int, long>>& left,
                                           const std::vector<std::pair<int, long>>& right) {
    std::vector<std::pair<int, long>> result = left;
    for (const auto& [unknown, coefficient] : right) {
        const auto place = std::lower_bound(result.begin(), result.end(), unknown,
                                            [](const auto& entry, int number) { return entry.first < number; });
        if (place == result.end() || place->first != unknown)
            result.emplace(place, unknown, -coefficient);
        else if (place->second == coefficient)
            result.erase(place);
        else
            place->second -= coefficient;
    }
    return result;
}

/// The values of factor * n for n in the range.
WideRange scale(WideInteger factor, IterationRange range) {
    const WideInteger one = factor * range.low;
    const WideInteger other = factor * range.high;
    return {std::min(one, other), std::max(one, other)};
}

WideRange add(WideRange left, WideRange right) {
    return {left.low + right.low, left.high + right.high};
}

IterationRange intersect(IterationRange left, IterationRange right) {
    return {std::max(left.low, right.low), std::min(left.high, right.high)};
}

/// The values of a * i - b * j for i in one range and a later j in the other, which are taken in the corners of that
/// region; nothing when there is none.
std::optional<WideRange> boundLater(WideInteger a, WideInteger b, IterationRange first, IterationRange second) {
    const IterationRange i{first.low, std::min(first.high, second.high - 1)};
    if (i.isEmpty() || second.isEmpty())
        return std::nullopt;
    std::optional<WideRange> result;
    for (const long corner : {i.low, i.high, std::clamp(second.low - 1, i.low, i.high)})
        for (const long j : {std::max(second.low, corner + 1), second.high}) {
            const WideInteger value = a * corner - b * j;
            result = result ? WideRange{std::min(result->low, value), std::max(result->high, value)}
                            : WideRange{value, value};
        }
    return result;
}

/// The values of sourceFactor * i - targetFactor * j with that direction from i to j; nothing when there is no such
/// pair.
std::optional<WideRange> boundTerm(WideInteger sourceFactor, WideInteger targetFactor, IterationRange source,
                                   IterationRange target, Direction direction) {
    switch (direction) {
    case Direction::Later:
        return boundLater(sourceFactor, targetFactor, source, target);
    case Direction::Earlier:
        return boundLater(-targetFactor, -sourceFactor, target, source);
    case Direction::Same: {
        const IterationRange both = intersect(source, target);
        return both.isEmpty() ? std::nullopt : std::optional(scale(sourceFactor - targetFactor, both));
    }
    case Direction::Any:
        break;
    }
    if (source.isEmpty() || target.isEmpty())
        return std::nullopt;
    return add(scale(sourceFactor, source), scale(-targetFactor, target));
}

bool fits(WideInteger value) {
    return absolute(value) <= WideInteger(1) << 40;
}

/// Finds the only factor that is not 0, if there is one. False when there are more, or one that is too large.
bool findOnly(const std::vector<WideInteger>& factors, std::optional<std::size_t>& loop, long& factor) {
    for (std::size_t i = 0; i < factors.size(); ++i) {
        if (factors[i] == 0)
            continue;
        if (loop || !fits(factors[i]))
            return false;
        loop = i;
        factor = static_cast<long>(factors[i]);
    }
    return true;
}

} // namespace

SubscriptEquation::SubscriptEquation(const LinearForm& source, const LinearForm& target)
    : m_constant(WideInteger(source.constant) - target.constant),
      m_source(source.iterations.begin(), source.iterations.end()),
      m_target(target.iterations.begin(), target.iterations.end()),
      m_unknowns(subtract(source.unknowns, target.unknowns)) {}

bool SubscriptEquation::isTrivial() const {
    const auto isZero = [](WideInteger factor) { return factor == 0; };
    return m_constant == 0 && m_unknowns.empty() && std::all_of(m_source.begin(), m_source.end(), isZero) &&
           std::all_of(m_target.begin(), m_target.end(), isZero);
}

bool SubscriptEquation::mayHold(const Directions& directions, const IterationRanges& ranges) const {
    return passesGcd(directions) && passesBounds(directions, ranges);
}

bool SubscriptEquation::passesGcd(const Directions& directions) const {
    WideInteger divisor = 0;
    for (std::size_t loop = 0; loop < m_source.size(); ++loop)
        if (loop >= directions.size() || directions[loop] != Direction::Same)
            divisor = findGcd(divisor, m_source[loop]);
        else
            divisor = findGcd(divisor, m_source[loop] - m_target[loop]);
    for (std::size_t loop = 0; loop < m_target.size(); ++loop)
        if (loop >= directions.size() || directions[loop] != Direction::Same)
            divisor = findGcd(divisor, m_target[loop]);
    for (const auto& [unknown, coefficient] : m_unknowns)
        divisor = findGcd(divisor, coefficient);
    return divisor == 0 ? m_constant == 0 : m_constant % divisor == 0;
}

bool SubscriptEquation::passesBounds(const Directions& directions, const IterationRanges& ranges) const {
    WideRange sum{m_constant, m_constant};
    for (std::size_t loop = 0; loop < directions.size(); ++loop) {
        const std::optional<WideRange> term =
            boundTerm(m_source[loop], m_target[loop], ranges.source[loop], ranges.target[loop], directions[loop]);
        if (!term)
            return false;
        sum = add(sum, *term);
    }
    for (std::size_t loop = directions.size(); loop < m_source.size(); ++loop)
        sum = add(sum, scale(m_source[loop], ranges.source[loop]));
    for (std::size_t loop = directions.size(); loop < m_target.size(); ++loop)
        sum = add(sum, scale(-m_target[loop], ranges.target[loop]));
    return !m_unknowns.empty() || (sum.low <= 0 && sum.high >= 0);
}

void SubscriptEquation::substitute(std::size_t loop, long distance) {
    m_constant -= m_target[loop] * distance;
    m_source[loop] -= m_target[loop];
    m_target[loop] = 0;
}

std::optional<SubscriptEquation::Single> SubscriptEquation::findSingle() const {
    if (!m_unknowns.empty() || !fits(m_constant))
        return std::nullopt;
    Single result;
    result.constant = static_cast<long>(m_constant);
    if (!findOnly(m_source, result.sourceLoop, result.sourceFactor) ||
        !findOnly(m_target, result.targetLoop, result.targetFactor))
        return std::nullopt;
    return result;
}

} // namespace DepGraph
