// SPDX-License-Identifier: MIT
#include "environment/core/Exception.h"
#include "tests/visualization/depgraph/FilterSample.h"
#include "visualization/depgraph/EdgeFilter.h"

#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

using namespace DepGraph;
using Kova::GUI::DepGraph::EdgeFilter;
using Kova::GUI::DepGraph::LamportEdge;
using Kova::GUI::TextGraph::EdgeBase;

/// What graphs make of the menus.
class EdgeFilterMenusTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void variablesAreInOrder();
    void allVariables();
    void carriersAreInOrder();
    void allCarriers();
    void entriesDoNotChangeAll();
    void aNewGraphChecksAll();
    void aNewGraphKeepsKinds();
    void aNewGraphReplacesTheEntries();
    void aGraphWithoutEdges();
    void otherEdgesAreRefused();

private:
    std::unique_ptr<FilterSample> m_sample;
};

void EdgeFilterMenusTest::init() {
    m_sample = std::make_unique<FilterSample>();
}

void EdgeFilterMenusTest::variablesAreInOrder() {
    m_sample->edge(DT_FLOW, {-1}, "x", "b");
    m_sample->edge(DT_ANTI, {-1}, "B", "x");
    m_sample->edge(DT_FLOW, {-1}, "a10", "a9");
    m_sample->showGraph();
    QCOMPARE(FilterSample::textsOf(m_sample->variables()), QStringList({"All", "-", "B", "a10", "a9", "b", "x"}));
    QVERIFY(FilterSample::areChecked(m_sample->variables(), true));
    for (const QAction* action : m_sample->variables().actions())
        QCOMPARE(action->isCheckable(), !action->isSeparator());
}

void EdgeFilterMenusTest::allVariables() {
    const LamportEdge* edge = m_sample->edge(DT_FLOW, {-1}, "a", "b");
    const LamportEdge* other = m_sample->edge(DT_FLOW, {-1}, "c", "c");
    m_sample->showGraph();
    FilterSample::entryOf(m_sample->variables(), "b")->trigger();
    QSignalSpy changes(&m_sample->filter, &EdgeFilter::filterChanged);
    FilterSample::entryOf(m_sample->variables(), "All")->trigger();
    QVERIFY(FilterSample::areChecked(m_sample->variables(), false));
    // "a" and "c" on their own; "b" was off.
    QCOMPARE(changes.count(), 2);
    QVERIFY(!m_sample->shows(edge));
    QVERIFY(!m_sample->shows(other));
    FilterSample::entryOf(m_sample->variables(), "All")->trigger();
    QVERIFY(FilterSample::areChecked(m_sample->variables(), true));
    QCOMPARE(changes.count(), 5);
    QVERIFY(m_sample->shows(edge));
    QVERIFY(m_sample->shows(other));
    QVERIFY(FilterSample::areChecked(m_sample->carriers(), true));
}

void EdgeFilterMenusTest::carriersAreInOrder() {
    m_sample->edge(DT_FLOW, {10, 2});
    m_sample->edge(DT_FLOW, {1, 2});
    m_sample->edge(DT_FLOW, {-1, 3});
    m_sample->edge(DT_FLOW, {});
    m_sample->showGraph();
    QCOMPARE(FilterSample::textsOf(m_sample->carriers()), QStringList({"All", "-", "LID", "1", "2", "3", "10"}));
    QVERIFY(FilterSample::areChecked(m_sample->carriers(), true));
    for (const QAction* action : m_sample->carriers().actions())
        QCOMPARE(action->isCheckable(), !action->isSeparator());
}

void EdgeFilterMenusTest::allCarriers() {
    const QList<LamportEdge*> edges = {m_sample->edge(DT_FLOW, {-1}), m_sample->edge(DT_FLOW, {1}),
                                       m_sample->edge(DT_FLOW, {2, 3}), m_sample->edge(DT_FLOW, {})};
    m_sample->showGraph();
    QSignalSpy changes(&m_sample->filter, &EdgeFilter::filterChanged);
    FilterSample::entryOf(m_sample->carriers(), "All")->trigger();
    QVERIFY(FilterSample::areChecked(m_sample->carriers(), false));
    QCOMPARE(changes.count(), 4);
    for (const LamportEdge* edge : edges)
        QVERIFY(!m_sample->shows(edge));
    FilterSample::entryOf(m_sample->carriers(), "All")->trigger();
    QVERIFY(FilterSample::areChecked(m_sample->carriers(), true));
    QCOMPARE(changes.count(), 8);
    for (const LamportEdge* edge : edges)
        QVERIFY(m_sample->shows(edge));
    QVERIFY(FilterSample::areChecked(m_sample->variables(), true));
}

