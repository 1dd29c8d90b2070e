// SPDX-License-Identifier: MIT
// The views of control flow in the window: what is picked there and in the source, and the question before long waits.
#include "environment/tessel/StatementBase.h"
#include "shell/window/MainWindow.h"
#include "shell/window/SourcePane.h"
#include "shell/window/ViewPane.h"
#include "tests/shell/ShellTesting.h"
#include "visualization/controlflow/ControlFlowGraphExprWidget.h"
#include "visualization/controlflow/ControlFlowGraphWidget.h"
#include "visualization/sourceselector/SourceSelector.h"
#include "visualization/sourceselector/SourceSelectorEx.h"
#include "visualization/textgraph/NodeBase.h"

#include <QAbstractButton>
#include <QLabel>
#include <QMessageBox>
#include <QScrollBar>
#include <QSettings>
#include <QTimer>
#include <QToolBar>
#include <QtTest>

namespace Kova::Shell {

using GUI::ControlFlowGraph::ControlFlowGraphWidget;
using GUI::ControlFlowGraphExpr::ControlFlowGraphExprWidget;
using Testing::FakeGraphviz;

class ControlFlowWindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void clickingALineMarksItsStatement();
    void clickingABlockMarksItsExpression();
    void picksInTheSourceStayInThePicture();
    void picksElsewhereShowTheSubroutine();
    void theToolBarHidesTheOutside();
    void largeGraphsAreAskedFor_data();
    void largeGraphsAreAskedFor();

private:
    void start(const QByteArray& source, const QString& view);
    [[nodiscard]] ViewPane& pane() const { return *m_window->findChild<ViewPane*>(); }
    [[nodiscard]] GUI::SourceSelector& selector() const {
        return *m_window->findChild<SourcePane*>()->getBrowser().getSelector();
    }
    [[nodiscard]] QString subject() const { return m_window->findChild<QLabel*>("subject")->text(); }
    /// What the text has on a source line.
    [[nodiscard]] Tessel::TesselBase* nodeOf(const QString& text, int line) const;
    void click(const QPoint& place) const;

    std::unique_ptr<Testing::SourceFolder> m_folder;
    std::unique_ptr<QSettings> m_settings;
    std::unique_ptr<MainWindow> m_window;
};

void ControlFlowWindowTest::init() {
    m_folder = std::make_unique<Testing::SourceFolder>();
    m_settings = std::make_unique<QSettings>(m_folder->path("settings.ini"), QSettings::IniFormat);
    m_window = std::make_unique<MainWindow>(*m_settings, Frontends::COptions());
    m_window->show();
}

void ControlFlowWindowTest::cleanup() {
    m_window.reset();
    m_settings.reset();
    m_folder.reset();
}

void ControlFlowWindowTest::start(const QByteArray& source, const QString& view) {
    Options options;
    options.view = view;
    options.files = QStringList(m_folder->write("a.c", source));
    QVERIFY(m_window->start(options) == Done);
}

Tessel::TesselBase* ControlFlowWindowTest::nodeOf(const QString& text, int line) const {
    for (int i = 0; i < selector().getText().getLineCount(); ++i)
        for (const GUI::SourceText::Part& part : selector().getText().getLine(i))
            if (part.text == text && static_cast<int>(part.node->getSourceRange().beginLine) == line)
                return part.node;
    qFatal("no text %s", qPrintable(text));
}

// Moves first, as a mouse does: what it is over is highlighted.
void ControlFlowWindowTest::click(const QPoint& place) const {
    const GUI::GraphWidgetBase& widget = *pane().getWidget();
    const QPoint scrolled(widget.horizontalScrollBar()->value(), widget.verticalScrollBar()->value());
    const QPoint position = (QPointF(place) * widget.getScale()).toPoint() - scrolled;
    QTest::mouseMove(widget.viewport(), position);
    QTest::mouseClick(widget.viewport(), Qt::LeftButton, Qt::NoModifier, position);
}

