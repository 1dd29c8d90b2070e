// SPDX-License-Identifier: MIT
#include "visualization/textgraph/PortSorter.h"

#include "visualization/graphcore/WideInt.h"
#include "visualization/textgraph/EdgeBase.h"
#include "visualization/textgraph/GraphNodeBase.h"

#include <algorithm>
#include <cstdlib>

namespace Kova::GUI::TextGraph {

namespace {

/// Products of two differences of coordinates up to this size, and differences of such products, fit 64 bits.
constexpr int smallCoordinate = 1 << 29;

bool isSmall(const QPoint& point) {
    return std::abs(qint64{point.x()}) <= smallCoordinate && std::abs(qint64{point.y()}) <= smallCoordinate;
}

/// Whether the ranges between a0, a1 and b0, b1 have a number in common.
bool overlap(int a0, int a1, int b0, int b1) {
    return std::min(a0, a1) <= std::max(b0, b1) && std::min(b0, b1) <= std::max(a0, a1);
}

} // namespace

void PortSorter::sort(const GraphNodeBase& node, PortList::Place place, std::vector<Port>& ports, int mode) {
    if (ports.size() < 2 || mode < 1 || mode > 4)
        return;
    PortSorter sorter(node, place, ports);
    sorter.run(mode);
    std::vector<Port> sorted;
    sorted.reserve(ports.size());
    for (const int index : sorter.m_order)
        sorted.push_back(ports[static_cast<std::size_t>(index)]);
    ports = std::move(sorted);
}

PortSorter::PortSorter(const GraphNodeBase& node, PortList::Place place, const std::vector<Port>& ports) {
    m_ends.reserve(ports.size());
    m_places.reserve(ports.size());
    m_order.reserve(ports.size());
    const int sign = place == PortList::Place::Top ? -1 : 1;
    for (const Port& port : ports) {
        const EdgeSide otherSide = port.side == EdgeSide::From ? EdgeSide::To : EdgeSide::From;
        const GraphNodeBase* otherNode = port.edge->getNode(otherSide);
        const int otherNumber = port.edge->getPort(otherSide);
        m_ends.push_back(
            {port.edge->getShapeType(), otherNode, std::abs(otherNumber), otherNode->getPortCoords(otherNumber)});
        m_order.push_back(static_cast<int>(m_order.size()));
        m_places.push_back(node.getPortCoords(sign * static_cast<int>(m_order.size())));
    }
}

void PortSorter::run(int mode) {
    if (mode == 3 || mode == 4)
        sortLoops();
    if (mode == 1 || mode == 4)
        sortStraight();
    if (mode == 2 || mode == 4)
        sortArcs();
}

bool PortSorter::hasShape(int shapeType) const {
    return std::any_of(m_ends.begin(), m_ends.end(), [&](const End& end) { return end.shapeType == shapeType; });
}

template <typename Before>
void PortSorter::insertionSort(Before before) {
    for (std::size_t i = 1; i < m_order.size(); ++i) {
        const int moved = m_order[i];
        std::size_t target = 0;
        if (!before(moved, i, m_order[0], 0)) {
            target = i;
            while (target > 1 && before(moved, i, m_order[target - 1], target - 1))
                --target;
        }
        const auto first = m_order.begin() + static_cast<std::ptrdiff_t>(target);
        const auto last = m_order.begin() + static_cast<std::ptrdiff_t>(i);
        std::move_backward(first, last, last + 1);
        *first = moved;
    }
}

void PortSorter::sortLoops() {
    if (!hasShape(EdgeBase::Loop))
        return;
    insertionSort([this](int p, std::size_t, int q, std::size_t) {
        return end(p).shapeType == EdgeBase::Loop && end(q).shapeType != EdgeBase::Loop;
    });
}

void PortSorter::sortStraight() {
    if (areCoordinatesSmall())
        insertionSort(
            [this](int p, std::size_t pAt, int q, std::size_t qAt) { return straightBefore<qint64>(p, pAt, q, qAt); });
    else
        insertionSort(
            [this](int p, std::size_t pAt, int q, std::size_t qAt) { return straightBefore<WideInt>(p, pAt, q, qAt); });
}

void PortSorter::sortArcs() {
    if (!hasShape(EdgeBase::Arc))
        return;
    insertionSort([this](int p, std::size_t pAt, int q, std::size_t qAt) { return arcBefore(p, pAt, q, qAt); });
}

bool PortSorter::areCoordinatesSmall() const {
    return std::all_of(m_ends.begin(), m_ends.end(), [](const End& end) { return isSmall(end.otherPlace); }) &&
           std::all_of(m_places.begin(), m_places.end(), isSmall);
}

template <typename Coordinate>
bool PortSorter::straightBefore(int p, std::size_t pAt, int q, std::size_t qAt) const {
    const End& pEnd = end(p);
    const End& qEnd = end(q);
    if (pEnd.shapeType != EdgeBase::Straight || qEnd.shapeType != EdgeBase::Straight)
        return false;
    if (pEnd.otherNode == qEnd.otherNode)
        return pEnd.otherNumber >= qEnd.otherNumber ? pAt <= qAt : pAt >= qAt;
    // Swapping two edges that cross uncrosses them.
    return cross<Coordinate>(m_places[pAt], pEnd.otherPlace, m_places[qAt], qEnd.otherPlace);
}

template <typename Coordinate>
bool PortSorter::cross(const QPoint& a0, const QPoint& a1, const QPoint& b0, const QPoint& b1) const {
    if (!overlap(a0.x(), a1.x(), b0.x(), b1.x()) || !overlap(a0.y(), a1.y(), b0.y(), b1.y()))
        return false;
    const auto difference = [](int a, int b) { return static_cast<Coordinate>(a) - b; };
    const Coordinate dx = difference(a1.x(), a0.x());
    const Coordinate dy = difference(a1.y(), a0.y());
    const Coordinate ex = difference(b1.x(), b0.x());
    const Coordinate ey = difference(b1.y(), b0.y());
    const Coordinate startX = difference(a0.x(), b0.x());
    const Coordinate startY = difference(a0.y(), b0.y());
    Coordinate den = dx * ey - dy * ex;
    Coordinate s = ex * startY - ey * startX;
    Coordinate t = dx * startY - dy * startX;
    if (den < 0) {
        den = -den;
        s = -s;
        t = -t;
    }
    // Parallel ones do not cross, not even on the same line.
    return den != 0 && s >= 0 && s <= den && t >= 0 && t <= den;
}

bool PortSorter::arcBefore(int p, std::size_t pAt, int q, std::size_t qAt) const {
    const End& pEnd = end(p);
    const End& qEnd = end(q);
    const int pOther = pEnd.otherPlace.x();
    const int qOther = qEnd.otherPlace.x();
    const int pOwn = m_places[pAt].x();
    const int qOwn = m_places[qAt].x();
    if (pEnd.shapeType == EdgeBase::Arc && qEnd.shapeType == EdgeBase::Straight)
        return pOther > pOwn ? pAt < qAt : pAt > qAt;
    if (pEnd.shapeType == EdgeBase::Straight && qEnd.shapeType == EdgeBase::Arc)
        return qOwn >= qOther ? qAt > pAt : qAt < pAt;
    if (pEnd.shapeType != EdgeBase::Arc || qEnd.shapeType != EdgeBase::Arc)
        return false;
    const bool same = (pOther < pOwn && qOther < qOwn) || (pOther > pOwn && qOther > qOwn);
    if (qOwn <= pOwn)
        return same ? qOther <= pOther : qOther > pOther;
    return same ? qOther >= pOther : qOther < pOther;
}

} // namespace Kova::GUI::TextGraph
