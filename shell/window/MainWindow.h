// SPDX-License-Identifier: MIT
#pragma once

#include "shell/commandline/ExitStatus.h"
#include "shell/commandline/Options.h"
#include "shell/program/ProgramSession.h"
#include "shell/window/StatusFields.h"
#include "shell/window/WindowActions.h"

#include <QMainWindow>

class QActionGroup;
class QDockWidget;
class QSettings;
class QStackedWidget;

namespace Kova::Shell {

class ConsolePane;
class MessageLog;
class ProgramTree;
class RecentFiles;
class SourcePane;
class ViewPane;
struct Picked;
struct ViewKind;

/// The window: the program and its text on the left, the view in the middle, what is to be said below.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    /// @param settings hold geometry and recent files; they live as long.
    MainWindow(QSettings& settings, const Frontends::COptions& reading);
    ~MainWindow() override;

    /// Opens what the command line names; messages go to standard error, too. Without files nothing happens.
    /// @return FileFailure when a file could not be read, WrongUsage when it has no such subroutine or line.
    ExitStatus start(const Options& options);

    /// Opens the files instead of those before, and shows the program. @return false, with the reasons in the console,
    /// when none could be read; the window stays as it was.
    bool openFiles(const QStringList& paths);
    bool addFiles(const QStringList& paths);
    /// Reads the files again and shows the same part of the program at the same place.
    bool reload();
    /// Writes the picture to a file; says in the console and the status bar what became of it.
    bool exportTo(const QString& path);

    /// Something went wrong: a line in the console and in the status bar.
    void reportFailure(const QString& text);

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void buildDocks();
    void buildMenus();
    void buildToolBars();
    void connectActions();
    void connectProgram();
    void restoreWindow();

    void askAndOpen();
    void askAndAdd();
    void askAndExport();
    /// @return whether the user wants to wait for what the warning is about.
    [[nodiscard]] bool askForPatience(const QString& warning);
    void showAbout();
    void showKeys();

    void report(const QString& text, int level);
    void finishReading(bool success, const QStringList& paths);
    void tellUnlessRead(bool success, const QStringList& paths);
    void forgetProgram();
    void takeProgram();
    [[nodiscard]] Subject chooseSubject() const;
    void showSubject(const Subject& subject);
    void showInView(const Subject& subject);
    void chooseView(const ViewKind& kind);
    void showPlace(const QString& file, int line);
    /// The view shows what is around a node of the source, and the node in it.
    void showNode(Tessel::TesselBase& node);
    void openSubject(const Subject& subject);
    void updateViewToolBar();
    void updatePanel();
    void updateStatus();

    QSettings& m_settings;
    ProgramSession m_session;
    WindowActions m_actions;
    StatusFields m_status;
    MessageLog* m_log;
    ViewPane* m_pane;
    ProgramTree* m_tree;
    ConsolePane* m_console;
    SourcePane* m_source;
    QDockWidget* m_sourceDock;
    /// Holds the panels of all views that have one, and shows that of the current view.
    QDockWidget* m_panelDock;
    QStackedWidget* m_panels;
    bool m_panelWanted = true;
    bool m_panelPlaced = false;
    RecentFiles* m_recent;
    QActionGroup* m_viewActions;
    QToolBar* m_viewToolBar = nullptr;
    const ViewKind* m_kind;
    Subject m_subject;
    /// What the next program is to show: the same as before, or what the command line names.
    SubjectFinder::Identity m_wanted;
    SubjectRequest m_request;
};

} // namespace Kova::Shell
