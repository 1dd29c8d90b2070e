// SPDX-License-Identifier: MIT
#include "visualization/graphcore/CellGrid.h"

#include <cmath>

namespace Kova::GUI {

namespace {

constexpr double smallestCell = 64.0;
constexpr double cellsPerItem = 4.0;
constexpr double entriesPerItem = 4.0;

} // namespace

void CellGrid::Plan::addBox(const QRect& box) {
    extendTo(box.topLeft());
    extendTo(box.bottomRight());
    m_count += 1.0;
    m_spans += static_cast<double>(box.width()) + box.height();
    m_areas += static_cast<double>(box.width()) * box.height();
}

void CellGrid::Plan::addSegment(const QPoint& a, const QPoint& b) {
    extendTo(a);
    extendTo(b);
    m_count += 1.0;
    m_spans += std::abs(static_cast<double>(b.x()) - a.x()) + std::abs(static_cast<double>(b.y()) - a.y());
}

void CellGrid::Plan::extendTo(const QPoint& point) {
    const double x = point.x();
    const double y = point.y();
    const bool first = m_left > m_right;
    m_left = first ? x : std::min(m_left, x);
    m_top = first ? y : std::min(m_top, y);
    m_right = first ? x : std::max(m_right, x);
    m_bottom = first ? y : std::max(m_bottom, y);
}

double CellGrid::Plan::entries(double cellSize) const {
    return m_areas / (cellSize * cellSize) + m_spans / cellSize + 2.0 * m_count;
}

CellGrid::CellGrid(const Plan& plan) {
    if (plan.m_count == 0.0)
        return;
    const double width = plan.m_right - plan.m_left + 1.0;
    const double height = plan.m_bottom - plan.m_top + 1.0;
    const double mostCells = cellsPerItem * plan.m_count + 16.0;
    m_size = std::max({smallestCell, std::sqrt(width / mostCells * height), std::max(width, height) / mostCells});
    // A cell larger than the longer side is one cell for everything, which ends the search.
    while (m_size < std::max(width, height) && plan.entries(m_size) > entriesPerItem * plan.m_count)
        m_size *= 1.25;
    m_inverseSize = 1.0 / m_size;
    m_origin = QPoint(static_cast<int>(plan.m_left), static_cast<int>(plan.m_top));
    m_columns = static_cast<int>(width * m_inverseSize) + 1;
    m_rows = static_cast<int>(height * m_inverseSize) + 1;
}

CellGrid::Span CellGrid::lineSpan(double u0, double v0, double slope, double low, double high, double slack) {
    const double one = v0 + (low - u0) * slope;
    const double other = v0 + (high - u0) * slope;
    return {std::min(one, other) - slack, std::max(one, other) + slack};
}

} // namespace Kova::GUI
