// SPDX-License-Identifier: MIT
#include "visualization/controlflow/ControlFlowGraphWidget.h"

#include "environment/analyses/controlflow/ControlFlowGraph.h"
#include "environment/core/Exception.h"
#include "tests/environment/support/HeardLines.h"
#include "tests/visualization/controlflow/FlowSample.h"
#include "tests/visualization/controlflow/TestedFlowWidget.h"
#include "tests/visualization/graphcore/VirtualSlot.h"

#include <QMetaMethod>
#include <QtTest>

using namespace Kova::Tessel;
using namespace Kova::Tests;
using Kova::GUI::ControlFlowGraph::ControlFlowGraphWidget;
using Kova::GUI::TextGraph::GraphNodeBase;
using Kova::GUI::TextGraph::NodeBase;

namespace {

class RecordingWidget final : public ControlFlowGraphWidget {
public:
    void onNewGraph(const ::ControlFlowGraph& graph, BlockStatement& block, bool showExternal) override {
        statements = graph.getStatements();
        blocks.append(&block);
        flags.append(showExternal);
    }

    std::vector<const StatementBase*> statements;
    QList<BlockStatement*> blocks;
    QList<bool> flags;
};

} // namespace

/// The entries and what can be asked afterwards.
class ControlFlowGraphWidgetTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void newWidgetIsEmpty();
    void neitherSlotsNorSignals();
    void virtualOperationsAreInOrder();
    void everyEdgeIsShown();
    void blocksAreAnalysed();
    void theGraphStaysTheCallers();
    void nullBlocksEmptyTheView();
    void everyEntryReplacesThePicture();
    void blocksWithoutTheirFirstStatement();
    void buildingForgetsTheHeldNode();
    void buildsRepaint();
    void linesTellTheirStatements();
    void edgesTellTheirTransfers();
    void nothingIsToldOfAClearedPicture();
    void nothingIsToldOfStrangers();
};

void ControlFlowGraphWidgetTest::newWidgetIsEmpty() {
    TestedFlowWidget widget;
    QVERIFY(!widget.isBuilded());
    QVERIFY(widget.getLines().isEmpty());
    QVERIFY(widget.getEdges().isEmpty());
    QVERIFY(widget.getExternalNode() == nullptr);
    QVERIFY(widget.viewport()->hasMouseTracking());
    QVERIFY(widget.hasMouseScroll());
    QCOMPARE(widget.getFont(), QFont("Monospace", 14));
    QStringList entries;
    for (const QAction* action : widget.menu().actions()) {
        entries.append(action->text());
        QVERIFY(!action->isEnabled());
    }
    QCOMPARE(entries, QStringList({"Save As Image...", "Save As SVG..."}));
}

void ControlFlowGraphWidgetTest::neitherSlotsNorSignals() {
    const QMetaObject& meta = ControlFlowGraphWidget::staticMetaObject;
    QCOMPARE(meta.className(), "Kova::GUI::ControlFlowGraph::ControlFlowGraphWidget");
    QCOMPARE(meta.superClass(), &Kova::GUI::TextGraph::TextGraphWidgetBase::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset());
}

void ControlFlowGraphWidgetTest::virtualOperationsAreInOrder() {
    const std::ptrdiff_t first = slotOf(&ControlFlowGraphWidget::onNewBlock);
    QCOMPARE(slotOf(&Kova::GUI::TextGraph::TextGraphWidgetBase::filterEdge), first - 1);
    QCOMPARE(slotOf(&ControlFlowGraphWidget::onNewGraph), first + 1);
}

void ControlFlowGraphWidgetTest::everyEdgeIsShown() {
    TestedFlowWidget widget;
    QVERIFY(widget.filterEdge(nullptr));
    const FlowSample sample;
    widget.onNewBlock(sample.block.get(), true);
    QVERIFY(widget.getEdges().size() > 0);
    for (const auto* edge : widget.getEdges()) {
        QVERIFY(edge->isVisible());
        QVERIFY(widget.filterEdge(edge));
    }
}

void ControlFlowGraphWidgetTest::blocksAreAnalysed() {
    const FlowSample sample;
    RecordingWidget widget;
    widget.onNewBlock(sample.block.get(), true);
    widget.onNewBlock(nullptr, true);
    widget.onNewBlock(sample.branch->getThenBlock(), false);
    QCOMPARE(widget.blocks, QList<BlockStatement*>({sample.block.get(), sample.branch->getThenBlock()}));
    QCOMPARE(widget.flags, QList<bool>({true, false}));
    QCOMPARE(widget.statements, (std::vector<const StatementBase*>{sample.branch->getThenBlock(),
                                                                   sample.branch->getThenBlock()->getStatement(0)}));
}

