// SPDX-License-Identifier: MIT
#include "environment/analyses/controlflow/FlowPoints_p.h"

namespace ControlFlow {

namespace {

constexpr std::size_t kindCount = 5;

ControlTransfer combined(ControlTransfer before, ControlTransfer step) {
    const bool isDecided = before != ControlTransfer::Next && step != ControlTransfer::Back;
    return isDecided ? before : step == ControlTransfer::Next ? before : step;
}

} // namespace

NextPlaces::NextPlaces(const FlowPoints& points, Interest interest, PointId exit)
    : m_points(points),
      m_interest(interest),
      m_exit(exit),
      m_visits(points.size() * kindCount) {}

bool NextPlaces::isOfInterest(PointId point) const {
    if (point == m_exit)
        return true;
    return m_interest == Interest::Expressions ? m_points[point].expression != nullptr
                                               : m_points[point].statement != nullptr;
}

ControlTransfer NextPlaces::kindOf(const Way& way) const {
    return m_interest == Interest::Expressions ? way.inExpressions : way.inStatements;
}

const std::vector<Arrival>& NextPlaces::find(PointId from) {
    ++m_walk;
    m_found.clear();
    const auto addWays = [this](const Arrival& at) {
        const std::vector<Way>& ways = m_points[at.point].ways;
        for (auto way = ways.rbegin(); way != ways.rend(); ++way)
            m_pending.push_back({way->target, combined(at.transfer, kindOf(*way))});
    };
    addWays({from, ControlTransfer::Next});
    while (!m_pending.empty()) {
        const Arrival at = m_pending.back();
        m_pending.pop_back();
        std::size_t& visit = m_visits[at.point * kindCount + static_cast<std::size_t>(at.transfer)];
        if (visit == m_walk)
            continue;
        visit = m_walk;
        if (isOfInterest(at.point))
            m_found.push_back(at);
        else
            addWays(at);
    }
    return m_found;
}

} // namespace ControlFlow
