// SPDX-License-Identifier: MIT
#pragma once

namespace Kova::Shell {

/// Chooses where Qt draws, before there is an application object: on the display, or into memory when there is none or
/// none is needed, so that a picture does not depend on somebody's screen. Leaves alone what the user set in
/// QT_QPA_PLATFORM.
void choosePlatform(bool needsWindow);

/// True when a window would be seen by nobody: there is no display, or it cannot be reached, and the user did not ask
/// for that. Asked when there is an application object.
[[nodiscard]] bool isWithoutDisplay();

} // namespace Kova::Shell
