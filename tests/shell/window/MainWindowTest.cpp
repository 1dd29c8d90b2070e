// SPDX-License-Identifier: MIT
#include "shell/window/MainWindow.h"

#include "shell/window/ConsolePane.h"
#include "shell/window/ProgramTree.h"
#include "shell/window/RecentFiles.h"
#include "shell/window/SourcePane.h"
#include "shell/window/ViewPane.h"
#include "shell/window/WelcomePage.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "tests/shell/ShellTesting.h"
#include "visualization/callgraph/Node.h"
#include "visualization/graphcore/GenericGraphWidgetBase.h"
#include "visualization/sourceselector/SourceSelector.h"
#include "visualization/sourceselector/SourceSelectorEx.h"

#include <QAction>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDockWidget>
#include <QDropEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QSettings>
#include <QScrollBar>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QtTest>

namespace Kova::Shell {

namespace {

constexpr auto source = Testing::callInALoop;

/// A chain of calls: a picture that does not fit a window.
QByteArray chain(int length) {
    QByteArray text = "void f0(void) {}\n";
    for (int i = 1; i < length; ++i)
        text += "void f" + QByteArray::number(i) + "(void) { f" + QByteArray::number(i - 1) + "(); }\n";
    return text;
}

} // namespace

class MainWindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void startsEmpty();
    void opensAndShowsTheProgram();
    void startTakesViewFunctionAndLine();
    void startWithoutSuchASubroutine();
    void startWithoutAnySubroutine();
    void pickingInTheTreeShowsIt();
    void failedOpenLeavesTheOldProgram();
    void partlyReadFilesAreShownWithTheirErrors();
    void aDiagnosticLeadsToItsPlace();
    void reloadKeepsSubjectAndPosition();
    void reloadAfterTheSubjectWent();
    void addedFilesJoinTheProgram();
    void droppedFilesAreOpened();
    void otherDropsAreRefused();
    void recentFiles();
    void settingsKeepTheWindow();
    void toolBarHasTheViewsActions();
    void contextMenuHasTheViewsActions();
    void exportWritesThePicture();
    void zoomIsInTheStatusBar();
    void messagesOfTheViewAreInTheConsole();
    void menusHaveWhatTheyShould();
    void theSourceShowsTheSubject();
    void pickingInTheSourceShowsIt();
    void pickingInTheViewMarksTheSource();
    void doubleClicksInTheTreeShowTheSource();
    void theSourceForgetsTheProgram();

private:
    [[nodiscard]] std::unique_ptr<MainWindow> makeWindow();
    [[nodiscard]] QLabel& field(const char* name) const { return *m_window->findChild<QLabel*>(name); }
    [[nodiscard]] ProgramTree& tree() const { return *m_window->findChild<ProgramTree*>(); }
    [[nodiscard]] ViewPane& pane() const { return *m_window->findChild<ViewPane*>(); }
    [[nodiscard]] ConsolePane& console() const { return *m_window->findChild<ConsolePane*>(); }
    [[nodiscard]] QAction& action(const QString& text) const;
    [[nodiscard]] QString lastLine() const { return console().item(console().count() - 1)->text(); }

    std::unique_ptr<Testing::SourceFolder> m_folder;
    std::unique_ptr<QSettings> m_settings;
    std::unique_ptr<MainWindow> m_window;
};

void MainWindowTest::init() {
    m_folder = std::make_unique<Testing::SourceFolder>();
    m_settings = std::make_unique<QSettings>(m_folder->path("settings.ini"), QSettings::IniFormat);
    m_window = makeWindow();
}

// The folder goes last: settings are written when they go, and would make it anew.
void MainWindowTest::cleanup() {
    m_window.reset();
    m_settings.reset();
    const QString path = m_folder->path({});
    m_folder.reset();
    QVERIFY(!QFile::exists(path));
}

std::unique_ptr<MainWindow> MainWindowTest::makeWindow() {
    auto window = std::make_unique<MainWindow>(*m_settings, Frontends::COptions());
    window->show();
    return window;
}

QAction& MainWindowTest::action(const QString& text) const {
    for (QAction* action : m_window->findChildren<QAction*>())
        if (action->text().remove('&') == text)
            return *action;
    qFatal("no action %s", qPrintable(text));
}

