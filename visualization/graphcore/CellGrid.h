// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"

#include <QPoint>
#include <QRect>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <vector>

namespace Kova::GUI {

/// Square cells laid over a part of the picture, numbered row by row. Items outside its bounds belong to the cells of
/// the border, so a grid that was made for other items is slower but not wrong.
class VISUALIZATION_EXPORT CellGrid {
public:
    /// What is going to be entered into a grid: decides where it lies and how large its cells are.
    class VISUALIZATION_EXPORT Plan {
    public:
        void addBox(const QRect& box);
        void addSegment(const QPoint& a, const QPoint& b);

    private:
        friend class CellGrid;
        void extendTo(const QPoint& point);
        [[nodiscard]] double entries(double cellSize) const;

        double m_count = 0.0;
        double m_spans = 0.0;
        double m_areas = 0.0;
        // No bounds yet: left is beyond right.
        double m_left = 1.0;
        double m_top = 0.0;
        double m_right = 0.0;
        double m_bottom = 0.0;
    };

    CellGrid() = default;
    /// Cells so large that there are at most a few of them per item, and that the items touch a few of them each, on
    /// average. Empty when nothing was added to the plan.
    explicit CellGrid(const Plan& plan);

    [[nodiscard]] int cellCount() const { return m_columns * m_rows; }
    [[nodiscard]] bool isEmpty() const { return cellCount() == 0; }
    /// The grid must not be empty.
    [[nodiscard]] int cellAt(const QPoint& point) const { return rowOf(point.y()) * m_columns + columnOf(point.x()); }

    /// Calls visit(cell) for every cell that the rectangle touches, until it returns true.
    template <typename Visit>
    bool visitRect(const QRect& rect, Visit visit) const {
        return visitRows(rowOf(rect.top()), rowOf(rect.bottom()), columnOf(rect.left()), columnOf(rect.right()), visit);
    }

    /// Calls visit(cell), until it returns true, for all cells that hold points which lie both in the rectangle spanned
    /// by a and b, grown by `margin` on every side, and within `reach` units of the line through a and b.
    template <typename Visit>
    bool visitCorridor(const QPoint& a, const QPoint& b, int margin, int reach, Visit visit) const;

private:
    /// The coordinates of a line's points whose other coordinate is in [low, high], with rounding errors.
    struct Span {
        double low;
        double high;
    };
    [[nodiscard]] static Span lineSpan(double u0, double v0, double slope, double low, double high, double slack);
    [[nodiscard]] int columnOf(double x) const { return clampedCell(x - m_origin.x(), m_columns); }
    [[nodiscard]] int rowOf(double y) const { return clampedCell(y - m_origin.y(), m_rows); }
    [[nodiscard]] int clampedCell(double offset, int count) const {
        return static_cast<int>(std::clamp(offset * m_inverseSize, 0.0, static_cast<double>(count - 1)));
    }
    template <typename Visit>
    bool visitRows(int firstRow, int lastRow, int firstColumn, int lastColumn, Visit& visit) const {
        for (int row = firstRow; row <= lastRow; ++row) {
            for (int column = firstColumn; column <= lastColumn; ++column) {
                if (visit(row * m_columns + column))
                    return true;
            }
        }
        return false;
    }

    QPoint m_origin;
    double m_size = 1.0;
    double m_inverseSize = 1.0;
    int m_columns = 0;
    int m_rows = 0;
};

template <typename Visit>
bool CellGrid::visitCorridor(const QPoint& a, const QPoint& b, int margin, int reach, Visit visit) const {
    const double left = std::min(a.x(), b.x()) - static_cast<double>(margin);
    const double right = std::max(a.x(), b.x()) + static_cast<double>(margin);
    const double top = std::min(a.y(), b.y()) - static_cast<double>(margin);
    const double bottom = std::max(a.y(), b.y()) + static_cast<double>(margin);
    const int firstRow = rowOf(top);
    const int lastRow = rowOf(bottom);
    const int firstColumn = columnOf(left);
    const int lastColumn = columnOf(right);
    if (firstRow == lastRow || firstColumn == lastColumn)
        return visitRows(firstRow, lastRow, firstColumn, lastColumn, visit);
    const double dx = static_cast<double>(b.x()) - a.x();
    const double dy = static_cast<double>(b.y()) - a.y();
    const bool flat = std::abs(dx) >= std::abs(dy);
    // Measured along the shorter axis a line's neighbourhood is at most √2 times as thick as across the line.
    const double slack = 1.5 * reach + 1.0;
    const double slope = dx == 0.0 && dy == 0.0 ? 0.0 : flat ? dy / dx : dx / dy;
    const int first = flat ? firstColumn : firstRow;
    const int last = flat ? lastColumn : lastRow;
    const int steps = flat ? m_columns : m_rows;
    const double start = flat ? m_origin.x() : m_origin.y();
    for (int step = first; step <= last; ++step) {
        // Cells of the border reach as far as the rectangle does.
        const double low = step == 0 ? std::min(start, flat ? left : top) : start + step * m_size;
        const double high =
            step == steps - 1 ? std::max(start + steps * m_size, flat ? right : bottom) : start + (step + 1) * m_size;
        const Span span =
            flat ? lineSpan(a.x(), a.y(), slope, low, high, slack) : lineSpan(a.y(), a.x(), slope, low, high, slack);
        const double from = std::max(span.low, flat ? top : left);
        const double to = std::min(span.high, flat ? bottom : right);
        if (from > to)
            continue;
        if (flat ? visitRows(rowOf(from), rowOf(to), step, step, visit)
                 : visitRows(step, step, columnOf(from), columnOf(to), visit))
            return true;
    }
    return false;
}

/// What the cells of a grid hold: for every cell its items, in the order in which they were entered.
template <typename Item>
class CellItems {
public:
    struct Range {
        const Item* first;
        const Item* last;
        [[nodiscard]] const Item* begin() const { return first; }
        [[nodiscard]] const Item* end() const { return last; }
    };

    /// enterAll(enter) has to call enter(cell, item) for all items, and the same way each of the two times it is
    /// called.
    template <typename EnterAll>
    void build(int cellCount, EnterAll enterAll) {
        m_ends.assign(static_cast<std::size_t>(cellCount) + 1, 0);
        enterAll([this](int cell, const Item&) { ++m_ends[static_cast<std::size_t>(cell) + 1]; });
        for (std::size_t cell = 1; cell < m_ends.size(); ++cell)
            m_ends[cell] += m_ends[cell - 1];
        m_items.resize(m_ends.back());
        // Entering moves each cell's start to its end, which is what is kept.
        enterAll([this](int cell, const Item& item) { m_items[m_ends[static_cast<std::size_t>(cell)]++] = item; });
    }

    [[nodiscard]] Range at(int cell) const {
        const auto index = static_cast<std::size_t>(cell);
        return {m_items.data() + (index == 0 ? 0 : m_ends[index - 1]), m_items.data() + m_ends[index]};
    }

private:
    std::vector<std::size_t> m_ends;
    std::vector<Item> m_items;
};

} // namespace Kova::GUI
