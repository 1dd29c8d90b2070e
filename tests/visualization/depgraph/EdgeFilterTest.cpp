// SPDX-License-Identifier: MIT
#include "visualization/depgraph/EdgeFilter.h"

#include "environment/core/Exception.h"
#include "tests/visualization/depgraph/TextNodes.h"

#include <QMetaMethod>
#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

using namespace DepGraph;
using Kova::GUI::DepGraph::EdgeFilter;
using Kova::GUI::DepGraph::LamportEdge;
using Kova::GUI::TextGraph::EdgeBase;
using Kova::GUI::TextGraph::EdgesList;

namespace {

QStringList textsOf(const QMenu& menu) {
    QStringList texts;
    for (const QAction* action : menu.actions())
        texts.append(action->isSeparator() ? QString("-") : action->text());
    return texts;
}

QAction* entryOf(const QMenu& menu, const QString& text) {
    for (QAction* action : menu.actions()) {
        if (action->text() == text)
            return action;
    }
    qFatal("no such entry");
}

bool areChecked(const QMenu& menu, bool checked) {
    for (const QAction* action : menu.actions()) {
        if (!action->isSeparator() && action->isChecked() != checked)
            return false;
    }
    return true;
}

} // namespace

class EdgeFilterTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void signalsAndSlots();
    void actionsAreInOrder();
    void nothingIsShownBeforeTheFirstGraph();
    void everythingIsShownAtFirst();
    void kindsAreToggledByTheirActions();
    void severalKinds();
    void kindsOfOtherNumbersHaveNoBit();
    void kindsAreToggledBlindly();
    void kindsAreToggledByTheirBits();
    void unknownSendersChangeNothing();
    void variablesAreInOrder();
    void bothEndsHaveToBeShown();
    void allVariables();
    void carriersAreInOrder();
    void carriersAreToggledByTheirActions();
    void edgesWithinAnIteration();
    void edgesWithoutCarriers();
    void allCarriers();
    void entriesDoNotChangeAll();
    void aNewGraphChecksAll();
    void aNewGraphKeepsKinds();
    void aNewGraphReplacesTheEntries();
    void aGraphWithoutEdges();
    void otherEdgesAreRefused();

private:
    [[nodiscard]] bool shows(const LamportEdge* edge) const { return m_filter->filterEdge(edge); }
    [[nodiscard]] QAction* kind(int index) { return m_filter->getActions().at(index); }
    [[nodiscard]] QMenu& variables() { return *m_filter->getActions().at(4)->menu(); }
    [[nodiscard]] QMenu& carriers() { return *m_filter->getActions().at(5)->menu(); }
    void showGraph() { m_filter->setGraph(m_graph->edges); }
    LamportEdge* add(int type, const QList<int>& carriers = {-1}, const QString& from = "a", const QString& to = "a") {
        return m_graph->edge(type, carriers, from, to);
    }

    std::unique_ptr<TextNodes> m_graph;
    std::unique_ptr<EdgeFilter> m_filter;
};

void EdgeFilterTest::init() {
    m_filter = std::make_unique<EdgeFilter>();
    m_graph = std::make_unique<TextNodes>();
}

void EdgeFilterTest::signalsAndSlots() {
    const QMetaObject& meta = EdgeFilter::staticMetaObject;
    QCOMPARE(meta.className(), "Kova::GUI::DepGraph::EdgeFilter");
    QStringList found;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        found.append((method.methodType() == QMetaMethod::Signal ? "signal " : "slot ") + method.methodSignature());
    }
    QCOMPARE(found,
             QStringList({"signal filterChanged()", "slot typeFilterChanged()", "slot allVarsChanged()",
                          "slot allCarriersChanged()", "slot varFilterChanged()", "slot carrierFilterChanged()"}));
}

void EdgeFilterTest::actionsAreInOrder() {
    const QList<QAction*> actions = m_filter->getActions();
    QCOMPARE(actions.size(), 6);
    const QStringList texts = {"Flow", "Anti", "Output", "Input"};
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(actions.at(i)->text(), texts.at(i));
        QVERIFY(actions.at(i)->isCheckable());
        QVERIFY(actions.at(i)->isChecked());
        QVERIFY(actions.at(i)->menu() == nullptr);
        QVERIFY(actions.at(i)->actionGroup() == nullptr);
    }
    QCOMPARE(actions.at(4)->text(), QString("Variables"));
    QCOMPARE(variables().title(), QString("Variables"));
    QCOMPARE(actions.at(5)->text(), QString("Carriers"));
    QCOMPARE(carriers().title(), QString("Carriers"));
    QVERIFY(variables().isEmpty());
    QVERIFY(carriers().isEmpty());
    QCOMPARE(m_filter->getActions(), actions);
}

