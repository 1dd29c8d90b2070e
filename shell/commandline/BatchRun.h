// SPDX-License-Identifier: MIT
#pragma once

#include "shell/commandline/ExitStatus.h"
#include "shell/commandline/Options.h"
#include "shell/program/OpenedProgram.h"

namespace Kova::Shell {

class View;
struct ViewKind;

/// Does what a command line asks for without a window.
class BatchRun {
public:
    /// @param options must be batch options and live as long.
    explicit BatchRun(const Options& options) : m_options(options) {}

    /// Reads the files and does all that is asked for, as far as it can be done. Messages go to standard error.
    [[nodiscard]] ExitStatus run();

private:
    [[nodiscard]] ExitStatus list() const;
    [[nodiscard]] ExitStatus print() const;
    [[nodiscard]] ExitStatus showView() const;
    [[nodiscard]] ExitStatus showSubject(const ViewKind& kind, const Subject& subject) const;
    [[nodiscard]] ExitStatus writeGallery() const;

    const Options& m_options;
    OpenedProgram m_program;
};

} // namespace Kova::Shell
