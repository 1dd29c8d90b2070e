// SPDX-License-Identifier: MIT
#include "visualization/sourceselector/SelectionTable.h"

#include <algorithm>
#include <utility>

namespace Kova::GUI {

void SelectionTable::reset(std::shared_ptr<const PrintedNodes> printed) {
    m_printed = std::move(printed);
    m_slots.clear();
    m_slotsOfOthers.clear();
}

void SelectionTable::raise(const Node& node, int slot) {
    const int number = m_printed->find(&node);
    if (number >= static_cast<int>(m_slots.size()))
        m_slots.resize(static_cast<std::size_t>(m_printed->size()));
    int& present = number < 0 ? m_slotsOfOthers[&node] : m_slots[static_cast<std::size_t>(number)];
    present = std::max(present, slot);
}

void SelectionTable::clearSlot(int slot) {
    std::replace(m_slots.begin(), m_slots.end(), slot, 0);
    for (auto& [node, present] : m_slotsOfOthers)
        if (present == slot)
            present = 0;
}

int SelectionTable::getSlot(const Node& node) const {
    const int number = m_printed->find(&node);
    if (number >= 0)
        return number < static_cast<int>(m_slots.size()) ? m_slots[static_cast<std::size_t>(number)] : 0;
    const auto other = m_slotsOfOthers.find(&node);
    return other != m_slotsOfOthers.end() ? other->second : 0;
}

} // namespace Kova::GUI