void ControlFlowWindowTest::clickingALineMarksItsStatement() {
    start(Testing::loopsAndBranches, "control-flow");
    QCOMPARE(subject(), QString("subroutine f"));
    const auto& widget = static_cast<ControlFlowGraphWidget&>(*pane().getWidget());
    const GUI::TextGraph::NodeBase& node = *widget.getLines().at(2).nodes.front();
    click(node.getPos() + QPoint(node.getRect().left() + 3, node.getRect().center().y()));
    const Tessel::TesselBase* marked = selector().getMark(4);
    QVERIFY(marked != nullptr);
    QCOMPARE(marked, static_cast<const Tessel::TesselBase*>(widget.findStatement(&node)));
    QVERIFY(selector().isNodeSelected(*marked));
}

void ControlFlowWindowTest::clickingABlockMarksItsExpression() {
    start(Testing::loopsAndBranches, "expression-control-flow");
    const auto& widget = static_cast<ControlFlowGraphExprWidget&>(*pane().getWidget());
    click(widget.getNodes().at(4)->getCenter());
    const Tessel::TesselBase* marked = selector().getMark(4);
    QVERIFY(marked != nullptr);
    QCOMPARE(static_cast<int>(marked->getSourceRange().beginLine), 6);
    QVERIFY(selector().isNodeSelected(*marked));
}

void ControlFlowWindowTest::picksInTheSourceStayInThePicture() {
    start(Testing::loopsAndBranches, "control-flow");
    selector().setMark(nodeOf("s", 6), 0);
    QCOMPARE(subject(), QString("subroutine f"));
    const auto& widget = static_cast<ControlFlowGraphWidget&>(*pane().getWidget());
    const auto transfer = widget.getTransfer(widget.getSelectedEdge());
    QVERIFY(transfer.from != nullptr);
    QCOMPARE(static_cast<int>(transfer.from->getSourceRange().beginLine), 6);
}

void ControlFlowWindowTest::picksElsewhereShowTheSubroutine() {
    for (const char* view : {"control-flow", "expression-control-flow"}) {
        start(Testing::loopsAndBranches, view);
        selector().setMark(nodeOf("n", 13), 0);
        QCOMPARE(subject(), QString("subroutine g"));
        selector().setMark(nodeOf("x", 18), 0);
        QCOMPARE(subject(), QString("subroutine h"));
    }
}

void ControlFlowWindowTest::theToolBarHidesTheOutside() {
    start(Testing::loopsAndBranches, "control-flow");
    const auto& widget = static_cast<ControlFlowGraphWidget&>(*pane().getWidget());
    const QToolBar& bar = *m_window->findChild<QToolBar*>("viewToolBar");
    QCOMPARE(bar.actions().size(), 1);
    QVERIFY(widget.getExternalNode() != nullptr);
    bar.actions().front()->trigger();
    QVERIFY(widget.getExternalNode() == nullptr);
    QCOMPARE(widget.getLines().size(), 12);
}

void ControlFlowWindowTest::largeGraphsAreAskedFor_data() {
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("isRun");
    QTest::newRow("waits") << "Wait for It" << true;
    QTest::newRow("does without") << "Do Without" << false;
    QTest::newRow("closes the question") << QString() << false;
}

void ControlFlowWindowTest::largeGraphsAreAskedFor() {
    QFETCH(QString, answer);
    QFETCH(bool, isRun);
    const FakeGraphviz graphviz(FakeGraphviz::Program::Failing);
    QString question;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr)
            return;
        question = box->text();
        if (answer.isEmpty())
            box->reject();
        for (QAbstractButton* button : box->buttons())
            if (button->text().remove('&') == answer)
                button->click();
    });
    timer.start(10);
    start(Testing::manyBranches(751), "expression-control-flow");
    QCOMPARE(question, QString("The graph has 1502 blocks: Graphviz may take long to place them."));
    QCOMPARE(graphviz.wasRun(), isRun);
    QVERIFY(pane().getWidget()->isBuilded());
    QVERIFY(QGuiApplication::overrideCursor() == nullptr);
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::ControlFlowWindowTest)
#include "ControlFlowWindowTest.moc"
