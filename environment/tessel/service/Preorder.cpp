// SPDX-License-Identifier: MIT
#include "environment/tessel/service/Preorder.h"

namespace Kova::Tessel::Service {

namespace {

TesselBase* firstChildFrom(const TesselBase& node, std::size_t index) {
    for (; index < node.getChildCount(); ++index)
        if (TesselBase* child = node.getChild(index))
            return child;
    return nullptr;
}

} // namespace

Preorder::Iterator& Preorder::Iterator::operator++() {
    if (TesselBase* child = firstChildFrom(*m_node, 0))
        m_node = child;
    else
        skipChildren();
    return *this;
}

void Preorder::Iterator::skipChildren() {
    while (m_node != m_root) {
        TesselBase* parent = m_node->getParent();
        if (TesselBase* sibling = firstChildFrom(*parent, m_node->getIndexInParent() + 1)) {
            m_node = sibling;
            return;
        }
        m_node = parent;
    }
    m_node = nullptr;
}

} // namespace Kova::Tessel::Service
