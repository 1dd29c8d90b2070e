// SPDX-License-Identifier: MIT
#include "visualization/depgraph/DepGraphWidget.h"

#include "tests/visualization/depgraph/TestedWidget.h"
#include "tests/visualization/graphcore/VirtualSlot.h"
#include "visualization/textgraph/NodeNotFound.h"

#include <QMetaMethod>
#include <QSignalSpy>
#include <QtTest>

using namespace DepGraph;
using Kova::GUI::DepGraph::DepGraphWidget;
using Kova::GUI::DepGraph::EdgeFilter;
using Kova::GUI::TextGraph::NodeNotFound;
using Kova::Tessel::BlockStatement;

namespace {

class RecordingWidget final : public DepGraphWidget {
public:
    void onNewBlockEx(BlockStatement* block, bool flag, EN_RefineMethod method) override {
        blocks.append(block);
        flags.append(flag);
        methods.append(method);
    }

    QList<BlockStatement*> blocks;
    QList<bool> flags;
    QList<int> methods;
};

} // namespace

class DepGraphWidgetTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void slotsAndSignals();
    void virtualOperationsAreInOrder();
    void onNewBlockAsksForAllOfIt();
    void analysesABlock();
    void analysesWithoutInputDependences();
    void analysesByTheGivenMethod();
    void nullBlocksEmptyTheView();
    void missingGraphsOrBlocksEmptyTheView();
    void theGraphStaysTheCallers();

    void blocksWithoutDependences();
    void buildingEmitsFilterChangedOnce();
    void everyEntryReplacesThePicture();
    void occurrencesOutsideTheBlock();
    void buildingForgetsTheHeldNode();
    void buildsRepaint();
};

void DepGraphWidgetTest::slotsAndSignals() {
    const QMetaObject& meta = DepGraphWidget::staticMetaObject;
    QCOMPARE(meta.className(), "Kova::GUI::DepGraph::DepGraphWidget");
    QCOMPARE(meta.superClass(), &Kova::GUI::TextGraph::TextGraphWidgetBase::staticMetaObject);
    QStringList found;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        QCOMPARE(meta.method(i).methodType(), QMetaMethod::Slot);
        found.append(QString::fromLatin1(meta.method(i).methodSignature()));
    }
    QCOMPARE(found, QStringList({"edgeFilterChanged()", "hintsFormChanged(QAction*)"}));
}

void DepGraphWidgetTest::virtualOperationsAreInOrder() {
    const std::ptrdiff_t first = slotOf(&DepGraphWidget::onNewBlock);
    QCOMPARE(slotOf(&Kova::GUI::TextGraph::TextGraphWidgetBase::filterEdge), first - 1);
    QCOMPARE(slotOf(&DepGraphWidget::onNewBlockEx), first + 1);
    QCOMPARE(slotOf(&DepGraphWidget::onNewGraph), first + 2);
}

void DepGraphWidgetTest::onNewBlockAsksForAllOfIt() {
    const SampleBlock sample;
    RecordingWidget widget;
    widget.onNewBlock(sample.block.get());
    widget.onNewBlock(nullptr);
    QCOMPARE(widget.blocks, QList<BlockStatement*>({sample.block.get(), nullptr}));
    QCOMPARE(widget.flags, QList<bool>({true, true}));
    QCOMPARE(widget.methods, QList<int>({0, 0}));
}

void DepGraphWidgetTest::analysesABlock() {
    using namespace Kova::Tests;
    Kova::Tessel::VariableDeclaration x("x", nullptr);
    Kova::Tessel::VariableDeclaration y("y", nullptr);
    const auto block = Kova::Tests::block(statement(assign(use(x), use(y))), statement(assign(use(y), use(x))),
                                          statement(assign(use(y), use(x))));
    TestedWidget widget;
    widget.onNewBlock(block.get());
    QVERIFY(widget.isBuilded());
    // By hand: y read in line 1 and written in 2 and 3, x written in line 1 and read in 2 and 3, y written in 2 and
    // again in 3, x read in 2 and again in 3.
    QList<int> kinds;
    for (int i = 0; i < widget.getEdges().size(); ++i)
        kinds.append(widget.edge(i).getType());
    std::sort(kinds.begin(), kinds.end());
    QCOMPARE(kinds, QList<int>({1, 1, 2, 2, 4, 8}));
    for (int i = 0; i < widget.getEdges().size(); ++i)
        QCOMPARE(widget.edge(i).getCarriers(), QList<int>({-1}));
}