void MainWindowTest::startsEmpty() {
    QCOMPARE(m_window->size(), QSize(1200, 800));
    QCOMPARE(m_window->windowTitle(), QString("Kova"));
    QVERIFY(qobject_cast<WelcomePage*>(pane().currentWidget()) != nullptr);
    QCOMPARE(tree().getModel().rowCount(), 0);
    QVERIFY(!action("Reload").isEnabled());
    QVERIFY(!action("Export...").isEnabled());
    QVERIFY(action("Open...").isEnabled());
    QVERIFY(field("zoom").isHidden());
    QVERIFY(m_window->start(Options()) == Done);
}

void MainWindowTest::opensAndShowsTheProgram() {
    QVERIFY(m_window->openFiles({m_folder->write("a.c", source)}));
    QCOMPARE(m_window->windowTitle(), QString("a.c - Kova"));
    QVERIFY(pane().getWidget()->isBuilded());
    QCOMPARE(tree().getModel().rowCount(), 1);
    QCOMPARE(tree().currentIndex().data().toString(), QString("a.c"));
    QCOMPARE(field("subject").text(), QString("program"));
    QCOMPARE(field("summary").text(), QString("2 procedures, 1 call"));
    QCOMPARE(field("files").text(), QString("1 file"));
    QVERIFY(action("Reload").isEnabled());
    QVERIFY(lastLine().startsWith("Read "));
}

void MainWindowTest::startTakesViewFunctionAndLine() {
    Options options;
    options.view = "call-graph";
    options.files = QStringList(m_folder->write("a.c", source));
    options.subject.line = 4;
    QVERIFY(m_window->start(options) == Done);
    QCOMPARE(field("subject").text(), QString("loop at line 4 in main"));
    QCOMPARE(tree().currentIndex().data().toString(), QString("for loop"));
    options.files.append(m_folder->path("missing.c"));
    QVERIFY(m_window->start(options) == FileFailure);
    QCOMPARE(field("subject").text(), QString("loop at line 4 in main"));
    options.files = QStringList(m_folder->path("missing.c"));
    QVERIFY(makeWindow()->start(options) == FileFailure);
}

void MainWindowTest::startWithoutSuchASubroutine() {
    Options options;
    options.files = QStringList(m_folder->write("a.c", source));
    options.subject.function = "nowhere";
    QVERIFY(m_window->start(options) == WrongUsage);
}

// A program without subroutines has nothing for a view of blocks, and the window stays open.
void MainWindowTest::startWithoutAnySubroutine() {
    Options options;
    options.view = "lamport-dependences";
    options.files = QStringList(m_folder->write("a.c", "int x;\n"));
    QVERIFY(m_window->start(options) == Done);
    QCOMPARE(field("subject").text(), QString());
    QCOMPARE(m_window->windowTitle(), QString("a.c - Kova"));
}

void MainWindowTest::pickingInTheTreeShowsIt() {
    QVERIFY(m_window->openFiles({m_folder->write("a.c", source)}));
    const QModelIndex file = tree().getModel().index(0, 0);
    const QModelIndex leaf = tree().getModel().index(0, 0, file);
    const QModelIndex main = tree().getModel().index(1, 0, file);
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, tree().visualRect(leaf).center());
    QCOMPARE(field("subject").text(), QString("subroutine leaf"));
    QCOMPARE(field("summary").text(), QString("1 procedure, 0 calls"));
    tree().setCurrentIndex(tree().getModel().index(0, 0, main));
    QCOMPARE(field("subject").text(), QString("loop at line 4 in main"));
    QCOMPARE(field("summary").text(), QString("2 procedures, 1 call"));
    tree().setCurrentIndex(file);
    QCOMPARE(field("subject").text(), QString("program"));
}

void MainWindowTest::failedOpenLeavesTheOldProgram() {
    QVERIFY(m_window->openFiles({m_folder->write("a.c", source)}));
    tree().setCurrentIndex(tree().getModel().index(1, 0, tree().getModel().index(0, 0)));
    const QString missing = m_folder->path("missing.c");
    QVERIFY(!m_window->openFiles({missing}));
    QCOMPARE(m_window->windowTitle(), QString("a.c - Kova"));
    QCOMPARE(field("subject").text(), QString("subroutine main"));
    QVERIFY(pane().getWidget()->isBuilded());
    QVERIFY(m_window->statusBar()->currentMessage().contains(missing));
    QVERIFY(console().item(console().count() - 2)->text().startsWith(missing + ": error: "));
    QVERIFY(lastLine().startsWith("Nothing could be read"));
}

