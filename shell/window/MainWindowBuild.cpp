// SPDX-License-Identifier: MIT
// How the window is put together, and the dialogs it opens.
#include "shell/messages/MessageLog.h"
#include "shell/pictures/PictureFormat.h"
#include "shell/views/ViewTable.h"
#include "shell/window/ConsolePane.h"
#include "shell/window/KeysDialog.h"
#include "shell/window/MainWindow.h"
#include "shell/window/ProgramTree.h"
#include "shell/window/RecentFiles.h"
#include "shell/window/SourcePane.h"
#include "shell/window/ViewPane.h"
#include "visualization/graphcore/GraphWidgetBase.h"

#include <QActionGroup>
#include <QDockWidget>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QStackedWidget>
#include <QToolBar>
#include <QToolButton>

namespace Kova::Shell {

namespace {

QString sourceFilter() {
    return MainWindow::tr("C files (*.c *.h);;All files (*)");
}

} // namespace

void MainWindow::buildDocks() {
    auto* program = new QDockWidget(tr("Program"), this);
    program->setObjectName("program");
    program->setWidget(m_tree);
    addDockWidget(Qt::LeftDockWidgetArea, program);
    m_sourceDock->setObjectName("source");
    m_sourceDock->setWidget(m_source);
    addDockWidget(Qt::LeftDockWidgetArea, m_sourceDock);
    splitDockWidget(program, m_sourceDock, Qt::Vertical);
    auto* console = new QDockWidget(tr("Console"), this);
    console->setObjectName("console");
    console->setWidget(m_console);
    addDockWidget(Qt::BottomDockWidgetArea, console);
    m_panelDock->setObjectName("details");
    m_panelDock->setWidget(m_panels);
    addDockWidget(Qt::BottomDockWidgetArea, m_panelDock);
    connect(m_panelDock->toggleViewAction(), &QAction::triggered, this, [this](bool shown) { m_panelWanted = shown; });
    // Tables are wide, and the program's text is long.
    splitDockWidget(console, m_panelDock, Qt::Horizontal);
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    resizeDocks({program}, {400}, Qt::Horizontal);
    resizeDocks({program, m_sourceDock}, {220, 580}, Qt::Vertical);
    resizeDocks({console}, {200}, Qt::Vertical);
}

void MainWindow::buildMenus() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addActions({m_actions.open, m_actions.addFiles});
    file->addMenu(m_recent);
    file->addAction(m_actions.reload);
    file->addSeparator();
    file->addAction(m_actions.exportPicture);
    file->addSeparator();
    file->addAction(m_actions.quit);

    QMenu* view = menuBar()->addMenu(tr("&View"));
    for (const ViewKind& kind : getViewKinds()) {
        QAction* action = m_viewActions->addAction(kind.title);
        action->setCheckable(true);
        action->setChecked(&kind == m_kind);
        action->setData(kind.name);
        connect(action, &QAction::triggered, this, [this, &kind] { chooseView(kind); });
    }
    view->addActions(m_viewActions->actions());
    view->addSeparator();
    view->addActions({m_actions.zoomIn, m_actions.zoomOut, m_actions.resetZoom, m_actions.fit});
    view->addSeparator();
    for (QDockWidget* dock : findChildren<QDockWidget*>())
        view->addAction(dock->toggleViewAction());

    QMenu* help = menuBar()->addMenu(tr("&Help"));
    help->addActions({m_actions.keys, m_actions.about});
}

void MainWindow::buildToolBars() {
    QToolBar* file = addToolBar(tr("File"));
    file->setObjectName("fileToolBar");
    file->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    file->addActions({m_actions.open, m_actions.reload, m_actions.exportPicture});
    QToolBar* zoom = addToolBar(tr("Zoom"));
    zoom->setObjectName("zoomToolBar");
    zoom->addActions({m_actions.zoomOut, m_actions.resetZoom, m_actions.zoomIn, m_actions.fit});
    m_viewToolBar = addToolBar(tr("View"));
    m_viewToolBar->setObjectName("viewToolBar");
    for (QToolBar* bar : {file, zoom, m_viewToolBar})
        bar->setMovable(false);
}

void MainWindow::updateViewToolBar() {
    m_viewToolBar->clear();
    const View* view = m_pane->getView();
    if (view == nullptr)
        return;
    for (QAction* action : view->getActions()) {
        m_viewToolBar->addAction(action);
        auto* button = qobject_cast<QToolButton*>(m_viewToolBar->widgetForAction(action));
        if (action->menu() != nullptr && button != nullptr)
            button->setPopupMode(QToolButton::InstantPopup);
    }
}