void DepGraphWidgetTest::analysesWithoutInputDependences() {
    using namespace Kova::Tests;
    Kova::Tessel::VariableDeclaration x("x", nullptr);
    Kova::Tessel::VariableDeclaration y("y", nullptr);
    const auto block = Kova::Tests::block(statement(assign(use(y), use(x))), statement(assign(use(y), use(x))));
    TestedWidget widget;
    widget.onNewBlockEx(block.get(), false, RM_EXACT);
    QCOMPARE(widget.getEdges().size(), 1);
    QCOMPARE(widget.edge(0).getType(), DT_OUTPUT);
    widget.onNewBlockEx(block.get(), true, RM_EXACT);
    QCOMPARE(widget.getEdges().size(), 2);
    widget.onNewBlockEx(block.get(), true, RM_QUICK_TESTS);
    QCOMPARE(widget.getEdges().size(), 2);
}

// x = y; x = y; z = x; -- by values the first x reaches nobody.
void DepGraphWidgetTest::analysesByTheGivenMethod() {
    using namespace Kova::Tests;
    Kova::Tessel::VariableDeclaration x("x", nullptr);
    Kova::Tessel::VariableDeclaration y("y", nullptr);
    Kova::Tessel::VariableDeclaration z("z", nullptr);
    const auto block = Kova::Tests::block(statement(assign(use(x), use(y))), statement(assign(use(x), use(y))),
                                          statement(assign(use(z), use(x))));
    TestedWidget widget;
    const auto kinds = [&widget] {
        QList<int> found;
        for (int i = 0; i < widget.getEdges().size(); ++i) {
            found.append(widget.edge(i).getType());
            if (!widget.edge(i).getTags().at(1).endsWith("; proven"))
                return QList<int>();
        }
        return found;
    };
    widget.onNewBlockEx(block.get(), false, RM_EXACT);
    QCOMPARE(kinds(), QList<int>({4, 1, 1}));
    widget.onNewBlockEx(block.get(), false, RM_VALUE_BASED);
    QCOMPARE(kinds(), QList<int>({4, 1}));
    // What onNewBlock() shows is the exact graph.
    widget.onNewBlock(block.get());
    QCOMPARE(kinds(), QList<int>({4, 1, 8, 1}));
}

void DepGraphWidgetTest::nullBlocksEmptyTheView() {
    SampleBlock sample;
    TestedWidget widget;
    for (int round = 0; round < 2; ++round) {
        widget.build(sample.addOneOfEachKind());
        QVERIFY(widget.isBuilded());
        if (round == 0)
            widget.onNewBlock(nullptr);
        else
            widget.onNewBlockEx(nullptr, false, RM_EXACT);
        QVERIFY(!widget.isBuilded());
        QVERIFY(widget.getLines().isEmpty());
        QVERIFY(widget.getEdges().isEmpty());
        QCOMPARE(widget.getGraphSize(), QSize(0, 0));
        QVERIFY(!widget.entry("Save As Image...")->isEnabled());
    }
}

void DepGraphWidgetTest::missingGraphsOrBlocksEmptyTheView() {
    const SampleBlock sample;
    const auto graph = sample.graph();
    TestedWidget widget;
    for (int missing = 0; missing < 3; ++missing) {
        widget.build(sample);
        QVERIFY(widget.isBuilded());
        widget.onNewGraph(missing == 0 ? graph.get() : nullptr, missing == 1 ? sample.block.get() : nullptr);
        QVERIFY(!widget.isBuilded());
        QVERIFY(widget.getLines().isEmpty());
    }
}

void DepGraphWidgetTest::theGraphStaysTheCallers() {
    SampleBlock sample;
    const auto graph = sample.addOneOfEachKind().graph();
    TestedWidget widget;
    widget.onNewGraph(graph.get(), sample.block.get());
    QCOMPARE(graph->getArrows().size(), std::size_t{4});
    widget.onNewGraph(graph.get(), sample.block.get());
    QCOMPARE(widget.getEdges().size(), 4);
}