void MainWindowTest::partlyReadFilesAreShownWithTheirErrors() {
    const QString file = m_folder->write("a.c", "int good(void) { return 1; }\nint bad(void) { return x; }\n");
    QVERIFY(m_window->openFiles({file, m_folder->path("missing.c")}));
    QVERIFY(pane().getWidget()->isBuilded());
    QCOMPARE(console().item(0)->text().left(file.size() + 14), file + ":2:24: error: ");
    QCOMPARE(lastLine(), QString("1 of 2 files could not be read."));
}

void MainWindowTest::aDiagnosticLeadsToItsPlace() {
    const QString file = m_folder->write("a.c", "int good(void) { return 1; }\nint bad(void) { return x; }\n");
    QVERIFY(m_window->openFiles({file}));
    Q_EMIT console().placePicked(file, 2);
    QCOMPARE(field("subject").text(), QString("subroutine bad"));
    QCOMPARE(tree().currentIndex().data().toString(), QString("bad"));
    Q_EMIT console().placePicked(file, 99);
    QCOMPARE(field("subject").text(), QString("subroutine bad"));
}

void MainWindowTest::reloadKeepsSubjectAndPosition() {
    m_folder->write("a.c", chain(40));
    QVERIFY(m_window->openFiles({m_folder->path("a.c")}));
    tree().setCurrentIndex(tree().getModel().index(39, 0, tree().getModel().index(0, 0)));
    QCOMPARE(field("subject").text(), QString("subroutine f39"));
    pane().setPosition({2.5, 210, 170});
    QCOMPARE(pane().getPosition().x, 210);
    m_folder->write("a.c", "int added;\n" + chain(40));
    QApplication::setActiveWindow(m_window.get());
    QTest::keyClick(m_window.get(), Qt::Key_F5);
    QCOMPARE(field("subject").text(), QString("subroutine f39"));
    QCOMPARE(tree().currentIndex().data().toString(), QString("f39"));
    QCOMPARE(tree().currentIndex().sibling(39, 1).data().toString(), QString("41"));
    QCOMPARE(pane().getPosition().scale, 2.5);
    QCOMPARE(pane().getPosition().x, 210);
    QCOMPARE(pane().getPosition().y, 170);
    QCOMPARE(field("zoom").text(), QString("250 %"));
}

void MainWindowTest::reloadAfterTheSubjectWent() {
    m_folder->write("a.c", source);
    QVERIFY(m_window->openFiles({m_folder->path("a.c")}));
    tree().setCurrentIndex(tree().getModel().index(0, 0, tree().getModel().index(0, 0)));
    m_folder->write("a.c", "int other(void) { return 0; }\n");
    QVERIFY(m_window->reload());
    QCOMPARE(field("subject").text(), QString("program"));
    QVERIFY(QFile::remove(m_folder->path("a.c")));
    QVERIFY(!m_window->reload());
    QVERIFY(pane().getWidget()->isBuilded());
}

void MainWindowTest::addedFilesJoinTheProgram() {
    QVERIFY(m_window->openFiles({m_folder->write("a.c", source)}));
    QVERIFY(m_window->addFiles({m_folder->write("b.c", "int b(void) { return 0; }\n")}));
    QCOMPARE(tree().getModel().rowCount(), 2);
    QCOMPARE(field("files").text(), QString("2 files"));
    QCOMPARE(field("summary").text(), QString("3 procedures, 1 call"));
}

void MainWindowTest::droppedFilesAreOpened() {
    const QString file = m_folder->write("a.c", source);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(file)});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_window.get(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_window.get(), &drop);
    QVERIFY(drop.isAccepted());
    QCOMPARE(m_window->windowTitle(), QString("a.c - Kova"));
}

void MainWindowTest::otherDropsAreRefused() {
    QMimeData data;
    data.setUrls({QUrl("https://example.org/a.c")});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QCoreApplication::sendEvent(m_window.get(), &enter);
    QVERIFY(!enter.isAccepted());
}

void MainWindowTest::recentFiles() {
    const QString a = m_folder->write("a.c", source);
    const QString b = m_folder->write("b.c", source);
    QVERIFY(m_window->openFiles({a}));
    QVERIFY(m_window->openFiles({b}));
    auto* recent = m_window->findChild<RecentFiles*>();
    QCOMPARE(recent->getPaths(), QStringList({b, a}));
    recent->actions().at(1)->trigger();
    QCOMPARE(m_window->windowTitle(), QString("a.c - Kova"));
    QCOMPARE(recent->getPaths(), QStringList({a, b}));
    QVERIFY(QFile::remove(b));
    recent->actions().at(1)->trigger();
    QCOMPARE(recent->getPaths(), QStringList(a)); // what cannot be opened goes
}

