// SPDX-License-Identifier: MIT
#include "environment/analyses/lamport/QuickTests_p.h"

#include <algorithm>

namespace DepGraph {
namespace {

/// Farther distances are not put into other subscripts, so that no sum can overflow.
constexpr long farthestDistance = 1L << 40;

} // namespace

QuickTests::QuickTests(const AccessShape& source, const AccessShape& target, std::size_t commonLoops)
    : m_ranges{source.domain->ranges, target.domain->ranges},
      m_disproved(source.domain->isEmpty || target.domain->isEmpty),
      m_exact(source.domain->isBox && target.domain->isBox) {
    m_pairs.reserve(commonLoops);
    for (std::size_t loop = 0; loop < commonLoops; ++loop)
        m_pairs.push_back({m_ranges.source[loop], m_ranges.target[loop]});
    readEquations(source, target);
    if (m_equations.empty())
        return;
    spreadDistances();
    separate();
}

void QuickTests::readEquations(const AccessShape& source, const AccessShape& target) {
    const std::size_t count = std::min(source.subscripts.size(), target.subscripts.size());
    for (std::size_t i = 0; i < count; ++i) {
        const SubscriptShape& first = *source.subscripts[i];
        const SubscriptShape& second = *target.subscripts[i];
        if (first.function.is_null() || second.function.is_null())
            continue;
        if (first.form && second.form)
            m_equations.emplace_back(*first.form, *second.form);
        else
            m_exact = false;
    }
}

std::optional<std::pair<std::size_t, long>> QuickTests::findFixedDistance(const SubscriptEquation& equation) const {
    const std::optional<SubscriptEquation::Single> single = equation.findSingle();
    if (!single || !single->sourceLoop || single->sourceLoop != single->targetLoop ||
        *single->sourceLoop >= m_pairs.size() || single->sourceFactor != single->targetFactor ||
        single->constant % single->sourceFactor != 0)
        return std::nullopt;
    const long distance = single->constant / single->sourceFactor;
    return std::abs(distance) > farthestDistance ? std::nullopt
                                                 : std::optional(std::pair(*single->sourceLoop, distance));
}

void QuickTests::spreadDistances() {
    std::vector<bool> spread(m_equations.size(), false);
    for (std::size_t i = 0; i < m_equations.size(); ++i) {
        const auto fixed = spread[i] ? std::nullopt : findFixedDistance(m_equations[i]);
        if (!fixed)
            continue;
        spread[i] = true;
        for (std::size_t other = 0; other < m_equations.size(); ++other)
            if (other != i)
                m_equations[other].substitute(fixed->first, fixed->second);
        // What was put in may have left a single loop in an equation before this one.
        i = static_cast<std::size_t>(-1);
    }
}

void QuickTests::separate() {
    m_equations.erase(std::remove_if(m_equations.begin(), m_equations.end(),
                                     [](const SubscriptEquation& equation) { return equation.isTrivial(); }),
                      m_equations.end());
    std::vector<bool> sourceTaken(m_ranges.source.size(), false);
    std::vector<bool> targetTaken(m_ranges.target.size(), false);
    for (const SubscriptEquation& equation : m_equations) {
        const std::optional<SubscriptEquation::Single> single = equation.findSingle();
        if (!single || !placeEquation(*single, sourceTaken, targetTaken))
            m_exact = false;
    }
}

/// Whether the equation shares no iteration number with others, so that it can be decided by itself.
bool QuickTests::placeEquation(const SubscriptEquation::Single& equation, std::vector<bool>& sourceTaken,
                               std::vector<bool>& targetTaken) {
    const auto& [sourceLoop, targetLoop, sourceFactor, targetFactor, constant] = equation;
    const auto isCommon = [&](const std::optional<std::size_t>& loop) { return loop && *loop < m_pairs.size(); };
    const bool common = isCommon(sourceLoop) || isCommon(targetLoop);
    const bool sameLoop = common && (!sourceLoop || !targetLoop || sourceLoop == targetLoop);
    const std::size_t loop = sourceLoop ? *sourceLoop : targetLoop.value_or(0);
    const IterationRange none{0, 0};
    const IterationPairs pairs{sameLoop || sourceLoop ? m_ranges.source[sourceLoop.value_or(loop)] : none,
                               sameLoop || targetLoop ? m_ranges.target[targetLoop.value_or(loop)] : none, sourceFactor,
                               targetFactor, constant};
    m_disproved = m_disproved || !pairs.findDistances(Direction::Any);
    const bool free = !(sourceLoop && sourceTaken[*sourceLoop]) && !(targetLoop && targetTaken[*targetLoop]) &&
                      !(sameLoop && (sourceTaken[loop] || targetTaken[loop]));
    if (!free || (common && !sameLoop))
        return false;
    if (sourceLoop || sameLoop)
        sourceTaken[sourceLoop.value_or(loop)] = true;
    if (targetLoop || sameLoop)
        targetTaken[targetLoop.value_or(loop)] = true;
    if (sameLoop)
        m_pairs[loop] = pairs;
    return true;
}

bool QuickTests::mayMeet(const Directions& directions) const {
    if (m_disproved)
        return false;
    for (std::size_t loop = 0; loop < m_pairs.size(); ++loop)
        if (!m_pairs[loop].findDistances(directions[loop]))
            return false;
    return std::all_of(m_equations.begin(), m_equations.end(),
                       [&](const SubscriptEquation& equation) { return equation.mayHold(directions, m_ranges); });
}

} // namespace DepGraph
