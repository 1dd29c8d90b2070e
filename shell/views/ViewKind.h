// SPDX-License-Identifier: MIT
#pragma once

#include "shell/program/SubjectFinder.h"
#include "shell/views/View.h"

#include <QString>

#include <memory>

namespace Kova::Shell {

/// What is known of a view before there is one.
struct ViewKind {
    /// As on the command line: "call-graph".
    QString name;
    /// For menus: "Call Graph".
    QString title;
    /// What it looks at when the user names nothing, or a line.
    SubjectPreference preference;
    /// Whether the view can show the subject.
    bool (*takes)(const Subject& subject) = nullptr;
    /// Whether a picture of the subject is worth a place in a gallery of everything. Asked for what the view takes.
    bool (*isWorthExporting)(const Subject& subject) = nullptr;
    std::unique_ptr<View> (*create)() = nullptr;
};

} // namespace Kova::Shell