void EdgeFilterTest::nothingIsShownBeforeTheFirstGraph() {
    for (const int type : {1, 2, 4, 8})
        QVERIFY(!shows(add(type, {})));
}

void EdgeFilterTest::everythingIsShownAtFirst() {
    const QList<LamportEdge*> edges = {add(DT_FLOW), add(DT_ANTI, {1}, "a", "b"), add(DT_OUTPUT, {2, 3}),
                                       add(DT_INPUT, {}, "c", "c")};
    QSignalSpy changes(m_filter.get(), &EdgeFilter::filterChanged);
    showGraph();
    QCOMPARE(changes.count(), 1);
    for (const LamportEdge* edge : edges)
        QVERIFY(shows(edge));
}

void EdgeFilterTest::kindsAreToggledByTheirActions() {
    const QList<LamportEdge*> edges = {add(DT_FLOW), add(DT_ANTI), add(DT_OUTPUT), add(DT_INPUT)};
    showGraph();
    QSignalSpy changes(m_filter.get(), &EdgeFilter::filterChanged);
    for (int i = 0; i < 4; ++i) {
        kind(i)->trigger();
        QCOMPARE(changes.count(), 2 * i + 1);
        QVERIFY(!kind(i)->isChecked());
        for (int j = 0; j < 4; ++j)
            QCOMPARE(shows(edges.at(j)), i != j);
        kind(i)->trigger();
        QCOMPARE(changes.count(), 2 * i + 2);
        for (const LamportEdge* edge : edges)
            QVERIFY(shows(edge));
    }
}

void EdgeFilterTest::severalKinds() {
    const QList<LamportEdge*> edges = {add(DT_FLOW), add(DT_ANTI), add(DT_OUTPUT), add(DT_INPUT)};
    showGraph();
    kind(0)->trigger();
    kind(2)->trigger();
    QVERIFY(!shows(edges.at(0)));
    QVERIFY(shows(edges.at(1)));
    QVERIFY(!shows(edges.at(2)));
    QVERIFY(shows(edges.at(3)));
    kind(1)->trigger();
    kind(3)->trigger();
    for (const LamportEdge* edge : edges)
        QVERIFY(!shows(edge));
    kind(0)->trigger();
    QVERIFY(shows(edges.at(0)));
}

void EdgeFilterTest::kindsOfOtherNumbersHaveNoBit() {
    const LamportEdge* none = add(0);
    const LamportEdge* unknown = add(16);
    const LamportEdge* both = add(DT_FLOW | DT_ANTI);
    showGraph();
    QVERIFY(!shows(none));
    QVERIFY(!shows(unknown));
    QVERIFY(shows(both));
    kind(0)->trigger();
    QVERIFY(shows(both));
    kind(1)->trigger();
    QVERIFY(!shows(both));
}

void EdgeFilterTest::kindsAreToggledBlindly() {
    const LamportEdge* edge = add(DT_OUTPUT);
    showGraph();
    kind(2)->setToolTip("any change of the action toggles");
    QVERIFY(kind(2)->isChecked());
    QVERIFY(!shows(edge));
    kind(2)->setChecked(true);
    QVERIFY(!shows(edge));
    kind(2)->setChecked(false);
    QVERIFY(shows(edge));
}

void EdgeFilterTest::kindsAreToggledByTheirBits() {
    const LamportEdge* flow = add(DT_FLOW);
    const LamportEdge* input = add(DT_INPUT);
    const LamportEdge* high = add(256);
    showGraph();
    QSignalSpy changes(m_filter.get(), &EdgeFilter::filterChanged);
    m_filter->addRemoveFilter(1);
    QVERIFY(!shows(flow));
    QVERIFY(shows(input));
    m_filter->addRemoveFilter(1 | 8);
    QVERIFY(shows(flow));
    QVERIFY(!shows(input));
    // Only the low byte counts.
    m_filter->addRemoveFilter(256);
    QVERIFY(!shows(high));
    QVERIFY(shows(flow));
    QCOMPARE(changes.count(), 0);
    QVERIFY(kind(3)->isChecked());
}

void EdgeFilterTest::unknownSendersChangeNothing() {
    const LamportEdge* edge = add(DT_FLOW);
    showGraph();
    QSignalSpy changes(m_filter.get(), &EdgeFilter::filterChanged);
    m_filter->typeFilterChanged();
    QCOMPARE(changes.count(), 1);
    QAction stranger("Flow", nullptr);
    connect(&stranger, &QAction::changed, m_filter.get(), &EdgeFilter::typeFilterChanged);
    stranger.setEnabled(false);
    QCOMPARE(changes.count(), 2);
    m_filter->varFilterChanged();
    m_filter->carrierFilterChanged();
    QCOMPARE(changes.count(), 4);
    QVERIFY(shows(edge));
}