void DepGraphWidgetTest::blocksWithoutDependences() {
    const auto block = Kova::Tests::block();
    LamportGraph graph;
    TestedWidget widget;
    widget.onNewGraph(&graph, block.get());
    QVERIFY(widget.isBuilded());
    QCOMPARE(widget.getLines().size(), 2);
    QCOMPARE(widget.textOf(0), QStringList("{"));
    QCOMPARE(widget.textOf(1), QStringList("}"));
    QVERIFY(widget.getEdges().isEmpty());
    QCOMPARE(widget.entry("Variables")->menu()->actions().size(), 2);
    QCOMPARE(widget.entry("Carriers")->menu()->actions().size(), 3);
    QVERIFY(widget.entry("Variables/All") != nullptr);
    QVERIFY(widget.entry("Carriers/All") != nullptr);
    QVERIFY(widget.entry("Carriers/LID") != nullptr);
    QVERIFY(widget.entry("Save As Image...")->isEnabled());
    QVERIFY(widget.entry("Save As SVG...")->isEnabled());
}

void DepGraphWidgetTest::buildingEmitsFilterChangedOnce() {
    SampleBlock sample;
    TestedWidget widget;
    QSignalSpy changes(&widget.getFilter(), &EdgeFilter::filterChanged);
    widget.build(sample.addOneOfEachKind());
    QCOMPARE(changes.count(), 1);
    widget.build(sample);
    QCOMPARE(changes.count(), 2);
}

void DepGraphWidgetTest::everyEntryReplacesThePicture() {
    SampleBlock sample;
    TestedWidget widget;
    widget.build(sample.addOneOfEachKind());
    widget.setScale(2.0);
    const SampleBlock other;
    widget.build(other);
    QVERIFY(widget.getEdges().isEmpty());
    QCOMPARE(widget.getLines().size(), 8);
    QCOMPARE(widget.getScale(), 1.0);
    QVERIFY(widget.entry("Variables/a") == nullptr);
}

void DepGraphWidgetTest::occurrencesOutsideTheBlock() {
    SampleBlock sample;
    TestedWidget widget;
    widget.build(sample.addOneOfEachKind());
    const SampleBlock stranger;
    sample.add(1, sample.writtenA, stranger.readA, {1});
    QString message;
    try {
        widget.build(sample);
    } catch (const NodeNotFound& thrown) {
        message = thrown.what();
    }
    QCOMPARE(message, QString("Node with this exprdata not exist"));
    // Half built: the text and the edges so far.
    QVERIFY(!widget.isBuilded());
    QCOMPARE(widget.getLines().size(), 8);
    QCOMPARE(widget.getEdges().size(), 4);
    QVERIFY(!widget.entry("Save As Image...")->isEnabled());
    widget.onNewBlock(nullptr);
    QVERIFY(widget.getLines().isEmpty());
}

void DepGraphWidgetTest::buildingForgetsTheHeldNode() {
    SampleBlock sample;
    TestedWidget widget;
    widget.resize(800, 600);
    widget.show();
    widget.build(sample);
    const QPoint brace = widget.node(0, 0).getPos() + QPoint(widget.getCharWidth() / 2, -3);
    QTest::mousePress(widget.viewport(), Qt::LeftButton, {}, brace);
    QCOMPARE(widget.heldNode(), QPoint(0, 0));
    widget.build(sample);
    QCOMPARE(widget.heldNode(), QPoint(-1, -1));
}

void DepGraphWidgetTest::buildsRepaint() {
    const SampleBlock sample;
    TestedWidget widget;
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    QCOMPARE(widget.repaintsAfter([&] { widget.build(sample); }), 1);
    QCOMPARE(widget.repaintsAfter([&] { widget.onNewBlock(nullptr); }), 1);
    QCOMPARE(widget.repaintsAfter([&] { widget.onNewBlock(nullptr); }), 1);
    QCOMPARE(widget.repaintsAfter([&] { widget.onNewGraph(nullptr, sample.block.get()); }), 1);
    QCOMPARE(widget.repaintsAfter([] {}), 0);
}

QTEST_MAIN(DepGraphWidgetTest)
#include "DepGraphWidgetTest.moc"