// A view without a panel leaves its room to the picture; a person who closed the panel keeps it closed.
void MainWindow::updatePanel() {
    const View* view = m_pane->getView();
    QWidget* panel = view != nullptr ? view->getPanel() : nullptr;
    if (panel != nullptr) {
        m_panels->addWidget(panel);
        m_panels->setCurrentWidget(panel);
        m_panelDock->setWindowTitle(panel->windowTitle());
    }
    m_panelDock->toggleViewAction()->setEnabled(panel != nullptr);
    m_panelDock->setVisible(panel != nullptr && m_panelWanted);
    // Docks have no sizes before they are shown; after that they are the user's.
    if (panel != nullptr && m_panelWanted && !m_panelPlaced) {
        m_panelPlaced = true;
        resizeDocks({findChild<QDockWidget*>("console"), m_panelDock}, {200, 560}, Qt::Horizontal);
    }
}

void MainWindow::connectActions() {
    connect(m_actions.open, &QAction::triggered, this, &MainWindow::askAndOpen);
    connect(m_actions.addFiles, &QAction::triggered, this, &MainWindow::askAndAdd);
    connect(m_actions.reload, &QAction::triggered, this, &MainWindow::reload);
    connect(m_actions.exportPicture, &QAction::triggered, this, &MainWindow::askAndExport);
    connect(m_actions.quit, &QAction::triggered, this, &MainWindow::close);
    connect(m_actions.zoomIn, &QAction::triggered, m_pane, &ViewPane::zoomIn);
    connect(m_actions.zoomOut, &QAction::triggered, m_pane, &ViewPane::zoomOut);
    connect(m_actions.resetZoom, &QAction::triggered, m_pane, &ViewPane::resetZoom);
    connect(m_actions.fit, &QAction::triggered, m_pane, &ViewPane::fitToViewport);
    connect(m_actions.about, &QAction::triggered, this, &MainWindow::showAbout);
    connect(m_actions.keys, &QAction::triggered, this, &MainWindow::showKeys);
}

void MainWindow::restoreWindow() {
    resize(1200, 800);
    restoreGeometry(m_settings.value("geometry").toByteArray());
    m_panelPlaced = restoreState(m_settings.value("windowState").toByteArray());
    m_panelWanted = m_settings.value("panelWanted", true).toBool();
}

void MainWindow::askAndOpen() {
    const QStringList paths = QFileDialog::getOpenFileNames(this, tr("Open"), QString(), sourceFilter());
    if (!paths.isEmpty())
        tellUnlessRead(openFiles(paths), paths);
}

void MainWindow::askAndAdd() {
    const QStringList paths = QFileDialog::getOpenFileNames(this, tr("Add Files"), QString(), sourceFilter());
    if (!paths.isEmpty())
        tellUnlessRead(addFiles(paths), paths);
}

// Who asked by a dialog looks at the middle of the screen, not at the console.
void MainWindow::tellUnlessRead(bool success, const QStringList& paths) {
    if (!success)
        QMessageBox::warning(this, tr("Open"),
                             tr("Nothing could be read of %1. The console says why.").arg(paths.join(", ")));
}

void MainWindow::askAndExport() {
    const QString filter = tr("Pictures (%1)").arg("*" + pictureSuffixes().replace(" ", " *"));
    const QString path = QFileDialog::getSaveFileName(this, tr("Export"), m_kind->name + ".png", filter);
    if (!path.isEmpty())
        exportTo(path);
}

bool MainWindow::askForPatience(const QString& warning) {
    QMessageBox box(QMessageBox::Question, tr("Large Graph"), warning, QMessageBox::NoButton, this);
    box.setInformativeText(tr("Without it the blocks stand in rows, and their arrows cross."));
    const QPushButton* wait = box.addButton(tr("&Wait for It"), QMessageBox::AcceptRole);
    box.setDefaultButton(box.addButton(tr("&Do Without"), QMessageBox::RejectRole));
    QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    box.exec();
    QGuiApplication::restoreOverrideCursor();
    return box.clickedButton() == wait;
}

void MainWindow::showAbout() {
    QMessageBox::about(this, tr("About kova-shell"),
                       tr("<p><b>kova-shell %1</b></p><p>Shows what a parallelizing compiler sees in a program.</p>")
                           .arg(KOVA_VERSION));
}

void MainWindow::showKeys() {
    KeysDialog(m_actions.all(), this).exec();
}

} // namespace Kova::Shell
