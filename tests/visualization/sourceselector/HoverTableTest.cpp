// SPDX-License-Identifier: MIT
#include "visualization/sourceselector/HoverTable.h"

#include "environment/printing/ProgramTextBuilder.h"
#include "tests/visualization/sourceselector/SampleText.h"
#include "environment/tessel/service/Preorder.h"
#include "visualization/sourceselector/SourceSelectorOutput.h"

#include <QtTest>

#include <random>
#include <set>

using namespace Kova;
using namespace Kova::GUI;
using namespace Kova::Tessel;

namespace {

std::shared_ptr<const PrintedNodes> printedNodes(TesselBase& root) {
    PieceTexts pieces;
    SourceText text(pieces);
    SourceSelectorOutput output(text);
    Shared::ProgramTextBuilder builder(output, {});
    root.accept(builder);
    return text.getNodes();
}

/// The walk that the table does without: from the node down, through children that printed something.
void walk(const TesselBase& node, const PrintedNodes& printed, std::set<const TesselBase*>& lit) {
    lit.insert(&node);
    for (std::size_t i = 0; i < node.getChildCount(); ++i) {
        const TesselBase* child = node.getChild(i);
        if (child != nullptr && dynamic_cast<const VariableDeclaration*>(child) == nullptr && printed.find(child) >= 0)
            walk(*child, printed, lit);
    }
}

} // namespace

class HoverTableTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void holdsNothingAtFirst();
    void lightsWhatIsBelow();
    void lightsTheNodeAloneWhenToldSo();
    void declarationsOfVariablesStayPlain();
    void whatPrintedNothingHidesWhatIsBelow();
    void lightsWhatAWalkDownReaches();
    void remembersWhatWasPrintedThen();
    void clearForgetsAll();
};

void HoverTableTest::holdsNothingAtFirst() {
    SampleText sample;
    QVERIFY(!HoverTable().contains(*sample.block));
}

void HoverTableTest::lightsWhatIsBelow() {
    SampleText sample;
    HoverTable table;
    table.insert(*sample.firstStatement, true, printedNodes(*sample.block));
    for (const TesselBase* node : std::initializer_list<const TesselBase*>{
             sample.firstStatement, sample.assignment, sample.addition, sample.writtenA, sample.readB, sample.constant})
        QVERIFY(table.contains(*node));
    QVERIFY(!table.contains(*sample.block));
    QVERIFY(!table.contains(*sample.inner));
    QVERIFY(!table.contains(*sample.lastStatement));
}

void HoverTableTest::lightsTheNodeAloneWhenToldSo() {
    SampleText sample;
    HoverTable table;
    table.insert(*sample.firstStatement, false, printedNodes(*sample.block));
    QVERIFY(table.contains(*sample.firstStatement));
    QVERIFY(!table.contains(*sample.assignment));
    // Put in once more with what is below it.
    table.insert(*sample.firstStatement, true, printedNodes(*sample.block));
    QVERIFY(table.contains(*sample.assignment));
}

void HoverTableTest::declarationsOfVariablesStayPlain() {
    SampleText sample;
    HoverTable table;
    table.insert(*sample.block, true, printedNodes(*sample.block));
    QVERIFY(table.contains(*sample.declaration));
    QVERIFY(!table.contains(*sample.variable));
    table.insert(*sample.variable, true, printedNodes(*sample.block));
    QVERIFY(table.contains(*sample.variable));
}

void HoverTableTest::whatPrintedNothingHidesWhatIsBelow() {
    SampleText sample;
    PrintedNodes printed;
    for (const TesselBase* node : std::initializer_list<const TesselBase*>{sample.block.get(), sample.firstStatement,
                                                                           sample.addition, sample.readB})
        printed.insert(node);
    HoverTable table;
    table.insert(*sample.block, true, std::make_shared<PrintedNodes>(printed));
    QVERIFY(table.contains(*sample.firstStatement));
    QVERIFY(!table.contains(*sample.assignment));
    QVERIFY(!table.contains(*sample.addition));
    QVERIFY(!table.contains(*sample.readB));
}

// Random subsets of the tree as what printed; every node as the one put in.
void HoverTableTest::lightsWhatAWalkDownReaches() {
    SampleText sample;
    std::mt19937 random(11);
    std::vector<const TesselBase*> all;
    for (TesselBase& node : Service::Preorder(*sample.block))
        all.push_back(&node);
    for (int round = 0; round < 50; ++round) {
        auto printed = std::make_shared<PrintedNodes>();
        for (const TesselBase* node : all)
            if (random() % 4 != 0)
                printed->insert(node);
        for (const TesselBase* root : all) {
            std::set<const TesselBase*> lit;
            walk(*root, *printed, lit);
            HoverTable table;
            table.insert(*root, true, printed);
            for (const TesselBase* node : all)
                QCOMPARE(table.contains(*node), lit.count(node) != 0);
        }
    }
}

void HoverTableTest::remembersWhatWasPrintedThen() {
    SampleText sample;
    HoverTable table;
    {
        auto printed = std::make_shared<PrintedNodes>();
        printed->insert(sample.firstStatement);
        table.insert(*sample.block, true, printed);
    }
    QVERIFY(table.contains(*sample.firstStatement));
    QVERIFY(!table.contains(*sample.assignment));
}

void HoverTableTest::clearForgetsAll() {
    SampleText sample;
    HoverTable table;
    table.insert(*sample.block, true, printedNodes(*sample.block));
    table.clear();
    QVERIFY(!table.contains(*sample.block));
    QVERIFY(!table.contains(*sample.firstStatement));
}

QTEST_APPLESS_MAIN(HoverTableTest)
#include "HoverTableTest.moc"
