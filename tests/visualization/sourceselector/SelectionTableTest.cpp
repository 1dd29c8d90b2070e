// SPDX-License-Identifier: MIT
#include "visualization/sourceselector/SelectionTable.h"

#include "tests/environment/support/Build.h"

#include <QtTest>

using Kova::GUI::PrintedNodes;
using Kova::GUI::SelectionTable;
using Kova::Tessel::ExpressionPtr;

class SelectionTableTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void everythingIsPlainAtFirst();
    void theLargerSlotWins();
    void clearedNodesArePlain();
    void nodesThatPrintedNothingHaveSlotsToo();
    void resetForgetsAll();
    void takesNodesThatPrintLater();

private:
    ExpressionPtr m_printed = Kova::Tests::literal("1");
    ExpressionPtr m_second = Kova::Tests::literal("2");
    ExpressionPtr m_other = Kova::Tests::literal("3");
    std::shared_ptr<PrintedNodes> m_nodes;
    SelectionTable m_table;
};

void SelectionTableTest::init() {
    m_nodes = std::make_shared<PrintedNodes>();
    m_nodes->insert(m_printed.get());
    m_nodes->insert(m_second.get());
    m_table = SelectionTable();
    m_table.reset(m_nodes);
}

void SelectionTableTest::everythingIsPlainAtFirst() {
    QCOMPARE(m_table.getSlot(*m_printed), 0);
    QCOMPARE(m_table.getSlot(*m_second), 0);
    QCOMPARE(m_table.getSlot(*m_other), 0);
    QCOMPARE(SelectionTable().getSlot(*m_printed), 0);
}

void SelectionTableTest::theLargerSlotWins() {
    m_table.raise(*m_second, 3);
    QCOMPARE(m_table.getSlot(*m_second), 3);
    m_table.raise(*m_second, 2);
    QCOMPARE(m_table.getSlot(*m_second), 3);
    m_table.raise(*m_second, 5);
    QCOMPARE(m_table.getSlot(*m_second), 5);
    QCOMPARE(m_table.getSlot(*m_printed), 0);
}

void SelectionTableTest::clearedNodesArePlain() {
    m_table.raise(*m_printed, 2);
    m_table.raise(*m_printed, 4);
    m_table.raise(*m_second, 2);
    m_table.clearSlot(4);
    QCOMPARE(m_table.getSlot(*m_printed), 0);
    QCOMPARE(m_table.getSlot(*m_second), 2);
    m_table.raise(*m_printed, 2);
    QCOMPARE(m_table.getSlot(*m_printed), 2);
}

void SelectionTableTest::nodesThatPrintedNothingHaveSlotsToo() {
    m_table.raise(*m_other, 2);
    QCOMPARE(m_table.getSlot(*m_other), 2);
    m_table.clearSlot(3);
    QCOMPARE(m_table.getSlot(*m_other), 2);
    m_table.clearSlot(2);
    QCOMPARE(m_table.getSlot(*m_other), 0);
}

void SelectionTableTest::resetForgetsAll() {
    m_table.raise(*m_printed, 2);
    m_table.raise(*m_other, 2);
    m_table.reset(m_nodes);
    QCOMPARE(m_table.getSlot(*m_printed), 0);
    QCOMPARE(m_table.getSlot(*m_other), 0);
}

void SelectionTableTest::takesNodesThatPrintLater() {
    m_table.raise(*m_printed, 2);
    m_nodes->insert(m_other.get());
    QCOMPARE(m_table.getSlot(*m_other), 0);
    m_table.raise(*m_other, 3);
    QCOMPARE(m_table.getSlot(*m_other), 3);
    QCOMPARE(m_table.getSlot(*m_printed), 2);
}

QTEST_APPLESS_MAIN(SelectionTableTest)
#include "SelectionTableTest.moc"
