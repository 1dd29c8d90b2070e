// SPDX-License-Identifier: MIT
#include "visualization/graphcore/CellGrid.h"

#include <QtTest>

#include <cmath>
#include <random>
#include <set>
#include <vector>

using namespace Kova::GUI;

namespace {

std::set<int> corridorCells(const CellGrid& grid, const QPoint& a, const QPoint& b, int margin, int reach) {
    std::set<int> cells;
    grid.visitCorridor(a, b, margin, reach, [&](int cell) {
        cells.insert(cell);
        return false;
    });
    return cells;
}

} // namespace

class CellGridTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void gridOfNothingIsEmpty() {
        QVERIFY(CellGrid().isEmpty());
        QVERIFY(CellGrid(CellGrid::Plan()).isEmpty());
    }

    void cellCountIsBounded() {
        CellGrid::Plan plan;
        plan.addSegment(QPoint(-2000000000, 5), QPoint(-2000000000, 5));
        plan.addSegment(QPoint(2000000000, 2000000000), QPoint(2000000000, 2000000000));
        const CellGrid grid(plan);
        QVERIFY(grid.cellCount() >= 1);
        QVERIFY(grid.cellCount() <= 100);
        QVERIFY(grid.cellAt(QPoint(-2000000000, 5)) != grid.cellAt(QPoint(2000000000, 2000000000)));
    }

    void pointsOutsideBelongToTheBorder() {
        CellGrid::Plan plan;
        for (int i = 0; i < 100; ++i)
            plan.addSegment(QPoint(i * 100, i * 100), QPoint(i * 100, i * 100));
        const CellGrid grid(plan);
        QCOMPARE(grid.cellAt(QPoint(-5000, -5000)), grid.cellAt(QPoint(0, 0)));
        QCOMPARE(grid.cellAt(QPoint(50000, 50000)), grid.cellAt(QPoint(9900, 9900)));
    }

    void rectVisitsTheCellOfEachOfItsPoints() {
        CellGrid::Plan plan;
        for (int i = 0; i < 400; ++i)
            plan.addBox(QRect(i % 20 * 100, i / 20 * 100, 30, 20));
        const CellGrid grid(plan);
        const QRect rect(-150, 333, 700, 200);
        std::set<int> cells;
        grid.visitRect(rect, [&](int cell) {
            cells.insert(cell);
            return false;
        });
        for (int x = rect.left(); x <= rect.right(); ++x) {
            for (int y = rect.top(); y <= rect.bottom(); ++y)
                QVERIFY(cells.count(grid.cellAt(QPoint(x, y))) == 1);
        }
        QVERIFY(static_cast<int>(cells.size()) < grid.cellCount());
    }

    void visitingStopsWhenToldTo() {
        CellGrid::Plan plan;
        for (int i = 0; i < 100; ++i)
            plan.addSegment(QPoint(i * 100, 0), QPoint(i * 100, 1000));
        const CellGrid grid(plan);
        int visited = 0;
        QVERIFY(grid.visitCorridor(QPoint(0, 0), QPoint(9900, 1000), 5, 12, [&](int) { return ++visited == 3; }));
        QCOMPARE(visited, 3);
    }

    void corridorVisitsTheCellOfEachOfItsPoints() {
        std::mt19937 generator(5);
        const auto any = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(generator); };
        CellGrid::Plan plan;
        for (int i = 0; i < 900; ++i)
            plan.addSegment(QPoint(i % 30 * 70, i / 30 * 70), QPoint(i % 30 * 70, i / 30 * 70));
        const CellGrid grid(plan);
        for (int round = 0; round < 2000; ++round) {
            const QPoint a(any(-500, 2600), any(-500, 2600));
            const QPoint b = round % 10 == 0 ? a : QPoint(any(-500, 2600), any(-500, 2600));
            const std::set<int> cells = corridorCells(grid, a, b, 5, 12);
            const double length = std::hypot(b.x() - a.x(), b.y() - a.y());
            for (int sample = 0; sample < 200; ++sample) {
                const QPoint p(any(std::min(a.x(), b.x()) - 5, std::max(a.x(), b.x()) + 5),
                               any(std::min(a.y(), b.y()) - 5, std::max(a.y(), b.y()) + 5));
                const double cross = double(b.x() - a.x()) * (p.y() - a.y()) - double(b.y() - a.y()) * (p.x() - a.x());
                if (std::abs(cross) <= 12.0 * length)
                    QVERIFY(cells.count(grid.cellAt(p)) == 1);
            }
        }
    }

    void longCorridorVisitsFewCells() {
        CellGrid::Plan plan;
        for (int i = 0; i < 10000; ++i)
            plan.addSegment(QPoint(i % 100 * 150, i / 100 * 150), QPoint(i % 100 * 150, i / 100 * 150));
        const CellGrid grid(plan);
        const auto cells = corridorCells(grid, QPoint(0, 0), QPoint(14850, 14850), 5, 12);
        QVERIFY(static_cast<int>(cells.size()) < grid.cellCount() / 20);
    }

    void itemsKeepTheirOrderInACell() {
        CellItems<int> items;
        const std::vector<std::pair<int, int>> entered{{2, 10}, {0, 11}, {2, 12}, {3, 13}, {2, 14}};
        items.build(4, [&](auto enter) {
            for (const auto& [cell, item] : entered)
                enter(cell, item);
        });
        const auto contents = [&](int cell) {
            const auto range = items.at(cell);
            return std::vector<int>(range.begin(), range.end());
        };
        QCOMPARE(contents(0), std::vector<int>({11}));
        QCOMPARE(contents(1), std::vector<int>());
        QCOMPARE(contents(2), std::vector<int>({10, 12, 14}));
        QCOMPARE(contents(3), std::vector<int>({13}));
    }
};

QTEST_APPLESS_MAIN(CellGridTest)
#include "CellGridTest.moc"
