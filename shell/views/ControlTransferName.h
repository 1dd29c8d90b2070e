// SPDX-License-Identifier: MIT
#pragma once

#include "environment/analyses/controlflow/ControlTransfer.h"

#include <QString>

namespace Kova::Shell {

/// "next", "true", "false", "back" or "jump", as `--describe` says it.
[[nodiscard]] QString nameOf(ControlTransfer transfer);

} // namespace Kova::Shell
