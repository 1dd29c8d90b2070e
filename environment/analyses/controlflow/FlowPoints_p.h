// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/controlflow/ControlTransfer.h"

#include <cstddef>
#include <vector>

namespace Kova::Tessel {
class ExpressionBase;
class StatementBase;
} // namespace Kova::Tessel

namespace ControlFlow {

/// The number of a point.
using PointId = std::size_t;

/// A way from one point to another, and what it is in a graph of expressions and in one of statements. These differ:
/// the way from a condition to what it chooses is a choice where the expression is evaluated, and where the statement
/// is entered only after all operators of the condition; the increment of a for is part of the loop to one, a place on
/// the way back to the other.
struct Way {
    PointId target = 0;
    ControlTransfer inExpressions = ControlTransfer::Next;
    ControlTransfer inStatements = ControlTransfer::Next;
};

/// A place of a program's execution.
struct Point {
    /// Evaluated here; null for none.
    const Kova::Tessel::ExpressionBase* expression = nullptr;
    /// Control arrives at this statement here; null for none.
    const Kova::Tessel::StatementBase* statement = nullptr;
    /// Whether control is at the end of the statement, a block.
    bool isEnd = false;
    std::vector<Way> ways;
};

/// The places of a program's execution and the ways between them, numbered in the order in which they were added.
class FlowPoints {
public:
    PointId add() {
        m_points.emplace_back();
        return m_points.size() - 1;
    }
    void connect(PointId from, PointId to, ControlTransfer inBoth = ControlTransfer::Next) {
        connect(from, to, inBoth, inBoth);
    }
    void connect(PointId from, PointId to, ControlTransfer inExpressions, ControlTransfer inStatements) {
        m_points[from].ways.push_back({to, inExpressions, inStatements});
    }

    [[nodiscard]] Point& operator[](PointId id) { return m_points[id]; }
    [[nodiscard]] const Point& operator[](PointId id) const { return m_points[id]; }
    [[nodiscard]] std::size_t size() const { return m_points.size(); }

private:
    std::vector<Point> m_points;
};

/// Where a place leads to, and how.
struct Arrival {
    PointId point = 0;
    ControlTransfer transfer = ControlTransfer::Next;
};

/// Walks from places to the next ones of interest.
class NextPlaces {
public:
    enum class Interest { Expressions, Statements };

    /// @param points do not change while this is used. @param exit of interest in any case.
    NextPlaces(const FlowPoints& points, Interest interest, PointId exit);

    /// The first places of interest on every way from a place, in the order of the ways, each once for every kind of
    /// transfer. Back goes before every other kind on the same way; otherwise the first that is not Next counts.
    [[nodiscard]] const std::vector<Arrival>& find(PointId from);

private:
    [[nodiscard]] bool isOfInterest(PointId point) const;
    [[nodiscard]] ControlTransfer kindOf(const Way& way) const;

    const FlowPoints& m_points;
    Interest m_interest;
    PointId m_exit;
    /// For each point and kind, the walk that was there last.
    std::vector<std::size_t> m_visits;
    std::size_t m_walk = 0;
    std::vector<Arrival> m_pending;
    std::vector<Arrival> m_found;
};

} // namespace ControlFlow
