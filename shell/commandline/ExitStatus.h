// SPDX-License-Identifier: MIT
#pragma once

namespace Kova::Shell {

/// What kova-shell tells its caller. Where several apply, the largest is told.
enum ExitStatus : int {
    Done = 0,
    /// The view had nothing to show; its messages are on standard error.
    NothingToShow = 1,
    /// Wrong usage; also a subroutine or line that the program does not have.
    WrongUsage = 2,
    /// A file could not be read or written, or has errors that left nothing to look at. The other files are processed
    /// all the same.
    FileFailure = 3
};

} // namespace Kova::Shell
