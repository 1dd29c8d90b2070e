// SPDX-License-Identifier: MIT
#include "shell/window/ViewPane.h"

#include "shell/views/ViewTable.h"
#include "shell/window/WelcomePage.h"
#include "tests/shell/ShellTesting.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "visualization/callgraph/Node.h"
#include "visualization/graphcore/GenericGraphWidgetBase.h"

#include <QApplication>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableView>
#include <QtTest>

namespace Kova::Shell {

class ViewPaneTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void welcomesWithoutAProgram();
    void showsASubject();
    void fitsToThePane();
    void aHugePictureGetsTheSmallestScale();
    void zoomStepsKeepTheMiddle();
    void zoomHasItsLimit();
    void positionsAreRestored();
    void zoomWithoutAViewDoesNothing();
    void clearingForgetsTheProgram();
    void clicksPickNodes();
    void dragsPickNothing();
    void panelsPickNodes();

private:
    void showProgram() { m_pane->show(*findViewKind("call-graph"), SubjectFinder(m_program).find({}, {}).subject); }

    Testing::SourceFolder m_folder;
    OpenedProgram m_program;
    std::unique_ptr<ViewPane> m_pane;
};

/// A chain of calls long enough for a picture that does not fit.
void ViewPaneTest::init() {
    QByteArray text = "void f0(void) {}\n";
    for (int i = 1; i < 10; ++i)
        text += "void f" + QByteArray::number(i) + "(void) { f" + QByteArray::number(i - 1) + "(); }\n";
    m_program = Testing::readProgram({m_folder.write("a.c", text)});
    m_pane = std::make_unique<ViewPane>();
    m_pane->resize(400, 300);
    QWidget& shown = *m_pane; // the pane's own show() is about subjects
    shown.show();
}

void ViewPaneTest::welcomesWithoutAProgram() {
    QVERIFY(m_pane->getView() == nullptr);
    QVERIFY(m_pane->getWidget() == nullptr);
    const auto* page = qobject_cast<WelcomePage*>(m_pane->currentWidget());
    QVERIFY(page != nullptr);
    QVERIFY(page->text().contains("Ctrl+O"));
}

void ViewPaneTest::showsASubject() {
    QSignalSpy scales(m_pane.get(), &ViewPane::scaleChanged);
    showProgram();
    QVERIFY(m_pane->getView() != nullptr);
    QVERIFY(m_pane->getWidget()->isBuilded());
    QCOMPARE(m_pane->currentWidget(), m_pane->getWidget());
    QVERIFY(m_pane->getWidget()->isVisible());
    QCOMPARE(m_pane->getWidget()->contextMenuPolicy(), Qt::ActionsContextMenu);
    QVERIFY(scales.size() >= 1);
    QCOMPARE(scales.last().at(0).toDouble(), m_pane->getWidget()->getScale());
}

void ViewPaneTest::fitsToThePane() {
    showProgram();
    GUI::GraphWidgetBase& widget = *m_pane->getWidget();
    const QSize size = widget.getGraphSize();
    QVERIFY(size.width() > 400 || size.height() > 300);
    const QSizeF whole(400.0, 300.0); // no bars are shown for a picture that fits
    const double fitting = std::min(whole.width() / size.width(), whole.height() / size.height());
    QVERIFY2(std::abs(widget.getScale() - fitting) < 0.02, qPrintable(QString::number(widget.getScale())));
    widget.setScale(3.0);
    m_pane->fitToViewport();
    m_pane->fitToViewport();
    QVERIFY(std::abs(widget.getScale() - fitting) < 0.02);
}

void ViewPaneTest::aHugePictureGetsTheSmallestScale() {
    showProgram();
    m_pane->getWidget()->setGraphSize(100000, 100);
    m_pane->fitToViewport();
    QCOMPARE(m_pane->getWidget()->getScale(), 0.1);
}

void ViewPaneTest::zoomStepsKeepTheMiddle() {
    showProgram();
    GUI::GraphWidgetBase& widget = *m_pane->getWidget();
    m_pane->resetZoom();
    QCOMPARE(widget.getScale(), 1.0);
    widget.horizontalScrollBar()->setValue(100);
    widget.verticalScrollBar()->setValue(120);
    const auto middle = [&] {
        return widget.screenToGraph(QPoint(widget.viewport()->width() / 2, widget.viewport()->height() / 2));
    };
    const QPoint before = middle();
    m_pane->zoomIn();
    QCOMPARE(widget.getScale(), 1.1);
    QVERIFY((middle() - before).manhattanLength() <= 3);
    m_pane->zoomOut();
    QVERIFY(std::abs(widget.getScale() - 1.0) < 1e-12);
    QVERIFY((middle() - before).manhattanLength() <= 3);
}

void ViewPaneTest::zoomHasItsLimit() {
    showProgram();
    for (int i = 0; i < 100; ++i)
        m_pane->zoomOut();
    QVERIFY(m_pane->getWidget()->getScale() >= 0.1);
    QVERIFY(m_pane->getWidget()->getScale() < 0.11);
}

