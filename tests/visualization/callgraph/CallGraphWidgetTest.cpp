// SPDX-License-Identifier: MIT
#include "visualization/callgraph/CallGraphWidget.h"

#include "environment/core/Console.h"
#include "tests/visualization/callgraph/TestedWidget.h"
#include "visualization/callgraph/Node.h"
#include "visualization/graphcore/ForceLayout.h"
#include "visualization/graphcore/RandomLayout.h"

#include <QAction>
#include <QFontMetrics>
#include <QToolTip>
#include <QtTest>

#include <algorithm>

using namespace Kova::GUI;
using GenericGraph::EdgeBase;
using GenericGraph::NodeBase;
using Kova::Tessel::TranslationUnit;
using Procedure = SampleProgram::Procedure;
using Lines = std::vector<std::pair<int, std::string>>;

namespace {

/// What was written to consoles, as "tag: text" with the level.
Lines consoleLines;

class RecordingConsole : public Kova::Console {
public:
    RecordingConsole(const std::string& tag, bool flag) : m_tag(flag ? tag : tag + " without the flag") {}
    void log(int level, const std::string& text) override { consoleLines.emplace_back(level, m_tag + ": " + text); }

private:
    std::string m_tag;
};

} // namespace

class CallGraphWidgetTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        Kova::setConsoleFactory(
            [](const std::string& tag, bool flag) { return std::make_unique<RecordingConsole>(tag, flag); });
    }
    void init() { consoleLines.clear(); }
    void cleanupTestCase() { Kova::setConsoleFactory({}); }

    void newWidgetIsEmpty() {
        TestedWidget widget;
        QVERIFY(!widget.isBuilded());
        QVERIFY(widget.contextMenu().isEmpty());
        QVERIFY(!widget.isHidingOrphans());
        QVERIFY(widget.testAttribute(Qt::WA_MouseTracking));
        QVERIFY(widget.viewport()->hasMouseTracking());
        QVERIFY(widget.hasMouseScroll());
    }

    void actionsStandInOrder() {
        TestedWidget widget;
        const QList<QAction*> actions = widget.actions();
        QCOMPARE(actions.size(), 3);
        QCOMPARE(actions[0]->text(), QString("Hide orphans"));
        QCOMPARE(actions[1]->text(), QString("Save As Image..."));
        QCOMPARE(actions[2]->text(), QString("Save As SVG..."));
        QVERIFY(actions[0]->isCheckable() && !actions[0]->isChecked() && actions[0]->isEnabled());
        QVERIFY(!actions[1]->isEnabled() && !actions[2]->isEnabled());
        for (const QAction* action : actions)
            QCOMPARE(action->parent(), &widget);
    }

    void programShowsItsProcedures() {
        Sample sample;
        TestedWidget widget;
        widget.resize(800, 600);
        widget.onNewProgram(sample.unit());
        QVERIFY(widget.isBuilded());
        QVERIFY(consoleLines.empty());
        QCOMPARE(widget.nodeTexts(), (QStringList{"alpha", "beta", "lonely", "main"}));
        QCOMPARE(widget.edgeTexts(), (QStringList{"beta > beta", "main > alpha", "main > beta"}));
        QCOMPARE(static_cast<CallGraph::Node*>(widget.getNodes()[3])->getProcedure(), &sample.main);
        QVERIFY(widget.actions()[1]->isEnabled() && widget.actions()[2]->isEnabled());
        const QFontMetrics metrics(QFont("Arial", 12));
        for (const NodeBase* node : widget.getNodes())
            QCOMPARE(node->getRect().size(), metrics.size(0, node->getText()) + QSize(10, 10));
    }

    void toolTipListsTheCallsInOrder() {
        Sample sample;
        TestedWidget widget;
        widget.onNewProgram(sample.unit());
        QCOMPARE(widget.getEdges()[0]->getToolTip(), QString("beta(2)"));
        QCOMPARE(widget.getEdges()[1]->getToolTip(), QString("alpha(7)\nalpha(3)"));
        QVERIFY(widget.getEdges()[1]->getText().isEmpty());
    }

    void onlyRecursionBends() {
        Sample sample;
        TestedWidget widget;
        widget.onNewProgram(sample.unit());
        QCOMPARE(widget.getEdges()[0]->getShapeKind(), EdgeBase::Loop);
        QCOMPARE(widget.getEdges()[1]->getShapeKind(), EdgeBase::Straight);
        QCOMPARE(widget.getEdges()[2]->getShapeKind(), EdgeBase::Straight);
    }

    // The loop rises above the box: some of its ink is there.
    void onlyProcedureCallingItselfShowsALoopAboveItsNode() {
        SampleProgram program;
        TranslationUnit& file = program.addFile("a.c");
        Procedure& f = SampleProgram::addProcedure(file, "f");
        SampleProgram::addCall(f, f, "1");
        SampleProgram::addCall(f, f, "2");
        TestedWidget widget;
        widget.resize(400, 300);
        widget.onNewProgram(program.unit());
        QCOMPARE(widget.getNodes().size(), std::size_t{1});
        QCOMPARE(widget.getNodes()[0]->getCenter(), QPoint(50, 50));
        QCOMPARE(widget.getEdges().size(), std::size_t{1});
        QCOMPARE(widget.getEdges()[0]->getToolTip(), QString("f(1)\nf(2)"));
        const QRect box = widget.getNodes()[0]->getRect();
        const QImage picture = widget.renderImage();
        bool inked = false;
        for (int y = 0; y < box.top() - 1; ++y)
            for (int x = 0; x < picture.width(); ++x)
                inked |= picture.pixelColor(x, y) != QColor(Qt::white);
        QVERIFY(inked);
    }

    void nodesStandWhereTheForceLayoutPutsThem() {
        Sample sample;
        TestedWidget widget;
        widget.onNewProgram(sample.unit());
        const std::vector<QPoint> shown = widget.centers();
        // The isolated node is in the ring's corner, the others are shifted into the ring.
        QCOMPARE(widget.nodeCalled("lonely")->getCenter(), QPoint(50, 50));
        int left = shown[0].x(), top = shown[0].y();
        for (const int i : {1, 3}) {
            left = std::min(left, shown[static_cast<std::size_t>(i)].x());
            top = std::min(top, shown[static_cast<std::size_t>(i)].y());
        }
        QVERIFY(left == 80 || left == 79);
        QVERIFY(top == 100 || top == 99);
        GenericGraph::ForceLayout(new GenericGraph::RandomLayout).layOut(widget.getNodes());
        QCOMPARE(widget.centers(), shown);
    }

    void samePictureEveryTime() {
        Sample first, second;
        TestedWidget a, b;
        a.onNewProgram(first.unit());
        b.onNewProgram(second.unit());
        QCOMPARE(a.centers(), b.centers());
        const std::vector<QPoint> shown = a.centers();
        a.onNewProgram(second.unit());
        QCOMPARE(a.centers(), shown);
    }

    void sizeReachesFiftyBeyondTheBoxes() {
        Sample sample;
        TestedWidget widget;
        widget.setHideOrphans(true);
        widget.onNewProgram(sample.unit());
        QVERIFY(!widget.nodeCalled("lonely")->isVisible());
        int right = 0, bottom = 0;
        for (const NodeBase* node : widget.getNodes()) {
            right = std::max(right, node->getX() + node->getWidth() - 1);
            bottom = std::max(bottom, node->getY() + node->getHeight() - 1);
        }
        QCOMPARE(widget.getGraphSize(), QSize(right + 50, bottom + 50));
    }

    void largeGraphIsFittedToTheViewport() {
        SampleProgram program;
        TranslationUnit& file = program.addFile("a.c");
        SampleProgram::addProcedure(file, "a");
        TestedWidget widget;
        widget.resize(60, 60);
        widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
        widget.onNewProgram(program.unit());
        const double scale =
            std::min(widget.viewport()->width() / static_cast<double>(widget.getGraphSize().width()),
                     widget.viewport()->height() / static_cast<double>(widget.getGraphSize().height()));
        QVERIFY(scale < 1.0);
        QCOMPARE(widget.getScale(), scale);
    }

    void emptyGraphLeavesThePlaceholderAndALine() {
        Sample sample;
        TestedWidget widget;
        widget.onNewProgram(sample.unit());
        SampleProgram nothing;
        widget.onNewProgram(nothing.unit());
        QVERIFY(!widget.isBuilded());
        QCOMPARE(widget.getGraphSize(), QSize(0, 0));
        QVERIFY(!widget.actions()[1]->isEnabled());
        QCOMPARE(consoleLines,
                 (Lines{{2, "CallGraphVisual: Procedure Call graph was not created. Visualization interrupted."}}));
    }

    void callOfALibraryGivesNeitherEdgeNorMessage() {
        LibraryUser program;
        TestedWidget widget;
        widget.onNewProgram(program.unit());
        QCOMPARE(widget.nodeTexts(), QStringList{"main"});
        QVERIFY(widget.getEdges().empty());
        QVERIFY(consoleLines.empty());
        QVERIFY(widget.actions()[1]->isEnabled());
    }

    void edgeWithOneBadEndIsSkippedSilently() {
        Sample sample;
        TestedWidget widget;
        widget.showLists({"alpha", "main"}, {{1, 2}, {7, 0}, {-1, 1}, {1, 0}}, {&sample.alpha, &sample.main},
                         {{"x(1)"}, {"y(2)"}, {"z(3)"}, {"alpha(4)"}});
        QCOMPARE(widget.edgeTexts(), QStringList{"main > alpha"});
        QCOMPARE(widget.getEdges()[0]->getToolTip(), QString("alpha(4)"));
        QVERIFY(consoleLines.empty());
        QVERIFY(widget.actions()[1]->isEnabled());
    }

    void edgeWithTwoBadEndsStopsThePicture() {
        Sample sample;
        TestedWidget widget;
        widget.onNewProgram(sample.unit());
        widget.clear();
        widget.showLists({"alpha", "main"}, {{1, 0}, {2, 2}, {0, 1}}, {&sample.alpha, &sample.main},
                         {{"alpha(4)"}, {}, {"main(1)"}});
        QCOMPARE(consoleLines, (Lines{{4, "CallGraphVisual: Call graph is invalid. Visualization failed."}}));
        QVERIFY(widget.isBuilded());
        QCOMPARE(widget.nodeTexts(), (QStringList{"alpha", "main"}));
        QCOMPARE(widget.edgeTexts(), QStringList{"main > alpha"});
        // The edges made so far are not in the map.
        QVERIFY(widget.edgeBounds().isEmpty());
        QCOMPARE(widget.getNodes()[0]->getY(), 0);
        QCOMPARE(widget.getNodes()[1]->getY(), 0);
        QCOMPARE(widget.getGraphSize(), QSize(0, 0));
        QVERIFY(!widget.actions()[1]->isEnabled() && !widget.actions()[2]->isEnabled());
    }

    // A node all the same: the others keep their numbers, and calls are shown.
    void procedureWithoutADeclarationIsShownByItsName() {
        Sample sample;
        TestedWidget widget;
        widget.showLists({"alpha", "lost", "main"}, {{2, 1}, {1, 0}}, {&sample.alpha, nullptr, &sample.main},
                         {{"lost(1)"}, {"alpha(2)"}});
        QCOMPARE(widget.nodeTexts(), (QStringList{"alpha", "lost", "main"}));
        QCOMPARE(widget.edgeTexts(), (QStringList{"main > lost", "lost > alpha"}));
        QCOMPARE(static_cast<CallGraph::Node*>(widget.getNodes()[1])->getProcedure(), nullptr);
        QCOMPARE(static_cast<CallGraph::Node*>(widget.getNodes()[2])->getProcedure(), &sample.main);
        QVERIFY(widget.actions()[1]->isEnabled());
        QVERIFY(consoleLines.empty());
    }

    void clearGraphEmptiesTheView() {
        Sample sample;
        TestedWidget widget;
        widget.resize(300, 200);
        widget.onNewProgram(sample.unit());
        QVERIFY(!widget.edgeBounds().isEmpty());
        widget.clearGraph();
        QVERIFY(!widget.isBuilded());
        QVERIFY(widget.getEdges().empty());
        QVERIFY(widget.edgeBounds().isEmpty());
        QCOMPARE(widget.getGraphSize(), QSize(0, 0));
        QCOMPARE(widget.getScale(), 1.0);
        QVERIFY(!widget.actions()[1]->isEnabled() && !widget.actions()[2]->isEnabled());
        QVERIFY(consoleLines.empty());
    }

    // No button is held: the widget tracks the mouse.
    void hoveringShowsTheCalls() {
        SampleProgram program;
        TranslationUnit& file = program.addFile("a.c");
        Procedure& f = SampleProgram::addProcedure(file, "f");
        Procedure& g = SampleProgram::addProcedure(file, "g");
        SampleProgram::addCall(f, g, "1");
        SampleProgram::addCall(f, g, "2");
        TestedWidget widget;
        widget.resize(900, 700);
        widget.onNewProgram(program.unit());
        widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
        QCOMPARE(widget.getScale(), 1.0);
        const EdgeBase* edge = widget.getEdges()[0];
        QTest::mouseMove(widget.viewport(), (edge->getStart() + edge->getEnd()) / 2);
        QTRY_COMPARE(QToolTip::text(), QString("g(1)\ng(2)"));
        QTest::mouseMove(widget.viewport(), widget.getNodes()[0]->getCenter());
        QTRY_COMPARE(widget.hoveredNode(), widget.getNodes()[0]);
    }
};

QTEST_MAIN(CallGraphWidgetTest)
#include "CallGraphWidgetTest.moc"
