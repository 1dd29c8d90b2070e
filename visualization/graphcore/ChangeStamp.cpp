// SPDX-License-Identifier: MIT
#include "visualization/graphcore/ChangeStamp.h"

namespace Kova::GUI {

quint64& ChangeStamp::counter() {
    static quint64 count = 0;
    return count;
}

} // namespace Kova::GUI