void EdgeFilterTest::variablesAreInOrder() {
    add(DT_FLOW, {-1}, "x", "b");
    add(DT_ANTI, {-1}, "B", "x");
    add(DT_FLOW, {-1}, "a10", "a9");
    showGraph();
    QCOMPARE(textsOf(variables()), QStringList({"All", "-", "B", "a10", "a9", "b", "x"}));
    QVERIFY(areChecked(variables(), true));
    for (const QAction* action : variables().actions())
        QCOMPARE(action->isCheckable(), !action->isSeparator());
}

void EdgeFilterTest::bothEndsHaveToBeShown() {
    const LamportEdge* same = add(DT_FLOW, {-1}, "a", "a");
    const LamportEdge* from = add(DT_FLOW, {-1}, "a", "b");
    const LamportEdge* to = add(DT_FLOW, {-1}, "b", "a");
    const LamportEdge* other = add(DT_FLOW, {-1}, "b", "b");
    showGraph();
    QSignalSpy changes(m_filter.get(), &EdgeFilter::filterChanged);
    entryOf(variables(), "a")->trigger();
    QCOMPARE(changes.count(), 1);
    QVERIFY(!shows(same));
    QVERIFY(!shows(from));
    QVERIFY(!shows(to));
    QVERIFY(shows(other));
    entryOf(variables(), "a")->trigger();
    QCOMPARE(changes.count(), 2);
    for (const LamportEdge* edge : {same, from, to, other})
        QVERIFY(shows(edge));
}

void EdgeFilterTest::allVariables() {
    const LamportEdge* edge = add(DT_FLOW, {-1}, "a", "b");
    const LamportEdge* other = add(DT_FLOW, {-1}, "c", "c");
    showGraph();
    entryOf(variables(), "b")->trigger();
    QSignalSpy changes(m_filter.get(), &EdgeFilter::filterChanged);
    entryOf(variables(), "All")->trigger();
    QVERIFY(areChecked(variables(), false));
    // "a" and "c" on their own; "b" was off.
    QCOMPARE(changes.count(), 2);
    QVERIFY(!shows(edge));
    QVERIFY(!shows(other));
    entryOf(variables(), "All")->trigger();
    QVERIFY(areChecked(variables(), true));
    QCOMPARE(changes.count(), 5);
    QVERIFY(shows(edge));
    QVERIFY(shows(other));
    QVERIFY(areChecked(carriers(), true));
}

void EdgeFilterTest::carriersAreInOrder() {
    add(DT_FLOW, {10, 2});
    add(DT_FLOW, {1, 2});
    add(DT_FLOW, {-1, 3});
    add(DT_FLOW, {});
    showGraph();
    QCOMPARE(textsOf(carriers()), QStringList({"All", "-", "LID", "1", "2", "3", "10"}));
    QVERIFY(areChecked(carriers(), true));
    for (const QAction* action : carriers().actions())
        QCOMPARE(action->isCheckable(), !action->isSeparator());
}

void EdgeFilterTest::carriersAreToggledByTheirActions() {
    const LamportEdge* first = add(DT_FLOW, {1});
    const LamportEdge* both = add(DT_FLOW, {1, 2});
    showGraph();
    QSignalSpy changes(m_filter.get(), &EdgeFilter::filterChanged);
    entryOf(carriers(), "1")->trigger();
    QCOMPARE(changes.count(), 1);
    QVERIFY(!shows(first));
    QVERIFY(shows(both));
    entryOf(carriers(), "2")->trigger();
    QVERIFY(!shows(both));
    entryOf(carriers(), "1")->trigger();
    QVERIFY(shows(first));
    QVERIFY(shows(both));
    QCOMPARE(changes.count(), 3);
}

void EdgeFilterTest::edgesWithinAnIteration() {
    const LamportEdge* within = add(DT_FLOW, {-1});
    const LamportEdge* also = add(DT_FLOW, {-1, 1});
    const LamportEdge* carried = add(DT_FLOW, {1});
    showGraph();
    entryOf(carriers(), "LID")->trigger();
    QVERIFY(!shows(within));
    QVERIFY(shows(also));
    QVERIFY(shows(carried));
    entryOf(carriers(), "1")->trigger();
    QVERIFY(!shows(also));
    entryOf(carriers(), "LID")->trigger();
    QVERIFY(shows(within));
    QVERIFY(shows(also));
    QVERIFY(!shows(carried));
}

