// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/textgraph/PortList.h"

#include <QPoint>

#include <cstddef>
#include <vector>

namespace Kova::GUI::TextGraph {

class GraphNodeBase;

/// Puts the ports along one side of a node into an order in which fewer edges cross.
///
/// An insertion sort with rules that say of two ports whether one goes before the other. They are no orderings (they
/// are neither transitive nor do they contradict themselves when asked the other way round), so the order of
/// comparisons is part of the result: each port from the second on goes to the front when it goes before the first one,
/// otherwise leftwards as long as it goes before its neighbour. Rules look at the numbers and places that ports have at
/// that moment; a port on its way keeps its own until it is put down.
///
/// The comparisons are as many as the rules demand, up to a square of the number of ports. They cost little because
/// what they look at is collected before: the other ends, which do not change, and the places along the side.
class PortSorter {
public:
    /// Mode 1: straight edges (rule 1); 2: arcs within the line (rule 2); 3: loops go left (rule 3); 4: 3, then 1, then
    /// 2; others: nothing. The edges are not told their numbers.
    static void sort(const GraphNodeBase& node, PortList::Place place, std::vector<Port>& ports, int mode);

private:
    /// An end of an edge as the rules see it.
    struct End {
        int shapeType;
        const GraphNodeBase* otherNode;
        int otherNumber; ///< without sign
        QPoint otherPlace;
    };

    PortSorter(const GraphNodeBase& node, PortList::Place place, const std::vector<Port>& ports);
    void run(int mode);
    void sortStraight();
    void sortArcs();
    void sortLoops();
    template <typename Before>
    void insertionSort(Before before);
    template <typename Coordinate>
    [[nodiscard]] bool straightBefore(int p, std::size_t pAt, int q, std::size_t qAt) const;
    [[nodiscard]] bool arcBefore(int p, std::size_t pAt, int q, std::size_t qAt) const;
    template <typename Coordinate>
    [[nodiscard]] bool cross(const QPoint& a0, const QPoint& a1, const QPoint& b0, const QPoint& b1) const;
    [[nodiscard]] bool areCoordinatesSmall() const;
    [[nodiscard]] const End& end(int index) const { return m_ends[static_cast<std::size_t>(index)]; }
    [[nodiscard]] bool hasShape(int shapeType) const;

    std::vector<End> m_ends;
    /// Of the ports from left to right.
    std::vector<QPoint> m_places;
    /// Indices of ends from left to right; small, since moving them is what takes longest.
    std::vector<int> m_order;
};

} // namespace Kova::GUI::TextGraph