void MainWindowTest::settingsKeepTheWindow() {
    m_window->resize(900, 650);
    m_window->close();
    m_window.reset();
    m_window = makeWindow();
    QCOMPARE(m_window->size(), QSize(900, 650));
}

void MainWindowTest::toolBarHasTheViewsActions() {
    const auto* bar = m_window->findChild<QToolBar*>("viewToolBar");
    QVERIFY(bar->actions().isEmpty());
    QVERIFY(m_window->openFiles({m_folder->write("a.c", source)}));
    QCOMPARE(bar->actions(), pane().getWidget()->actions());
    QCOMPARE(bar->actions().size(), 3);
    QCOMPARE(bar->actions().at(0)->text(), QString("Hide orphans"));
}

void MainWindowTest::contextMenuHasTheViewsActions() {
    QVERIFY(m_window->openFiles({m_folder->write("a.c", source)}));
    QList<QAction*> shown;
    QTimer::singleShot(0, this, [&shown] {
        if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
            shown = menu->actions();
            menu->close();
        }
    });
    QWidget* viewport = pane().getWidget()->viewport();
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(3, 3), viewport->mapToGlobal(QPoint(3, 3)));
    QCoreApplication::sendEvent(viewport, &event);
    QCOMPARE(shown, pane().getWidget()->actions());
}

void MainWindowTest::exportWritesThePicture() {
    QVERIFY(m_window->openFiles({m_folder->write("a.c", source)}));
    QVERIFY(m_window->exportTo(m_folder->path("a.png")));
    QCOMPARE(QImage(m_folder->path("a.png")).size(), pane().getWidget()->getGraphSize());
    QVERIFY(!m_window->exportTo("/nowhere/a.png"));
    QVERIFY(lastLine().contains("/nowhere/a.png"));
    QVERIFY(!m_window->exportTo(m_folder->path("a.gif")));
    QVERIFY(lastLine().contains(".png .xpm .svg"));
}

void MainWindowTest::zoomIsInTheStatusBar() {
    QVERIFY(m_window->openFiles({m_folder->write("a.c", source)}));
    action("Original Size").trigger();
    QCOMPARE(field("zoom").text(), QString("100 %"));
    action("Zoom In").trigger();
    QCOMPARE(field("zoom").text(), QString("110 %"));
    action("Fit").trigger();
    QCOMPARE(field("zoom").text(), QString("%1 %").arg(qRound(pane().getWidget()->getScale() * 100)));
}

void MainWindowTest::messagesOfTheViewAreInTheConsole() {
    QVERIFY(m_window->openFiles({m_folder->write("a.c", "int x;\n")}));
    QVERIFY(!pane().getWidget()->isBuilded());
    QStringList lines;
    for (int row = 0; row < console().count(); ++row)
        lines.append(console().item(row)->text());
    QVERIFY(lines.contains("CallGraphVisual: Procedure Call graph was not created. Visualization interrupted."));
}

void MainWindowTest::menusHaveWhatTheyShould() {
    QStringList titles;
    for (const QAction* menu : m_window->menuBar()->actions())
        titles.append(menu->text().remove('&'));
    QCOMPARE(titles, QStringList({"File", "View", "Help"}));
    for (const char* text : {"Open...", "Add Files...", "Recent Files", "Reload", "Export...", "Quit", "Call Graph",
                             "Zoom In", "Zoom Out", "Original Size", "Fit", "About", "Keys"})
        QVERIFY(!action(text).text().isEmpty());
    QVERIFY(action("Call Graph").isChecked());
    action("Call Graph").trigger();
    QVERIFY(action("Call Graph").isChecked());
    action("Quit").trigger();
    QVERIFY(!m_window->isVisible());
}

void MainWindowTest::theSourceShowsTheSubject() {
    QVERIFY(m_window->openFiles({m_folder->write("a.c", source)}));
    auto& sourcePane = *m_window->findChild<SourcePane*>();
    const GUI::SourceSelector& selector = *sourcePane.getBrowser().getSelector();
    QVERIFY(selector.getText().getLineCount() > 0);
    QCOMPARE(selector.getMark(0), nullptr);
    ProgramTree& programTree = tree();
    // The second subroutine, `main`.
    programTree.setCurrentIndex(programTree.model()->index(1, 0, programTree.model()->index(0, 0)));
    QVERIFY(selector.getMark(0) != nullptr);
    QCOMPARE(selector.getMark(0)->getSourceRange().beginLine, 2U);
}

