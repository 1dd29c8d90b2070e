// SPDX-License-Identifier: MIT
#include "visualization/callgraph/CallGraphWidget.h"

#include "environment/analyses/callgraph/CallGraph.h"
#include "environment/core/Console.h"
#include "environment/tessel/BinaryExpression.h"
#include "tests/visualization/callgraph/SampleProgram.h"
#include "visualization/callgraph/Edge.h"
#include "visualization/callgraph/Node.h"
#include "visualization/graphcore/ChangeStamp.h"
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
    explicit RecordingConsole(std::string tag) : m_tag(std::move(tag)) {}
    void log(int level, const std::string& text) override { consoleLines.emplace_back(level, m_tag + ": " + text); }

private:
    std::string m_tag;
};

class TestedWidget : public CallGraph::CallGraphWidget {
public:
    using CallGraphWidget::callGraphToLists;
    using CallGraphWidget::contextMenu;
    using CallGraphWidget::edgeBounds;
    using CallGraphWidget::hoveredNode;
    using CallGraphWidget::layOut;
    using CallGraphWidget::showLists;

    [[nodiscard]] NodeBase* nodeCalled(const QString& text) const {
        for (NodeBase* node : getNodes()) {
            if (node->getText() == text)
                return node;
        }
        return nullptr;
    }

    [[nodiscard]] QStringList nodeTexts() const {
        QStringList texts;
        for (const NodeBase* node : getNodes())
            texts.append(node->getText());
        return texts;
    }

    /// Every edge as "caller > callee".
    [[nodiscard]] QStringList edgeTexts() const {
        QStringList texts;
        for (const EdgeBase* edge : getEdges())
            texts.append(edge->getSource()->getText() + " > " + edge->getTarget()->getText());
        return texts;
    }

    [[nodiscard]] std::vector<QPoint> centers() const {
        std::vector<QPoint> centers;
        for (const NodeBase* node : getNodes())
            centers.push_back(node->getCenter());
        return centers;
    }
};

struct Lists {
    std::vector<std::string> names;
    std::vector<std::pair<int, int>> edges;
    std::vector<Procedure*> declarations;
    std::vector<std::vector<std::string>> calls;

    explicit Lists(const ::CallGraph& graph) {
        TestedWidget::callGraphToLists(graph, names, edges, declarations, calls);
    }
};

/// main calls alpha twice and beta once; beta calls itself; lonely does nothing.
class Sample : public SampleProgram {
public:
    TranslationUnit& file = addFile("sample.c");
    Procedure& main = addProcedure(file, "main");
    Procedure& beta = addProcedure(file, "beta");
    Procedure& alpha = addProcedure(file, "alpha");
    Procedure& lonely = addProcedure(file, "lonely");
    Kova::Tessel::StatementBase& secondCall;

    Sample() : secondCall((addCall(main, alpha, "7"), addCall(main, beta, "1"), addCall(main, alpha, "3"))) {
        addCall(beta, beta, "2");
    }
};

} // namespace

class CallGraphWidgetTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        Kova::setConsoleFactory([](const std::string& tag) { return std::make_unique<RecordingConsole>(tag); });
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

    void listsFollowTheNames() {
        Sample sample;
        const ::CallGraph graph(&sample.unit());
        const Lists lists(graph);
        QCOMPARE(lists.names, (std::vector<std::string>{"alpha", "beta", "lonely", "main"}));
        QCOMPARE(lists.declarations,
                 (std::vector<Procedure*>{&sample.alpha, &sample.beta, &sample.lonely, &sample.main}));
        QCOMPARE(lists.edges, (std::vector<std::pair<int, int>>{{1, 1}, {3, 0}, {3, 1}}));
        QCOMPARE(lists.calls,
                 (std::vector<std::vector<std::string>>{{"beta(2)"}, {"alpha(7)", "alpha(3)"}, {"beta(1)"}}));
    }

    void capitalsComeFirst() {
        SampleProgram program;
        TranslationUnit& file = program.addFile("a.c");
        for (const char* name : {"zeta", "Zeta", "_x", "alpha"})
            SampleProgram::addProcedure(file, name);
        const ::CallGraph graph(&program.unit());
        QCOMPARE(Lists(graph).names, (std::vector<std::string>{"Zeta", "_x", "alpha", "zeta"}));
    }

    // A library's procedure has no entry: its number is the number of entries, and there is no edge and no message.
    void calleeWithoutEntryGivesNoEdge() {
        SampleProgram program;
        TranslationUnit& file = program.addFile("a.c");
        Procedure& puts = SampleProgram::addExternal(file, "puts");
        Procedure& main = SampleProgram::addProcedure(file, "main");
        SampleProgram::addCall(main, puts, "0");
        const ::CallGraph graph(&program.unit());
        QCOMPARE(Lists(graph).edges, (std::vector<std::pair<int, int>>{{0, 1}}));
        TestedWidget widget;
        widget.onNewProgram(program.unit());
        QCOMPARE(widget.nodeTexts(), QStringList{"main"});
        QVERIFY(widget.getEdges().empty());
        QVERIFY(consoleLines.empty());
    }

    // Two files have a helper of their own; each call leads to its own one.
    void fileLocalProceduresOfOneNameAreToldApart() {
        SampleProgram program;
        for (const char* path : {"a.c", "b.c"}) {
            TranslationUnit& file = program.addFile(path);
            Procedure& helper = SampleProgram::addProcedure(file, "helper");
            helper.setStorageClass(Kova::Tessel::StorageClass::Static);
            Procedure& caller = SampleProgram::addProcedure(file, std::string("caller_") + path[0]);
            SampleProgram::addCall(caller, helper, "1");
        }
        TestedWidget widget;
        widget.onNewProgram(program.unit());
        QCOMPARE(widget.nodeTexts(), (QStringList{"caller_a", "caller_b", "helper", "helper (b.c)"}));
        QCOMPARE(widget.edgeTexts(), (QStringList{"caller_a > helper", "caller_b > helper (b.c)"}));
    }

    void callsArePrintedInTheirFilesLanguage_data() {
        QTest::addColumn<int>("language");
        QTest::addColumn<QString>("text");
        QTest::newRow("C") << 0 << "f(1 != 2)";
        QTest::newRow("Fortran") << 1 << "f(1 /= 2)";
        QTest::newRow("any other") << 7 << "f(1 /= 2)";
    }
    void callsArePrintedInTheirFilesLanguage() {
        QFETCH(int, language);
        QFETCH(QString, text);
        using namespace Kova::Tessel;
        const auto literal = [](const char* number) {
            return std::make_unique<LiteralExpression>(LiteralExpression::Kind::Integer, number);
        };
        SampleProgram program;
        TranslationUnit& file = program.addFile("a", static_cast<SourceLanguage>(language));
        Procedure& f = SampleProgram::addProcedure(file, "f");
        Procedure& g = SampleProgram::addProcedure(file, "g");
        auto call = std::make_unique<SubroutineCallExpression>(std::make_unique<SubroutineReference>(f));
        call->appendArgument(std::make_unique<BinaryExpression>(BinaryOperator::NotEqual, literal("1"), literal("2")));
        g.getBody()->append(std::make_unique<ExpressionStatement>(std::move(call)));
        TestedWidget widget;
        widget.onNewProgram(program.unit());
        QCOMPARE(widget.getEdges()[0]->getToolTip(), text);
    }

    // A subroutine outside every file, as a host may make one.
    void callOutsideEveryFileIsPrintedAsC() {
        Procedure f("f", nullptr);
        f.setBody(std::make_unique<Kova::Tessel::BlockStatement>());
        SampleProgram::addCall(f, f, "1");
        TestedWidget widget;
        widget.onNewSubroutine(f);
        QCOMPARE(widget.edgeTexts(), QStringList{"f > f"});
        QCOMPARE(widget.getEdges()[0]->getToolTip(), QString("f(1)"));
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
        QCOMPARE(&static_cast<CallGraph::Node*>(widget.getNodes()[3])->getProcedure(), &sample.main);
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

    // Only hidden orphans: the ring of 60 x 300 still counts.
    void hiddenNodesCountForTheSize() {
        SampleProgram program;
        TranslationUnit& file = program.addFile("a.c");
        for (const char* name : {"a", "b", "c", "d"})
            SampleProgram::addProcedure(file, name);
        TestedWidget widget;
        widget.setHideOrphans(true);
        widget.onNewProgram(program.unit());
        // The lowest centre is (110, 350), the name's box half as wide and high around it.
        const QSize box = QFontMetrics(QFont("Arial", 12)).size(0, "c") + QSize(10, 10);
        const int right = 110 - box.width() / 2 + box.width() - 1;
        const int bottom = 350 - box.height() / 2 + box.height() - 1;
        QVERIFY(std::abs(widget.getGraphSize().width() - right - 50) <= 1);
        QCOMPARE(widget.getGraphSize().height(), bottom + 50);
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

    void subroutineShowsWhatItReaches() {
        Sample sample;
        TestedWidget widget;
        widget.onNewSubroutine(sample.beta);
        QCOMPARE(widget.nodeTexts(), QStringList{"beta"});
        QCOMPARE(widget.edgeTexts(), QStringList{"beta > beta"});
    }

    void statementShowsItsOwnCallsOnly() {
        Sample sample;
        TestedWidget widget;
        widget.onNewStatement(sample.secondCall);
        QCOMPARE(widget.nodeTexts(), (QStringList{"alpha", "main"}));
        QCOMPARE(widget.edgeTexts(), QStringList{"main > alpha"});
        QCOMPARE(widget.getEdges()[0]->getToolTip(), QString("alpha(3)"));
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
        widget.clear();
        widget.showLists({"alpha", "main"}, {{1, 0}, {2, 2}, {0, 1}}, {&sample.alpha, &sample.main},
                         {{"alpha(4)"}, {}, {"main(1)"}});
        QCOMPARE(consoleLines, (Lines{{4, "CallGraphVisual: Call graph is invalid. Visualization failed."}}));
        QVERIFY(widget.isBuilded());
        QCOMPARE(widget.nodeTexts(), (QStringList{"alpha", "main"}));
        QCOMPARE(widget.edgeTexts(), QStringList{"main > alpha"});
        QCOMPARE(widget.getNodes()[0]->getY(), 0);
        QCOMPARE(widget.getNodes()[1]->getY(), 0);
        QCOMPARE(widget.getGraphSize(), QSize(0, 0));
        QVERIFY(!widget.actions()[1]->isEnabled() && !widget.actions()[2]->isEnabled());
    }

    void orphansHideAndComeBack() {
        Sample sample;
        TestedWidget widget;
        widget.onNewProgram(sample.unit());
        const std::vector<QPoint> shown = widget.centers();
        widget.getNodes()[0]->moveTo(999, 999);
        widget.setHideOrphans(true);
        QVERIFY(widget.isHidingOrphans());
        QVERIFY(widget.actions()[0]->isChecked());
        QVERIFY(!widget.nodeCalled("lonely")->isVisible());
        for (const char* name : {"alpha", "beta", "main"})
            QVERIFY2(widget.nodeCalled(name)->isVisible(), name);
        QCOMPARE(widget.centers(), shown);
        widget.getNodes()[0]->moveTo(999, 999);
        widget.setHideOrphans(false);
        QVERIFY(!widget.actions()[0]->isChecked());
        QVERIFY(widget.nodeCalled("lonely")->isVisible());
        QCOMPARE(widget.centers(), shown);
    }

    // Recursion is an edge.
    void recursiveProcedureIsNoOrphan() {
        SampleProgram program;
        Procedure& f = SampleProgram::addProcedure(program.addFile("a.c"), "f");
        SampleProgram::addCall(f, f, "1");
        TestedWidget widget;
        widget.setHideOrphans(true);
        widget.onNewProgram(program.unit());
        QVERIFY(widget.nodeCalled("f")->isVisible());
    }

    void actionHidesOrphans() {
        Sample sample;
        TestedWidget widget;
        widget.onNewProgram(sample.unit());
        widget.actions()[0]->trigger();
        QVERIFY(widget.isHidingOrphans());
        QVERIFY(!widget.nodeCalled("lonely")->isVisible());
        widget.actions()[0]->trigger();
        QVERIFY(!widget.isHidingOrphans());
        QVERIFY(widget.nodeCalled("lonely")->isVisible());
    }

    // Every move of a node takes change stamps: a call may take those of one layout and of one orphan's visibility.
    void hidingLaysOutOnce() {
        Sample sample;
        TestedWidget widget;
        widget.onNewProgram(sample.unit());
        quint64 before = ChangeStamp::latest();
        widget.layOut();
        const quint64 oneLayout = ChangeStamp::latest() - before;
        before = ChangeStamp::latest();
        widget.setHideOrphans(true);
        QCOMPARE(ChangeStamp::latest() - before, oneLayout + 1);
        before = ChangeStamp::latest();
        widget.setHideOrphans(true);
        QCOMPARE(ChangeStamp::latest(), before);
        widget.actions()[0]->trigger();
        QCOMPARE(ChangeStamp::latest() - before, oneLayout + 1);
    }

    void hidingRecomputesNeitherSizeNorHitMap() {
        Sample sample;
        TestedWidget widget;
        widget.onNewProgram(sample.unit());
        widget.setGraphSize(1234, 567);
        const QList<QRectF> bounds = widget.edgeBounds();
        for (NodeBase* node : widget.getNodes())
            node->move(1000, 1000);
        widget.setHideOrphans(true);
        QCOMPARE(widget.getGraphSize(), QSize(1234, 567));
        QCOMPARE(widget.edgeBounds(), bounds);
    }

    void flagOutlivesThePicture() {
        Sample sample;
        TestedWidget widget;
        widget.setHideOrphans(true);
        widget.onNewProgram(sample.unit());
        QVERIFY(!widget.nodeCalled("lonely")->isVisible());
        widget.clearGraph();
        QVERIFY(widget.isHidingOrphans());
        QVERIFY(widget.actions()[0]->isChecked());
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

    void hiddenOrphanIsNotPainted() {
        SampleProgram program;
        SampleProgram::addProcedure(program.addFile("a.c"), "f");
        TestedWidget widget;
        widget.onNewProgram(program.unit());
        const QColor white(Qt::white);
        const auto inkedPixels = [&] {
            const QImage picture = widget.renderImage();
            int count = 0;
            for (int y = 0; y < picture.height(); ++y)
                for (int x = 0; x < picture.width(); ++x)
                    count += picture.pixelColor(x, y) != white ? 1 : 0;
            return count;
        };
        QVERIFY(inkedPixels() > 0);
        widget.setHideOrphans(true);
        QCOMPARE(inkedPixels(), 0);
    }
};

QTEST_MAIN(CallGraphWidgetTest)
#include "CallGraphWidgetTest.moc"
