// SPDX-License-Identifier: MIT
#include "visualization/textgraph/GraphNodeBase.h"

#include "visualization/textgraph/PortSorter.h"
#include "visualization/textgraph/Saturated.h"

#include <cstdlib>

namespace Kova::GUI::TextGraph {

GraphNodeBase::GraphNodeBase(const QPoint& pos, const QString& text)
    : NodeBase(pos, text),
      m_upPorts(PortList::Place::Top),
      m_downPorts(PortList::Place::Bottom) {}

GraphNodeBase::~GraphNodeBase() = default;

void GraphNodeBase::addUpPort(EdgeBase* edge, EdgeSide side) {
    m_upPorts.add(edge, side);
}

void GraphNodeBase::addDownPort(EdgeBase* edge, EdgeSide side) {
    m_downPorts.add(edge, side);
}

void GraphNodeBase::removeUpPort(int number) {
    settlePorts();
    m_upPorts.release(number);
    setPorts();
}

void GraphNodeBase::removeDownPort(int number) {
    settlePorts();
    m_downPorts.release(number);
    setPorts();
}

void GraphNodeBase::releasePort(int heldNumber) {
    (heldNumber < 0 ? m_upPorts : m_downPorts).release(heldNumber);
}

void GraphNodeBase::settlePorts() const {
    m_upPorts.settle();
    m_downPorts.settle();
}

void GraphNodeBase::setPorts() {
    settlePorts();
    m_upPorts.number();
    m_downPorts.number();
}

QPoint GraphNodeBase::getPortCoords(int number) const {
    const bool top = number < 0;
    const qint64 count = static_cast<qint64>((top ? m_upPorts : m_downPorts).ports().size());
    const qint64 index = std::abs(qint64{number});
    if (index == 0 || index > count)
        return getPos();
    const QRect& rect = getRect();
    const qint64 width = qint64{rect.right()} - rect.left() + 1;
    const qint64 step = width / (count + 1);
    return {saturated(getPos().x() + index * step),
            saturated(qint64{getPos().y()} + (top ? rect.top() : rect.bottom()))};
}

void GraphNodeBase::reorder(int mode) {
    PortSorter::sort(*this, PortList::Place::Top, m_upPorts.ports(), mode);
    m_upPorts.number();
    PortSorter::sort(*this, PortList::Place::Bottom, m_downPorts.ports(), mode);
    m_downPorts.number();
}

const std::vector<GraphNodeBase::Port>& GraphNodeBase::getUpPorts() const {
    return m_upPorts.ports();
}

const std::vector<GraphNodeBase::Port>& GraphNodeBase::getDownPorts() const {
    return m_downPorts.ports();
}

} // namespace Kova::GUI::TextGraph
