// SPDX-License-Identifier: MIT
#pragma once

/// Why control goes from one place to another.
enum class ControlTransfer {
    Next,  ///< to what follows, or into what is entered
    True,  ///< the condition holds
    False, ///< the condition does not hold
    Back,  ///< to the next round of a loop, whatever led there
    Jump   ///< goto, break, continue, return, and from a switch to its labels
};
