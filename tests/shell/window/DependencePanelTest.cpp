// SPDX-License-Identifier: MIT
// The table of dependences beside the picture, in the window.
#include "shell/views/DependenceTable.h"
#include "shell/window/MainWindow.h"
#include "shell/window/ProgramTree.h"
#include "shell/window/ViewPane.h"
#include "tests/shell/ShellTesting.h"
#include "visualization/depgraph/DepGraphWidget.h"
#include "visualization/textgraph/EdgeBase.h"

#include <QAction>
#include <QDockWidget>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QScrollBar>
#include <QSettings>
#include <QToolBar>
#include <QtTest>

namespace Kova::Shell {

using GUI::DepGraph::DepGraphWidget;

class DependencePanelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void isThereForDependencesOnly();
    void stayClosedOnceClosed();
    void hasARowForEachArrow();
    void aPickedRowIsHighlightedAndScrolledTo();
    void aHoveredArrowSelectsItsRow();
    void sortedRowsStillKnowTheirArrows();
    void filteredArrowsHaveNoRows();
    void theTreeHasBlocks();
    void tooManyDependencesAreRefused();

private:
    void start(const QByteArray& source, const QString& view);
    [[nodiscard]] QDockWidget& dock() const { return *m_window->findChild<QDockWidget*>("details"); }
    [[nodiscard]] DependenceTable& table() const { return *dock().findChild<DependenceTable*>(); }
    [[nodiscard]] DepGraphWidget& picture() const {
        return static_cast<DepGraphWidget&>(*m_window->findChild<ViewPane*>()->getWidget());
    }
    [[nodiscard]] QStringList column(int number) const;
    /// Of a menu.
    [[nodiscard]] QAction& action(const QString& text) const { return find(m_window->findChildren<QAction*>(), text); }
    /// Of the view's tool bar.
    [[nodiscard]] QAction& filterAction(const QString& text) const {
        return find(m_window->findChild<QToolBar*>("viewToolBar")->actions(), text);
    }
    static QAction& find(const QList<QAction*>& actions, const QString& text);

    std::unique_ptr<Testing::SourceFolder> m_folder;
    std::unique_ptr<QSettings> m_settings;
    std::unique_ptr<MainWindow> m_window;
};

void DependencePanelTest::init() {
    m_folder = std::make_unique<Testing::SourceFolder>();
    m_settings = std::make_unique<QSettings>(m_folder->path("settings.ini"), QSettings::IniFormat);
    m_window = std::make_unique<MainWindow>(*m_settings, Frontends::COptions());
    m_window->show();
}

void DependencePanelTest::cleanup() {
    m_window.reset();
    m_settings.reset();
    m_folder.reset();
}

void DependencePanelTest::start(const QByteArray& source, const QString& view) {
    Options options;
    options.view = view;
    options.files = QStringList(m_folder->write("a.c", source));
    QVERIFY(m_window->start(options) == Done);
}

QStringList DependencePanelTest::column(int number) const {
    QStringList texts;
    for (int row = 0; row < table().model()->rowCount(); ++row)
        texts.append(table().model()->index(row, number).data().toString());
    return texts;
}

QAction& DependencePanelTest::find(const QList<QAction*>& actions, const QString& text) {
    for (QAction* action : actions)
        if (action->text().remove('&') == text)
            return *action;
    qFatal("no action %s", qPrintable(text));
}

void DependencePanelTest::isThereForDependencesOnly() {
    QVERIFY(!dock().isVisible());
    start(Testing::threeDependences, "call-graph");
    QVERIFY(!dock().isVisible());
    action("Dependences (Lamport)").trigger();
    QVERIFY(dock().isVisible());
    QCOMPARE(dock().windowTitle(), QString("Dependences"));
    QVERIFY(table().isVisible());
    action("Call Graph").trigger();
    QVERIFY(!dock().isVisible());
}