void ControlFlowGraphWidgetTest::theGraphStaysTheCallers() {
    const FlowSample sample;
    const ::ControlFlowGraph graph(*sample.block);
    const std::size_t statements = graph.getStatements().size();
    TestedFlowWidget widget;
    widget.onNewBlock(sample.block.get(), false);
    const QStringList arrows = widget.arrows();
    for (int round = 0; round < 2; ++round) {
        widget.onNewGraph(graph, *sample.block, false);
        QCOMPARE(widget.arrows(), arrows);
        QCOMPARE(graph.getStatements().size(), statements);
    }
    // Of another block, it says nothing about this one.
    const FlowSample stranger;
    widget.onNewGraph(graph, *stranger.block, false);
    QVERIFY(widget.isBuilded());
    QVERIFY(widget.getEdges().isEmpty());
    QCOMPARE(widget.getLines().size(), 16);
    const HeardLines heard;
    widget.onNewGraph(graph, *stranger.block, true);
    QVERIFY(widget.getEdges().isEmpty());
    // The 15 transfers inside, and both that end outside.
    QCOMPARE(heard.lines, std::vector<std::string>(17, "CFGraphVisual 4 Statement not found."));
}

void ControlFlowGraphWidgetTest::nullBlocksEmptyTheView() {
    const FlowSample sample;
    TestedFlowWidget widget;
    for (const bool showExternal : {false, true}) {
        widget.onNewBlock(sample.block.get(), showExternal);
        QVERIFY(widget.isBuilded());
        for (const QAction* action : widget.menu().actions())
            QVERIFY(action->isEnabled());
        widget.onNewBlock(nullptr, showExternal);
        QVERIFY(!widget.isBuilded());
        QVERIFY(widget.getLines().isEmpty());
        QVERIFY(widget.getEdges().isEmpty());
        QVERIFY(widget.getExternalNode() == nullptr);
        QCOMPARE(widget.getGraphSize(), QSize(0, 0));
        for (const QAction* action : widget.menu().actions())
            QVERIFY(!action->isEnabled());
    }
}

void ControlFlowGraphWidgetTest::everyEntryReplacesThePicture() {
    const FlowSample sample;
    TestedFlowWidget widget;
    widget.onNewBlock(sample.block.get(), true);
    widget.setScale(2.0);
    widget.onNewBlock(sample.loop->getBody(), false);
    QCOMPARE(widget.texts(), QStringList({"{", "a = b;", "}"}));
    QCOMPARE(widget.arrows(), QStringList({"0>1", "1>2"}));
    QVERIFY(widget.getExternalNode() == nullptr);
    QCOMPARE(widget.getScale(), 1.0);
}

void ControlFlowGraphWidgetTest::blocksWithoutTheirFirstStatement() {
    VariableDeclaration a("a", nullptr);
    const auto broken = block(StatementPtr(), statement(use(a)));
    TestedFlowWidget widget;
    for (const bool showExternal : {false, true}) {
        QString message;
        try {
            widget.onNewBlock(broken.get(), showExternal);
        } catch (const Kova::StateError& error) {
            message = error.what();
        }
        QCOMPARE(message, QString("Unexpected dereferencing of null iterator."));
        QVERIFY(!widget.isBuilded());
        for (const QAction* action : widget.menu().actions())
            QVERIFY(!action->isEnabled());
    }
    // The view goes on.
    const FlowSample sample;
    widget.onNewBlock(sample.block.get(), false);
    QVERIFY(widget.isBuilded());
    QCOMPARE(widget.getLines().size(), 16);
}

void ControlFlowGraphWidgetTest::buildingForgetsTheHeldNode() {
    const FlowSample sample;
    TestedFlowWidget widget;
    widget.resize(800, 600);
    widget.show();
    widget.onNewBlock(sample.block.get(), false);
    const QPoint brace = widget.node(0).getPos() + QPoint(widget.getCharWidth() / 2, -3);
    QTest::mousePress(widget.viewport(), Qt::LeftButton, {}, brace);
    QCOMPARE(widget.heldNode(), QPoint(0, 0));
    widget.onNewBlock(sample.block.get(), false);
    QCOMPARE(widget.heldNode(), QPoint(-1, -1));
}

void ControlFlowGraphWidgetTest::buildsRepaint() {
    const FlowSample sample;
    const ::ControlFlowGraph graph(*sample.block);
    TestedFlowWidget widget;
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    QCOMPARE(widget.repaintsAfter([&] { widget.onNewBlock(sample.block.get(), true); }), 1);
    QCOMPARE(widget.repaintsAfter([&] { widget.onNewGraph(graph, *sample.block, true); }), 1);
    QCOMPARE(widget.repaintsAfter([&] { widget.onNewBlock(nullptr, true); }), 1);
    QCOMPARE(widget.repaintsAfter([&] { widget.onNewBlock(nullptr, true); }), 1);
    QCOMPARE(widget.repaintsAfter([] {}), 0);
}

