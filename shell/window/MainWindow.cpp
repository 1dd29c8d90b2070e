// SPDX-License-Identifier: MIT
#include "shell/window/MainWindow.h"

#include "environment/core/Console.h"
#include "environment/tessel/ProgramUnit.h"
#include "shell/commandline/StandardStreams.h"
#include "shell/messages/MessageLog.h"
#include "shell/pictures/Picture.h"
#include "shell/views/ViewTable.h"
#include "shell/window/ConsolePane.h"
#include "shell/window/ProgramTree.h"
#include "shell/window/RecentFiles.h"
#include "shell/window/SourcePane.h"
#include "shell/window/ViewPane.h"
#include "shell/window/WaitCursor.h"
#include "visualization/graphcore/GraphWidgetBase.h"

#include <QActionGroup>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QSettings>
#include <QStackedWidget>
#include <QStatusBar>

namespace Kova::Shell {

namespace {

QStringList localFiles(const QMimeData& data) {
    QStringList paths;
    for (const QUrl& url : data.urls())
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    return paths;
}

template <class Action>
auto whileWaiting(Action action) {
    const WaitCursor cursor;
    return action();
}

} // namespace

MainWindow::MainWindow(QSettings& settings, const Frontends::COptions& reading)
    : m_settings(settings),
      m_session(reading),
      m_actions(*this),
      m_status(*statusBar()),
      m_log(new MessageLog(this)),
      m_pane(new ViewPane(this)),
      m_tree(new ProgramTree(this)),
      m_console(new ConsolePane(this)),
      m_source(new SourcePane(this)),
      m_sourceDock(new QDockWidget(tr("Source"), this)),
      m_panelDock(new QDockWidget(tr("Details"), this)),
      m_panels(new QStackedWidget(m_panelDock)),
      m_recent(new RecentFiles(settings, this)),
      m_viewActions(new QActionGroup(this)),
      m_kind(&getViewKinds().front()) {
    setAcceptDrops(true);
    setCentralWidget(m_pane);
    buildDocks();
    buildMenus();
    buildToolBars();
    connectActions();
    connectProgram();
    restoreWindow();
    takeProgram();
}

// The views go before the program that they show.
MainWindow::~MainWindow() {
    disconnect(&m_session, nullptr, this, nullptr);
    disconnect(m_pane, nullptr, this, nullptr);
    m_source->forgetProgram();
    m_tree->forgetProgram();
    delete m_pane;
}

void MainWindow::connectProgram() {
    connect(m_log, &MessageLog::messageAppended, m_console, qOverload<const Message&>(&ConsolePane::append));
    connect(&m_session, &ProgramSession::fileRead, this, [this](const OpenedProgram& program) {
        for (const Tessel::Diagnostic& diagnostic : program.getUnit().getDiagnostics())
            m_console->append(diagnostic);
    });
    connect(&m_session, &ProgramSession::programAboutToChange, this, &MainWindow::forgetProgram);
    connect(&m_session, &ProgramSession::programChanged, this, &MainWindow::takeProgram);
    connect(m_tree, &ProgramTree::subjectPicked, this, &MainWindow::showSubject);
    connect(m_tree, &ProgramTree::subjectOpened, this, &MainWindow::openSubject);
    connect(m_source, &SourcePane::nodePicked, this, [this](Tessel::TesselBase* node) { showNode(*node); });
    connect(m_pane, &ViewPane::picked, this,
            [this](const Picked& what) { m_source->showPicked(what.node, what.other); });
    m_pane->setPatienceListener([this](const QString& warning) { return askForPatience(warning); });
    connect(m_console, &ConsolePane::placePicked, this, &MainWindow::showPlace);
    connect(m_recent, &RecentFiles::filePicked, this, [this](const QString& path) {
        if (!openFiles({path}))
            m_recent->remove(path);
    });
    connect(m_pane, &ViewPane::scaleChanged, this, [this](double scale) { m_status.setScale(scale); });
}

ExitStatus MainWindow::start(const Options& options) {
    if (!options.view.isEmpty())
        chooseView(*findViewKind(options.view));
    if (options.files.isEmpty())
        return Done;
    const auto printing = connect(&m_session, &ProgramSession::fileRead, this, [](const OpenedProgram& program) {
        for (const std::string& line : program.getDiagnosticTexts())
            printErrorLine(line);
    });
    m_request = options.subject;
    const bool success = openFiles(options.files);
    m_request = SubjectRequest();
    disconnect(printing);
    if (!success)
        return FileFailure;
    const FoundSubject found = SubjectFinder(m_session.getProgram()).find(options.subject, m_kind->preference);
    if (!found.error.isEmpty() && options.subject.namesSomething()) {
        printMessage(found.error);
        return WrongUsage;
    }
    return m_session.getProgram().hasUnreadableFile() ? FileFailure : Done;
}

bool MainWindow::openFiles(const QStringList& paths) {
    const bool success = whileWaiting([&] { return m_session.open(paths); });
    finishReading(success, paths);
    return success;
}

bool MainWindow::addFiles(const QStringList& paths) {
    const bool success = whileWaiting([&] { return m_session.add(paths); });
    finishReading(success, paths);
    return success;
}

bool MainWindow::reload() {
    m_wanted = SubjectFinder::identify(m_subject);
    const ViewPane::Position position = m_pane->getPosition();
    const bool success = whileWaiting([&] { return m_session.reload(); });
    m_wanted = SubjectFinder::Identity();
    finishReading(success, m_session.getPaths());
    if (success)
        m_pane->setPosition(position);
    return success;
}

void MainWindow::finishReading(bool success, const QStringList& paths) {
    if (!success) {
        report(tr("Nothing could be read of %1.").arg(paths.join(", ")), Console::Error);
        return;
    }
    QStringList readable;
    int unreadable = 0;
    for (const OpenedFile& file : m_session.getProgram().getFiles()) {
        if (file.state == OpenedFile::State::Unreadable)
            ++unreadable;
        else if (paths.contains(file.path))
            readable.append(file.path);
    }
    m_recent->add(readable);
    const int count = static_cast<int>(m_session.getPaths().size());
    if (unreadable > 0)
        report(tr("%1 of %2 files could not be read.").arg(unreadable).arg(count), Console::Error);
    else
        report(count == 1 ? tr("Read %1.").arg(m_session.getPaths().front()) : tr("Read %1 files.").arg(count),
               Console::Info);
}

bool MainWindow::exportTo(const QString& path) {
    GUI::GraphWidgetBase* widget = m_pane->getWidget();
    if (widget == nullptr)
        return false;
    const QString error = exportPicture(*widget, path);
    if (error.isEmpty())
        report(tr("Wrote %1.").arg(path), Console::Info);
    else
        report(error, Console::Error);
    return error.isEmpty();
}

void MainWindow::reportFailure(const QString& text) {
    report(text, Console::Error);
}

void MainWindow::report(const QString& text, int level) {
    m_console->append(Message{QString(), level, text});
    statusBar()->showMessage(text, 10000);
}

void MainWindow::forgetProgram() {
    m_subject = Subject();
    m_source->forgetProgram();
    m_pane->clearViews();
    m_tree->forgetProgram();
}

void MainWindow::takeProgram() {
    const OpenedProgram& program = m_session.getProgram();
    const bool hasProgram = !program.getFiles().empty();
    for (QAction* action : m_actions.ofProgram())
        action->setEnabled(hasProgram);
    setWindowTitle(hasProgram ? tr("%1 - Kova").arg(QFileInfo(program.getFiles().front().path).fileName())
                              : tr("Kova"));
    if (hasProgram) {
        m_tree->setProgram(program);
        showSubject(chooseSubject());
    } else {
        updateViewToolBar();
        updatePanel();
        updateStatus();
    }
}

// Chosen before anything is shown: to lay out a large program only to show a part of it would be a long wait.
Subject MainWindow::chooseSubject() const {
    const SubjectFinder finder(m_session.getProgram());
    if (m_wanted.kind != Subject::Kind::None)
        return finder.findAgain(m_wanted);
    const FoundSubject found = finder.find(m_request, m_kind->preference);
    return found.error.isEmpty() ? found.subject : finder.find({}, m_kind->preference).subject;
}

// A subject that the view cannot show gives way to what the view looks at when nothing is named.
void MainWindow::showSubject(const Subject& subject) {
    if (m_session.getProgram().getFiles().empty())
        return;
    const WaitCursor cursor;
    showInView(m_kind->takes(subject)
                   ? subject
                   : SubjectFinder(m_session.getProgram()).find({}, m_kind->preference).subject);
    m_source->showSubject(m_subject);
}

void MainWindow::showInView(const Subject& subject) {
    m_subject = subject;
    m_log->clear();
    m_pane->show(*m_kind, m_subject);
    m_tree->showSubject(m_subject);
    updateViewToolBar();
    updatePanel();
    updateStatus();
}

void MainWindow::chooseView(const ViewKind& kind) {
    m_kind = &kind;
    for (QAction* action : m_viewActions->actions())
        action->setChecked(action->data().toString() == kind.name);
    m_tree->setShowsBlocks(kind.preference.atLine == Subject::Kind::Block);
    showSubject(m_subject);
}

void MainWindow::showPlace(const QString& file, int line) {
    const Subject subject = SubjectFinder(m_session.getProgram()).findAround(file, line);
    if (subject.getKind() != Subject::Kind::None)
        showSubject(subject);
    else
        statusBar()->showMessage(tr("%1:%2 is in no subroutine.").arg(file).arg(line), 5000);
}

// What is marked stays marked: it may be less than what the view shows.
void MainWindow::showNode(Tessel::TesselBase& node) {
    const Subject::Kind wanted = m_kind->preference.whenPointedAt;
    const Subject subject = SubjectFinder::subjectAt(node, wanted);
    const bool isShown = wanted == Subject::Kind::Subroutine ? m_subject.holds(node) : subject == m_subject;
    if (m_kind->takes(subject) && !isShown) {
        const WaitCursor cursor;
        showInView(subject);
    }
    if (View* view = m_pane->getView())
        view->selectNode(node);
}

void MainWindow::openSubject(const Subject& subject) {
    m_sourceDock->show();
    m_sourceDock->raise();
    m_source->showText();
    m_source->showSubject(subject);
}

void MainWindow::updateStatus() {
    const View* view = m_pane->getView();
    m_status.setSubject(m_subject.getTitle());
    m_status.setSummary(view != nullptr ? view->summarize() : QString());
    m_status.setFileCount(static_cast<int>(m_session.getProgram().getFiles().size()));
    if (view != nullptr)
        m_status.setScale(view->getWidget().getScale());
    else
        m_status.hideScale();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    m_settings.setValue("geometry", saveGeometry());
    m_settings.setValue("windowState", saveState());
    m_settings.setValue("panelWanted", m_panelWanted);
    QMainWindow::closeEvent(event);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!localFiles(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    const QStringList paths = localFiles(*event->mimeData());
    if (paths.isEmpty())
        return;
    event->acceptProposedAction();
    openFiles(paths);
}

} // namespace Kova::Shell
