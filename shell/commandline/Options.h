// SPDX-License-Identifier: MIT
#pragma once

#include "frontends/c/CFrontend.h"
#include "shell/program/SubjectFinder.h"

#include <QString>
#include <QStringList>

namespace Kova::Shell {

/// What the user asked for on the command line.
struct Options {
    /// Empty: none was named.
    QString view;
    SubjectRequest subject;
    /// Empty: no picture.
    QString exportFile;
    /// Empty: no gallery.
    QString exportDirectory;
    bool describe = false;
    bool list = false;
    bool print = false;
    Frontends::COptions reading;
    QStringList files;

    /// True when the work is done without a window.
    [[nodiscard]] bool isBatch() const {
        return describe || list || print || !exportFile.isEmpty() || !exportDirectory.isEmpty();
    }
    /// True when one view of one subject is asked for without a window.
    [[nodiscard]] bool isAboutOneView() const { return describe || !exportFile.isEmpty(); }
};

} // namespace Kova::Shell