void ViewPaneTest::positionsAreRestored() {
    showProgram();
    m_pane->setPosition({2.0, 130, 140});
    const ViewPane::Position position = m_pane->getPosition();
    QCOMPARE(position.scale, 2.0);
    QCOMPARE(position.x, 130);
    QCOMPARE(position.y, 140);
    showProgram();
    QVERIFY(m_pane->getPosition().scale < 1.0);
    m_pane->setPosition(position);
    QCOMPARE(m_pane->getPosition().scale, 2.0);
    QCOMPARE(m_pane->getPosition().x, 130);
    QCOMPARE(m_pane->getPosition().y, 140);
}

void ViewPaneTest::zoomWithoutAViewDoesNothing() {
    m_pane->zoomIn();
    m_pane->zoomOut();
    m_pane->resetZoom();
    m_pane->fitToViewport();
    m_pane->setPosition({2.0, 1, 1});
    QCOMPARE(m_pane->getPosition().scale, 1.0);
    QVERIFY(m_pane->getView() == nullptr);
}

void ViewPaneTest::clearingForgetsTheProgram() {
    showProgram();
    GUI::GraphWidgetBase& widget = *m_pane->getWidget();
    m_pane->clearViews();
    QVERIFY(!widget.isBuilded());
    QVERIFY(m_pane->getView() == nullptr);
    QVERIFY(qobject_cast<WelcomePage*>(m_pane->currentWidget()) != nullptr);
    showProgram();
    QCOMPARE(m_pane->getWidget(), &widget); // the view is made once
}

// The picture of the program's first procedure, clicked in its middle.
void ViewPaneTest::clicksPickNodes() {
    showProgram();
    QList<Picked> picks;
    connect(m_pane.get(), &ViewPane::picked, this, [&](const Picked& what) { picks.append(what); });
    auto& widget = static_cast<GUI::GenericGraph::GenericGraphWidgetBase&>(*m_pane->getWidget());
    widget.setScale(1.0);
    const auto* node = static_cast<const GUI::CallGraph::Node*>(widget.getNodes().front());
    widget.scrollToNode(*node);
    const QPoint middle = node->getRect().center() - QPoint(widget.horizontalScrollBar()->value(),
                                                            widget.verticalScrollBar()->value());
    QTest::mouseClick(widget.viewport(), Qt::LeftButton, Qt::NoModifier, middle);
    QCOMPARE(picks.size(), 1);
    QCOMPARE(picks.front().node, static_cast<Tessel::TesselBase*>(node->getProcedure()));
    QCOMPARE(picks.front().other, nullptr);
    QTest::mouseClick(widget.viewport(), Qt::MiddleButton, Qt::NoModifier, middle);
    QTest::mouseClick(widget.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(1, 1));
    QCOMPARE(picks.size(), 1);
}

void ViewPaneTest::dragsPickNothing() {
    showProgram();
    QSignalSpy picks(m_pane.get(), &ViewPane::picked);
    auto& widget = static_cast<GUI::GenericGraph::GenericGraphWidgetBase&>(*m_pane->getWidget());
    widget.setScale(1.0);
    GUI::GenericGraph::NodeBase* node = widget.getNodes().front();
    widget.scrollToNode(*node);
    const QPoint middle = node->getRect().center() - QPoint(widget.horizontalScrollBar()->value(),
                                                            widget.verticalScrollBar()->value());
    const int far = QApplication::startDragDistance();
    QTest::mousePress(widget.viewport(), Qt::LeftButton, Qt::NoModifier, middle);
    QTest::mouseMove(widget.viewport(), middle + QPoint(far, 0));
    QTest::mouseRelease(widget.viewport(), Qt::LeftButton, Qt::NoModifier, middle + QPoint(far, 0));
    QCOMPARE(picks.count(), 0);
}

void ViewPaneTest::panelsPickNodes() {
    m_program = Testing::readProgram({m_folder.write("b.c", "int f(int n) {\n"
                                                            "  n = 1;\n"
                                                            "  return n;\n"
                                                            "}\n")});
    m_pane->show(*findViewKind("lamport-dependences"), SubjectFinder(m_program).find({"f", {}}, {}).subject);
    QList<Picked> picks;
    connect(m_pane.get(), &ViewPane::picked, this, [&](const Picked& what) { picks.append(what); });
    auto* table = qobject_cast<QTableView*>(m_pane->getView()->getPanel());
    QVERIFY(table != nullptr);
    QCOMPARE(table->model()->rowCount(), 1);
    table->selectRow(0);
    QCOMPARE(picks.size(), 1);
    // From the n that is written in line 2 to the n that is read in line 3.
    QCOMPARE(picks.front().node->getSourceRange().beginLine, 2U);
    QCOMPARE(picks.front().other->getSourceRange().beginLine, 3U);
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::ViewPaneTest)
#include "ViewPaneTest.moc"