void ControlFlowGraphWidgetTest::linesTellTheirStatements() {
    const FlowSample sample;
    const BlockStatement* root = sample.block.get();
    const BlockStatement* thenBlock = sample.branch->getThenBlock();
    const BlockStatement* elseBlock = sample.branch->getElseBlock();
    const BlockStatement* body = sample.loop->getBody();
    const QList<const StatementBase*> expected = {root,
                                                  sample.first(),
                                                  sample.branch,
                                                  thenBlock,
                                                  thenBlock->getStatement(0),
                                                  thenBlock,
                                                  sample.branch,
                                                  elseBlock,
                                                  elseBlock->getStatement(0),
                                                  elseBlock,
                                                  sample.loop,
                                                  body,
                                                  body->getStatement(0),
                                                  body,
                                                  sample.last(),
                                                  root};
    TestedFlowWidget widget;
    widget.onNewBlock(sample.block.get(), true);
    for (int line = 0; line < expected.size(); ++line)
        QCOMPARE(widget.findStatement(&widget.node(line)), expected.at(line));
    QCOMPARE(widget.getExternalNode(), &widget.node(16));
    QVERIFY(widget.findStatement(widget.getExternalNode()) == nullptr);
}

void ControlFlowGraphWidgetTest::edgesTellTheirTransfers() {
    const FlowSample sample;
    TestedFlowWidget widget;
    widget.onNewBlock(sample.block.get(), true);
    const QStringList arrows = widget.arrows();
    const auto transfer = [&](const char* arrow) { return widget.getTransfer(arrows.indexOf(arrow)); };
    QCOMPARE(transfer("0>1").from, sample.block.get());
    QCOMPARE(transfer("0>1").to, sample.first());
    QVERIFY(transfer("0>1").kind == ControlTransfer::Next);
    QCOMPARE(transfer("2>3").from, sample.branch);
    QCOMPARE(transfer("2>3").to, sample.branch->getThenBlock());
    QVERIFY(transfer("2>3").kind == ControlTransfer::True);
    QCOMPARE(transfer("2>7").to, sample.branch->getElseBlock());
    QVERIFY(transfer("2>7").kind == ControlTransfer::False);
    QCOMPARE(transfer("13>10").from, sample.loop->getBody());
    QCOMPARE(transfer("13>10").to, sample.loop);
    QVERIFY(transfer("13>10").kind == ControlTransfer::Back);
    QCOMPARE(transfer("14>16").from, sample.last());
    QVERIFY(transfer("14>16").to == nullptr);
    QVERIFY(transfer("14>16").kind == ControlTransfer::Jump);
}

void ControlFlowGraphWidgetTest::nothingIsToldOfAClearedPicture() {
    TestedFlowWidget widget;
    auto sample = std::make_unique<FlowSample>();
    widget.onNewBlock(sample->block.get(), true);
    const NodeBase* gone = &widget.node(1);
    widget.clear();
    sample.reset();
    QVERIFY(widget.findStatement(gone) == nullptr);
    QVERIFY(widget.getTransfer(0).from == nullptr);
    QVERIFY(widget.getExternalNode() == nullptr);
    // Nodes of a later picture may stand where those of an earlier one stood.
    const FlowSample another;
    widget.onNewBlock(another.block.get(), false);
    QSet<const TesselBase*> known;
    for (int line = 0; line < 16; ++line)
        known.insert(widget.findStatement(&widget.node(line)));
    QCOMPARE(known.size(), 11);
    QVERIFY(known.contains(another.block.get()));
}

void ControlFlowGraphWidgetTest::nothingIsToldOfStrangers() {
    const FlowSample sample;
    TestedFlowWidget widget;
    widget.onNewBlock(sample.block.get(), false);
    QVERIFY(widget.findStatement(nullptr) == nullptr);
    const NodeBase stranger(QPoint(), "a = b;");
    QVERIFY(widget.findStatement(&stranger) == nullptr);
    for (const int edge : {-1, widget.getEdges().size(), 1 << 30}) {
        QVERIFY(widget.getTransfer(edge).from == nullptr);
        QVERIFY(widget.getTransfer(edge).to == nullptr);
    }
}

QTEST_MAIN(ControlFlowGraphWidgetTest)
#include "ControlFlowGraphWidgetTest.moc"
