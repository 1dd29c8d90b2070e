// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/graphcore/ChangeStamp.h"

#include <cstddef>
#include <vector>

namespace Kova::GUI {

/// Remembers a list of items with change stamps (getStamp()) as it was when something was computed from it, and says
/// what has to be computed anew. Nobody has to report a change: the list itself is compared, so items that were added,
/// taken away, replaced or put in another order are noticed as well as those that changed.
template <typename Item>
class ChangedItems {
public:
    /// Calls refresh(index) in ascending order for every item that is new at its index or has changed since the last
    /// call. True when there was one or the length of the list changed.
    template <typename Refresh>
    bool update(const std::vector<Item*>& items, Refresh refresh) {
        const quint64 latest = ChangeStamp::latest();
        if (latest == m_latest && items == m_items)
            return false;
        bool changed = items.size() != m_items.size();
        for (std::size_t i = 0; i < items.size(); ++i) {
            if (i < m_items.size() && items[i] == m_items[i] && items[i]->getStamp() <= m_latest)
                continue;
            refresh(i);
            changed = true;
        }
        m_items = items;
        m_latest = latest;
        return changed;
    }

    /// Makes the next update() refresh everything.
    void forget() { m_items.clear(); }

private:
    std::vector<Item*> m_items;
    quint64 m_latest = 0;
};

} // namespace Kova::GUI
