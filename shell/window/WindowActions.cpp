// SPDX-License-Identifier: MIT
#include "shell/window/WindowActions.h"

#include <QAction>
#include <QApplication>
#include <QStyle>

namespace Kova::Shell {

namespace {

QString translate(const char* text) {
    return QApplication::translate("WindowActions", text);
}

QAction* make(QWidget& window, const char* text, const QList<QKeySequence>& shortcuts, const char* tip) {
    auto* action = new QAction(translate(text), &window);
    action->setShortcuts(shortcuts);
    action->setStatusTip(translate(tip));
    return action;
}

} // namespace

WindowActions::WindowActions(QWidget& window)
    : open(make(window, "&Open...", {QKeySequence::Open}, "Read files instead of those that are open")),
      addFiles(make(window, "&Add Files...", {QKeySequence("Ctrl+Shift+O")}, "Read more files into the program")),
      reload(make(window, "&Reload", {QKeySequence("F5"), QKeySequence("Ctrl+R")}, "Read the files again")),
      exportPicture(make(window, "&Export...", {QKeySequence("Ctrl+E")}, "Write the picture to a file")),
      quit(make(window, "&Quit", {QKeySequence("Ctrl+Q")}, "Close the window")),
      zoomIn(make(window, "Zoom &In", {QKeySequence("Ctrl++"), QKeySequence("Ctrl+=")}, "Enlarge the picture")),
      zoomOut(make(window, "Zoom &Out", {QKeySequence("Ctrl+-")}, "Shrink the picture")),
      resetZoom(make(window, "&Original Size", {QKeySequence("Ctrl+1")}, "Show one unit of the picture as one pixel")),
      fit(make(window, "&Fit", {QKeySequence("Ctrl+0")}, "Show the whole picture")),
      about(make(window, "&About", {}, "What this program is")),
      keys(make(window, "&Keys", {QKeySequence("F1")}, "What keys and mouse do")) {
    const QStyle& style = *QApplication::style();
    open->setIcon(style.standardIcon(QStyle::SP_DialogOpenButton));
    reload->setIcon(style.standardIcon(QStyle::SP_BrowserReload));
    exportPicture->setIcon(style.standardIcon(QStyle::SP_DialogSaveButton));
    fit->setIconText(translate("Fit"));
    zoomIn->setIconText("+");
    zoomOut->setIconText("\u2212");
    resetZoom->setIconText("1:1");
}

QList<QAction*> WindowActions::all() const {
    return {open, addFiles, reload, exportPicture, quit, zoomIn, zoomOut, resetZoom, fit, about, keys};
}

QList<QAction*> WindowActions::ofProgram() const {
    return {reload, exportPicture, zoomIn, zoomOut, resetZoom, fit};
}

} // namespace Kova::Shell
