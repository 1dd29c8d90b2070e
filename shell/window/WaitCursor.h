// SPDX-License-Identifier: MIT
#pragma once

#include <QGuiApplication>

namespace Kova::Shell {

/// Shows the wait cursor while it lives.
class WaitCursor {
public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

} // namespace Kova::Shell