void DependencePanelTest::stayClosedOnceClosed() {
    start(Testing::threeDependences, "lamport-dependences");
    QVERIFY(dock().isVisible());
    dock().toggleViewAction()->trigger();
    QVERIFY(!dock().isVisible());
    action("Call Graph").trigger();
    action("Dependences (Lamport)").trigger();
    QVERIFY(!dock().isVisible());
    dock().toggleViewAction()->trigger();
    QVERIFY(dock().isVisible());
}

void DependencePanelTest::hasARowForEachArrow() {
    start(Testing::threeDependences, "lamport-dependences");
    QCOMPARE(column(DependenceTableModel::KindColumn), QStringList({"input", "flow", "anti"}));
    QCOMPARE(column(DependenceTableModel::VariableColumn), QStringList({"n", "a", "b"}));
    QCOMPARE(column(DependenceTableModel::FromColumn), QStringList({"2", "3", "3"}));
    QCOMPARE(column(DependenceTableModel::ToColumn), QStringList({"2", "4", "4"}));
    QCOMPARE(column(DependenceTableModel::CarriersColumn), QStringList({"1", "1", "LID"}));
    QCOMPARE(column(DependenceTableModel::DistanceColumn), QStringList({"(*)", "(1)", "(0)"}));
    QCOMPARE(column(DependenceTableModel::StateColumn), QStringList({"proven", "proven", "proven"}));
    QCOMPARE(m_window->findChild<QLabel*>("summary")->text(), QString("3 dependences"));
}

void DependencePanelTest::aPickedRowIsHighlightedAndScrolledTo() {
    QByteArray source = "void f(double a[100], int n) {\n    a[0] = n;\n";
    for (int i = 0; i < 100; ++i)
        source += "    (void)(n + 1);\n";
    start(source + "    a[1] = a[0];\n}\n", "lamport-dependences");
    const int flow = column(DependenceTableModel::KindColumn).indexOf("flow");
    QVERIFY(flow >= 0);
    picture().verticalScrollBar()->setValue(picture().verticalScrollBar()->maximum() / 2);
    QTest::mouseClick(table().viewport(), Qt::LeftButton, {},
                      table().visualRect(table().model()->index(flow, 0)).center());
    // Without sorting rows have the arrows' order; the click scrolls the table, too, when the row was not in sight.
    table().selectRow(flow);
    const int selected = picture().getSelectedEdge();
    QVERIFY(selected >= 0);
    QCOMPARE(table().getSelectedRecord(), selected);
    const auto& edge = *picture().getEdges().at(selected);
    QCOMPARE(edge.getPen().color(), QColor(Qt::blue));
    const double scale = picture().getScale();
    const QRectF seen(picture().horizontalScrollBar()->value() / scale, picture().verticalScrollBar()->value() / scale,
                      picture().viewport()->width() / scale, picture().viewport()->height() / scale);
    QVERIFY(seen.intersects(edge.getShape().boundingRect()));
}

void DependencePanelTest::aHoveredArrowSelectsItsRow() {
    start(Testing::threeDependences, "lamport-dependences");
    action("Original Size").trigger();
    table().selectRow(0);
    int hovered = 0;
    for (int i = 0; i < picture().getEdges().size(); ++i)
        for (const double along : {0.2, 0.4, 0.6}) {
            const QPoint scene = picture().getEdges().at(i)->getShape().pointAtPercent(along).toPoint();
            const QPoint place(scene.x() - picture().horizontalScrollBar()->value(),
                               scene.y() - picture().verticalScrollBar()->value());
            const int there = picture().getEdgeByPos(scene);
            if (there < 0 || !picture().viewport()->rect().contains(place))
                continue;
            QTest::mouseMove(picture().viewport(), place);
            QCOMPARE(picture().getSelectedEdge(), there);
            QCOMPARE(table().getSelectedRecord(), there);
            ++hovered;
        }
    QVERIFY(hovered >= 3);
    // Beside all arrows the row stays.
    const int last = table().getSelectedRecord();
    QTest::mouseMove(picture().viewport(), QPoint(1, 1));
    QCOMPARE(picture().getSelectedEdge(), -1);
    QCOMPARE(table().getSelectedRecord(), last);
}

