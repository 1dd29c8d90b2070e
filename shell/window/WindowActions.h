// SPDX-License-Identifier: MIT
#pragma once

#include <QList>

class QAction;
class QWidget;

namespace Kova::Shell {

/// The actions of the main window with their texts, shortcuts and tips; who connects them decides what they do.
struct WindowActions {
    /// The actions become children of the window.
    explicit WindowActions(QWidget& window);

    QAction* open;
    QAction* addFiles;
    QAction* reload;
    QAction* exportPicture;
    QAction* quit;
    QAction* zoomIn;
    QAction* zoomOut;
    QAction* resetZoom;
    QAction* fit;
    QAction* about;
    QAction* keys;

    [[nodiscard]] QList<QAction*> all() const;
    /// Those that need a program.
    [[nodiscard]] QList<QAction*> ofProgram() const;
};

} // namespace Kova::Shell