void MainWindowTest::pickingInTheSourceShowsIt() {
    QVERIFY(m_window->openFiles({m_folder->write("a.c", source)}));
    auto& sourcePane = *m_window->findChild<SourcePane*>();
    GUI::SourceSelector& selector = *sourcePane.getBrowser().getSelector();
    // The statement of line 5, as it is printed.
    Tessel::TesselBase* node = nullptr;
    for (int line = 0; line < selector.getText().getLineCount(); ++line)
        for (const GUI::SourceText::Part& part : selector.getText().getLine(line))
            if (part.text == "s")
                node = part.node;
    QVERIFY(node != nullptr);
    selector.setMark(node, 0);
    QCOMPARE(field("subject").text(), QString("statement at line 6 in main"));
    // The mark stays on what was picked.
    QCOMPARE(selector.getMark(0), node);
    // A view of blocks shows the block around it.
    for (QAction* chosen : m_window->findChildren<QAction*>())
        if (chosen->data().toString() == "lamport-dependences")
            chosen->trigger();
    QCOMPARE(field("subject").text(), QString("statement at line 6 in main"));
    for (int line = 0; line < selector.getText().getLineCount(); ++line)
        for (const GUI::SourceText::Part& part : selector.getText().getLine(line))
            if (part.text == "leaf" && part.node->getSourceRange().beginLine == 5)
                node = part.node;
    selector.setMark(node, 0);
    QCOMPARE(field("subject").text(), QString("block at line 5 in main"));
}

void MainWindowTest::pickingInTheViewMarksTheSource() {
    QVERIFY(m_window->openFiles({m_folder->write("a.c", source)}));
        const GUI::SourceSelector& selector = *m_window->findChild<SourcePane*>()->getBrowser().getSelector();
    auto& widget = static_cast<GUI::GenericGraph::GenericGraphWidgetBase&>(*pane().getWidget());
    const auto* node = static_cast<const GUI::CallGraph::Node*>(widget.getNodes().front());
    const QPoint middle = node->getRect().center() - QPoint(widget.horizontalScrollBar()->value(),
                                                            widget.verticalScrollBar()->value());
    QTest::mouseClick(widget.viewport(), Qt::LeftButton, Qt::NoModifier, middle);
    QCOMPARE(selector.getMark(4), static_cast<Tessel::TesselBase*>(node->getProcedure()));
    QVERIFY(selector.isNodeSelected(*node->getProcedure()));
    QTest::mouseClick(widget.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(1, 1));
    QVERIFY(selector.isNodeSelected(*node->getProcedure()));
}

void MainWindowTest::doubleClicksInTheTreeShowTheSource() {
    QVERIFY(m_window->openFiles({m_folder->write("a.c", source)}));
    auto& sourcePane = *m_window->findChild<SourcePane*>();
    auto* dock = m_window->findChild<QDockWidget*>("source");
    QVERIFY(dock != nullptr);
    dock->hide();
    sourcePane.setCurrentIndex(1);
    ProgramTree& programTree = tree();
    const QModelIndex second = programTree.model()->index(1, 0, programTree.model()->index(0, 0));
    const QPoint place = programTree.visualRect(second).center();
    QTest::mouseClick(programTree.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QVERIFY(dock->isHidden());
    QTest::mouseDClick(programTree.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QVERIFY(!dock->isHidden());
    QCOMPARE(sourcePane.currentIndex(), 0);
    QCOMPARE(sourcePane.getBrowser().getSelector()->getMark(0)->getSourceRange().beginLine, 2U);
}

void MainWindowTest::theSourceForgetsTheProgram() {
    QVERIFY(m_window->openFiles({m_folder->write("a.c", source)}));
    auto& sourcePane = *m_window->findChild<SourcePane*>();
    const Tessel::TesselBase* before = sourcePane.getBrowser().getRootNode();
    QVERIFY(before != nullptr);
    sourcePane.getBrowser().getSelector()->grab();
    QVERIFY(m_window->reload());
    QVERIFY(sourcePane.getBrowser().getRootNode() != nullptr);
    sourcePane.getBrowser().getSelector()->grab();
    QVERIFY(m_window->openFiles({m_folder->write("b.c", "int only(void) { return 1; }\n")}));
    QCOMPARE(sourcePane.getBrowser().findChild<QComboBox*>()->count(), 1);
    QCOMPARE(sourcePane.getBrowser().findChild<QComboBox*>()->itemText(0), QString("only"));
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::MainWindowTest)
#include "MainWindowTest.moc"
