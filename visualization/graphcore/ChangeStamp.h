// SPDX-License-Identifier: MIT
#pragma once

#include "visualization/VisualizationExport.h"

#include <QtGlobal>

namespace Kova::GUI {

/// Numbers the changes of drawn items, over all items of the process, so that whoever keeps something computed from
/// them can tell cheaply what is out of date: an item whose stamp is above latest() as it was at computing time has
/// changed since, or is a new item at an old address; when latest() is still the same, nothing has changed at all.
/// GUI thread only.
class VISUALIZATION_EXPORT ChangeStamp {
public:
    /// A number above every earlier one; the first is 1.
    [[nodiscard]] static quint64 next() { return ++counter(); }
    /// The number given last, 0 when none was.
    [[nodiscard]] static quint64 latest() { return counter(); }

private:
    static quint64& counter();
};

} // namespace Kova::GUI
