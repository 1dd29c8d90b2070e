// SPDX-License-Identifier: MIT
#include "visualization/sourceselector/PrintedNodes.h"

#include "tests/environment/support/Build.h"

#include <QtTest>

#include <memory>
#include <random>

using Kova::GUI::PrintedNodes;
using Kova::Tessel::ExpressionPtr;

class PrintedNodesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void findsNothingWhenEmpty();
    void numbersInTheOrderOfTheFirstSight();
    void findsEachOfMany();
};

void PrintedNodesTest::findsNothingWhenEmpty() {
    const ExpressionPtr node = Kova::Tests::literal("1");
    const PrintedNodes nodes;
    QCOMPARE(nodes.find(node.get()), -1);
    QCOMPARE(nodes.find(nullptr), -1);
    QCOMPARE(nodes.size(), 0);
}

void PrintedNodesTest::numbersInTheOrderOfTheFirstSight() {
    const ExpressionPtr first = Kova::Tests::literal("1");
    const ExpressionPtr second = Kova::Tests::literal("2");
    const ExpressionPtr other = Kova::Tests::literal("3");
    PrintedNodes nodes;
    QCOMPARE(nodes.insert(second.get()), 0);
    QCOMPARE(nodes.insert(first.get()), 1);
    QCOMPARE(nodes.insert(second.get()), 0);
    QCOMPARE(nodes.size(), 2);
    QCOMPARE(nodes.getNode(0), second.get());
    QCOMPARE(nodes.getNode(1), first.get());
    QCOMPARE(nodes.find(first.get()), 1);
    QCOMPARE(nodes.find(other.get()), -1);
}

// The table grows many times, and numbers must survive each.
void PrintedNodesTest::findsEachOfMany() {
    std::vector<ExpressionPtr> all;
    for (int i = 0; i < 20000; ++i)
        all.push_back(Kova::Tests::literal("1"));
    std::shuffle(all.begin(), all.end(), std::mt19937(7));
    PrintedNodes nodes;
    const int inserted = 15000;
    for (int i = 0; i < inserted; ++i)
        QCOMPARE(nodes.insert(all[std::size_t(i)].get()), i);
    for (int i = 0; i < 20000; ++i)
        QCOMPARE(nodes.find(all[std::size_t(i)].get()), i < inserted ? i : -1);
}

QTEST_APPLESS_MAIN(PrintedNodesTest)
#include "PrintedNodesTest.moc"