void EdgeFilterTest::edgesWithoutCarriers() {
    const LamportEdge* unknown = add(DT_FLOW, {});
    add(DT_FLOW, {1});
    showGraph();
    entryOf(carriers(), "LID")->trigger();
    QVERIFY(shows(unknown));
    entryOf(carriers(), "LID")->trigger();
    entryOf(carriers(), "1")->trigger();
    QVERIFY(shows(unknown));
    entryOf(carriers(), "LID")->trigger();
    QVERIFY(!shows(unknown));
}

void EdgeFilterTest::allCarriers() {
    const QList<LamportEdge*> edges = {add(DT_FLOW, {-1}), add(DT_FLOW, {1}), add(DT_FLOW, {2, 3}), add(DT_FLOW, {})};
    showGraph();
    QSignalSpy changes(m_filter.get(), &EdgeFilter::filterChanged);
    entryOf(carriers(), "All")->trigger();
    QVERIFY(areChecked(carriers(), false));
    QCOMPARE(changes.count(), 4);
    for (const LamportEdge* edge : edges)
        QVERIFY(!shows(edge));
    entryOf(carriers(), "All")->trigger();
    QVERIFY(areChecked(carriers(), true));
    QCOMPARE(changes.count(), 8);
    for (const LamportEdge* edge : edges)
        QVERIFY(shows(edge));
    QVERIFY(areChecked(variables(), true));
}

void EdgeFilterTest::entriesDoNotChangeAll() {
    add(DT_FLOW, {1});
    showGraph();
    entryOf(variables(), "a")->trigger();
    QVERIFY(entryOf(variables(), "All")->isChecked());
    entryOf(carriers(), "LID")->trigger();
    entryOf(carriers(), "1")->trigger();
    QVERIFY(entryOf(carriers(), "All")->isChecked());
    entryOf(carriers(), "All")->trigger();
    QVERIFY(areChecked(carriers(), false));
}

void EdgeFilterTest::aNewGraphChecksAll() {
    const LamportEdge* edge = add(DT_FLOW, {1}, "a", "b");
    showGraph();
    entryOf(variables(), "All")->trigger();
    entryOf(carriers(), "All")->trigger();
    QVERIFY(!shows(edge));
    QSignalSpy changes(m_filter.get(), &EdgeFilter::filterChanged);
    showGraph();
    QCOMPARE(changes.count(), 1);
    QVERIFY(areChecked(variables(), true));
    QVERIFY(areChecked(carriers(), true));
    QVERIFY(shows(edge));
}

void EdgeFilterTest::aNewGraphKeepsKinds() {
    const LamportEdge* edge = add(DT_FLOW);
    const LamportEdge* other = add(DT_INPUT);
    showGraph();
    kind(0)->trigger();
    showGraph();
    QVERIFY(!kind(0)->isChecked());
    QVERIFY(kind(3)->isChecked());
    QVERIFY(!shows(edge));
    QVERIFY(shows(other));
    kind(0)->trigger();
    QVERIFY(shows(edge));
}

void EdgeFilterTest::aNewGraphReplacesTheEntries() {
    const LamportEdge* old = add(DT_FLOW, {7}, "old", "old");
    showGraph();
    const QPointer<QAction> variable = entryOf(variables(), "old");
    const QPointer<QAction> carrier = entryOf(carriers(), "7");
    TextNodes other;
    const LamportEdge* edge = other.edge(DT_FLOW, {2}, "new", "new");
    m_filter->setGraph(other.edges);
    QCOMPARE(textsOf(variables()), QStringList({"All", "-", "new"}));
    QCOMPARE(textsOf(carriers()), QStringList({"All", "-", "LID", "2"}));
    QVERIFY(!variable);
    QVERIFY(!carrier);
    QVERIFY(!shows(old));
    QVERIFY(shows(edge));
    entryOf(variables(), "new")->trigger();
    QVERIFY(!shows(edge));
}

void EdgeFilterTest::aGraphWithoutEdges() {
    showGraph();
    QCOMPARE(textsOf(variables()), QStringList({"All", "-"}));
    QCOMPARE(textsOf(carriers()), QStringList({"All", "-", "LID"}));
    QVERIFY(areChecked(variables(), true));
    QVERIFY(areChecked(carriers(), true));
    entryOf(variables(), "All")->trigger();
    entryOf(carriers(), "All")->trigger();
    QVERIFY(areChecked(carriers(), false));
}

void EdgeFilterTest::otherEdgesAreRefused() {
    m_graph->edges.add(new EdgeBase(m_graph->node("a"), m_graph->node("b")));
    QVERIFY_EXCEPTION_THROWN(showGraph(), Kova::RuntimeError);
}

QTEST_MAIN(EdgeFilterTest)
#include "EdgeFilterTest.moc"