void EdgeFilterMenusTest::entriesDoNotChangeAll() {
    m_sample->edge(DT_FLOW, {1});
    m_sample->showGraph();
    FilterSample::entryOf(m_sample->variables(), "a")->trigger();
    QVERIFY(FilterSample::entryOf(m_sample->variables(), "All")->isChecked());
    FilterSample::entryOf(m_sample->carriers(), "LID")->trigger();
    FilterSample::entryOf(m_sample->carriers(), "1")->trigger();
    QVERIFY(FilterSample::entryOf(m_sample->carriers(), "All")->isChecked());
    FilterSample::entryOf(m_sample->carriers(), "All")->trigger();
    QVERIFY(FilterSample::areChecked(m_sample->carriers(), false));
}

void EdgeFilterMenusTest::aNewGraphChecksAll() {
    const LamportEdge* edge = m_sample->edge(DT_FLOW, {1}, "a", "b");
    m_sample->showGraph();
    FilterSample::entryOf(m_sample->variables(), "All")->trigger();
    FilterSample::entryOf(m_sample->carriers(), "All")->trigger();
    QVERIFY(!m_sample->shows(edge));
    QSignalSpy changes(&m_sample->filter, &EdgeFilter::filterChanged);
    m_sample->showGraph();
    QCOMPARE(changes.count(), 1);
    QVERIFY(FilterSample::areChecked(m_sample->variables(), true));
    QVERIFY(FilterSample::areChecked(m_sample->carriers(), true));
    QVERIFY(m_sample->shows(edge));
}

void EdgeFilterMenusTest::aNewGraphKeepsKinds() {
    const LamportEdge* edge = m_sample->edge(DT_FLOW);
    const LamportEdge* other = m_sample->edge(DT_INPUT);
    m_sample->showGraph();
    m_sample->kind(0)->trigger();
    m_sample->showGraph();
    QVERIFY(!m_sample->kind(0)->isChecked());
    QVERIFY(m_sample->kind(3)->isChecked());
    QVERIFY(!m_sample->shows(edge));
    QVERIFY(m_sample->shows(other));
    m_sample->kind(0)->trigger();
    QVERIFY(m_sample->shows(edge));
}

void EdgeFilterMenusTest::aNewGraphReplacesTheEntries() {
    const LamportEdge* old = m_sample->edge(DT_FLOW, {7}, "old", "old");
    m_sample->showGraph();
    const QPointer<QAction> variable = FilterSample::entryOf(m_sample->variables(), "old");
    const QPointer<QAction> carrier = FilterSample::entryOf(m_sample->carriers(), "7");
    TextNodes other;
    const LamportEdge* edge = other.edge(DT_FLOW, {2}, "new", "new");
    m_sample->filter.setGraph(other.edges);
    QCOMPARE(FilterSample::textsOf(m_sample->variables()), QStringList({"All", "-", "new"}));
    QCOMPARE(FilterSample::textsOf(m_sample->carriers()), QStringList({"All", "-", "LID", "2"}));
    QVERIFY(!variable);
    QVERIFY(!carrier);
    QVERIFY(!m_sample->shows(old));
    QVERIFY(m_sample->shows(edge));
    FilterSample::entryOf(m_sample->variables(), "new")->trigger();
    QVERIFY(!m_sample->shows(edge));
}

void EdgeFilterMenusTest::aGraphWithoutEdges() {
    m_sample->showGraph();
    QCOMPARE(FilterSample::textsOf(m_sample->variables()), QStringList({"All", "-"}));
    QCOMPARE(FilterSample::textsOf(m_sample->carriers()), QStringList({"All", "-", "LID"}));
    QVERIFY(FilterSample::areChecked(m_sample->variables(), true));
    QVERIFY(FilterSample::areChecked(m_sample->carriers(), true));
    FilterSample::entryOf(m_sample->variables(), "All")->trigger();
    FilterSample::entryOf(m_sample->carriers(), "All")->trigger();
    QVERIFY(FilterSample::areChecked(m_sample->carriers(), false));
}

void EdgeFilterMenusTest::otherEdgesAreRefused() {
    m_sample->edges.add(new EdgeBase(m_sample->node("a"), m_sample->node("b")));
    QVERIFY_EXCEPTION_THROWN(m_sample->showGraph(), Kova::RuntimeError);
}

QTEST_MAIN(EdgeFilterMenusTest)
#include "EdgeFilterMenusTest.moc"