void DependencePanelTest::sortedRowsStillKnowTheirArrows() {
    start(Testing::threeDependences, "lamport-dependences");
    QTest::mouseClick(
        table().horizontalHeader()->viewport(), Qt::LeftButton, {},
        QPoint(table().horizontalHeader()->sectionViewportPosition(DependenceTableModel::KindColumn) + 5, 5));
    QCOMPARE(column(DependenceTableModel::KindColumn), QStringList({"anti", "flow", "input"}));
    table().selectRow(0);
    QCOMPARE(picture().getSelectedEdge(), 2);
    QCOMPARE(picture().getEdges().at(2)->getPen().color(), QColor(Qt::red));
    table().sortByColumn(DependenceTableModel::KindColumn, Qt::DescendingOrder);
    QCOMPARE(column(DependenceTableModel::KindColumn), QStringList({"input", "flow", "anti"}));
    QCOMPARE(table().getSelectedRecord(), 2);
    table().selectRow(1);
    QCOMPARE(picture().getSelectedEdge(), 1);
}

void DependencePanelTest::filteredArrowsHaveNoRows() {
    start(Testing::threeDependences, "lamport-dependences");
    filterAction("Flow").trigger();
    QCOMPARE(column(DependenceTableModel::KindColumn), QStringList({"input", "anti"}));
    QVERIFY(!picture().getEdges().at(1)->isVisible());
    table().selectRow(1);
    QCOMPARE(picture().getSelectedEdge(), 2);
    filterAction("Flow").trigger();
    QCOMPARE(column(DependenceTableModel::KindColumn), QStringList({"input", "flow", "anti"}));
    // The variable b goes.
    for (QAction* variable : filterAction("Variables").menu()->actions())
        if (variable->text() == "b")
            variable->trigger();
    QCOMPARE(column(DependenceTableModel::KindColumn), QStringList({"input", "flow"}));
    // Only what one iteration does: that was b.
    for (QAction* carrier : filterAction("Carriers").menu()->actions())
        if (carrier->text() == "1")
            carrier->trigger();
    QCOMPARE(column(DependenceTableModel::KindColumn), QStringList());
}

void DependencePanelTest::theTreeHasBlocks() {
    start(Testing::threeDependences, "lamport-dependences");
    auto& tree = *m_window->findChild<ProgramTree*>();
    const QAbstractItemModel& model = tree.getModel();
    const QModelIndex f = model.index(0, 0, model.index(0, 0));
    const QModelIndex loop = model.index(0, 0, f);
    const QModelIndex body = model.index(0, 0, loop);
    QCOMPARE(body.data().toString(), QString("body"));
    tree.setCurrentIndex(body);
    // Within the body the loop does not exist: a[i] and a[i - 1] are different elements.
    filterAction("Input").trigger();
    QCOMPARE(column(DependenceTableModel::KindColumn), QStringList("anti"));
    QCOMPARE(column(DependenceTableModel::DistanceColumn), QStringList(""));
    filterAction("Input").trigger();
    tree.setCurrentIndex(loop);
    QCOMPARE(column(DependenceTableModel::KindColumn), QStringList({"input", "flow", "anti"}));
    action("Call Graph").trigger();
    QCOMPARE(model.rowCount(model.index(0, 0, model.index(0, 0, model.index(0, 0)))), 0);
}

void DependencePanelTest::tooManyDependencesAreRefused() {
    QByteArray source = "void f(double x) {\n";
    for (int i = 0; i < 600; ++i)
        source += "    x = x + 1;\n";
    start(source + "}\nvoid g(double x) { x = 1; x = 2; }\n", "lamport-dependences");
    QVERIFY(!picture().isBuilded());
    QCOMPARE(table().model()->rowCount(), 0);
    auto& tree = *m_window->findChild<ProgramTree*>();
    tree.setCurrentIndex(tree.getModel().index(1, 0, tree.getModel().index(0, 0)));
    QVERIFY(picture().isBuilded());
    QCOMPARE(column(DependenceTableModel::KindColumn), QStringList("output"));
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::DependencePanelTest)
#include "DependencePanelTest.moc"
