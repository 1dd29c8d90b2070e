// SPDX-License-Identifier: MIT
#include "visualization/depgraph/EdgeFilter.h"

#include "tests/visualization/depgraph/BracketingTranslator.h"
#include "tests/visualization/depgraph/FilterSample.h"

#include <QMetaMethod>
#include <QSignalSpy>
#include <QtTest>

using namespace DepGraph;
using Kova::GUI::DepGraph::EdgeFilter;
using Kova::GUI::DepGraph::LamportEdge;

class EdgeFilterTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void signalsAndSlots();
    void actionsAreInOrder();
    void textsAreTranslated();
    void nothingIsShownBeforeTheFirstGraph();
    void everythingIsShownAtFirst();
    void kindsAreToggledByTheirActions();
    void severalKinds();
    void kindsOfOtherNumbersHaveNoBit();
    void kindsAreToggledBlindly();
    void kindsAreToggledByTheirBits();
    void unknownSendersChangeNothing();
    void bothEndsHaveToBeShown();
    void carriersAreToggledByTheirActions();
    void edgesWithinAnIteration();
    void edgesWithoutCarriers();

private:
    std::unique_ptr<FilterSample> m_sample;
};

void EdgeFilterTest::init() {
    m_sample = std::make_unique<FilterSample>();
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
    const QList<QAction*> actions = m_sample->filter.getActions();
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
    QCOMPARE(m_sample->variables().title(), QString("Variables"));
    QCOMPARE(actions.at(5)->text(), QString("Carriers"));
    QCOMPARE(m_sample->carriers().title(), QString("Carriers"));
    QVERIFY(m_sample->variables().isEmpty());
    QVERIFY(m_sample->carriers().isEmpty());
    QCOMPARE(m_sample->filter.getActions(), actions);
}

void EdgeFilterTest::textsAreTranslated() {
    const BracketingTranslator translator("Kova::GUI::DepGraph::EdgeFilter");
    FilterSample sample;
    const LamportEdge* edge = sample.edge(DT_FLOW, {-1}, "a", "a");
    const LamportEdge* carried = sample.edge(DT_FLOW, {1}, "a", "a");
    sample.showGraph();
    QStringList texts;
    for (const QAction* action : sample.filter.getActions())
        texts.append(action->text());
    QCOMPARE(texts, QStringList({"<Flow>", "<Anti>", "<Output>", "<Input>", "<Variables>", "<Carriers>"}));
    QCOMPARE(FilterSample::textsOf(sample.variables()), QStringList({"<All>", "-", "a"}));
    QCOMPARE(FilterSample::textsOf(sample.carriers()), QStringList({"<All>", "-", "<LID>", "1"}));
    FilterSample::entryOf(sample.carriers(), "<LID>")->trigger();
    QVERIFY(!sample.shows(edge));
    QVERIFY(sample.shows(carried));
    FilterSample::entryOf(sample.carriers(), "<LID>")->trigger();
    QVERIFY(sample.shows(edge));
}

void EdgeFilterTest::nothingIsShownBeforeTheFirstGraph() {
    for (const int type : {1, 2, 4, 8})
        QVERIFY(!m_sample->shows(m_sample->edge(type, {})));
}

void EdgeFilterTest::everythingIsShownAtFirst() {
    const QList<LamportEdge*> edges = {m_sample->edge(DT_FLOW), m_sample->edge(DT_ANTI, {1}, "a", "b"),
                                       m_sample->edge(DT_OUTPUT, {2, 3}), m_sample->edge(DT_INPUT, {}, "c", "c")};
    QSignalSpy changes(&m_sample->filter, &EdgeFilter::filterChanged);
    m_sample->showGraph();
    QCOMPARE(changes.count(), 1);
    for (const LamportEdge* edge : edges)
        QVERIFY(m_sample->shows(edge));
}

void EdgeFilterTest::kindsAreToggledByTheirActions() {
    const QList<LamportEdge*> edges = {m_sample->edge(DT_FLOW), m_sample->edge(DT_ANTI), m_sample->edge(DT_OUTPUT),
                                       m_sample->edge(DT_INPUT)};
    m_sample->showGraph();
    QSignalSpy changes(&m_sample->filter, &EdgeFilter::filterChanged);
    for (int i = 0; i < 4; ++i) {
        m_sample->kind(i)->trigger();
        QCOMPARE(changes.count(), 2 * i + 1);
        QVERIFY(!m_sample->kind(i)->isChecked());
        for (int j = 0; j < 4; ++j)
            QCOMPARE(m_sample->shows(edges.at(j)), i != j);
        m_sample->kind(i)->trigger();
        QCOMPARE(changes.count(), 2 * i + 2);
        for (const LamportEdge* edge : edges)
            QVERIFY(m_sample->shows(edge));
    }
}

void EdgeFilterTest::severalKinds() {
    const QList<LamportEdge*> edges = {m_sample->edge(DT_FLOW), m_sample->edge(DT_ANTI), m_sample->edge(DT_OUTPUT),
                                       m_sample->edge(DT_INPUT)};
    m_sample->showGraph();
    m_sample->kind(0)->trigger();
    m_sample->kind(2)->trigger();
    QVERIFY(!m_sample->shows(edges.at(0)));
    QVERIFY(m_sample->shows(edges.at(1)));
    QVERIFY(!m_sample->shows(edges.at(2)));
    QVERIFY(m_sample->shows(edges.at(3)));
    m_sample->kind(1)->trigger();
    m_sample->kind(3)->trigger();
    for (const LamportEdge* edge : edges)
        QVERIFY(!m_sample->shows(edge));
    m_sample->kind(0)->trigger();
    QVERIFY(m_sample->shows(edges.at(0)));
}

void EdgeFilterTest::kindsOfOtherNumbersHaveNoBit() {
    const LamportEdge* none = m_sample->edge(0);
    const LamportEdge* unknown = m_sample->edge(16);
    const LamportEdge* both = m_sample->edge(DT_FLOW | DT_ANTI);
    m_sample->showGraph();
    QVERIFY(!m_sample->shows(none));
    QVERIFY(!m_sample->shows(unknown));
    QVERIFY(m_sample->shows(both));
    m_sample->kind(0)->trigger();
    QVERIFY(m_sample->shows(both));
    m_sample->kind(1)->trigger();
    QVERIFY(!m_sample->shows(both));
}

void EdgeFilterTest::kindsAreToggledBlindly() {
    const LamportEdge* edge = m_sample->edge(DT_OUTPUT);
    m_sample->showGraph();
    m_sample->kind(2)->setToolTip("any change of the action toggles");
    QVERIFY(m_sample->kind(2)->isChecked());
    QVERIFY(!m_sample->shows(edge));
    m_sample->kind(2)->setChecked(true);
    QVERIFY(!m_sample->shows(edge));
    m_sample->kind(2)->setChecked(false);
    QVERIFY(m_sample->shows(edge));
}

void EdgeFilterTest::kindsAreToggledByTheirBits() {
    const LamportEdge* flow = m_sample->edge(DT_FLOW);
    const LamportEdge* input = m_sample->edge(DT_INPUT);
    const LamportEdge* high = m_sample->edge(256);
    m_sample->showGraph();
    QSignalSpy changes(&m_sample->filter, &EdgeFilter::filterChanged);
    m_sample->filter.addRemoveFilter(1);
    QVERIFY(!m_sample->shows(flow));
    QVERIFY(m_sample->shows(input));
    m_sample->filter.addRemoveFilter(1 | 8);
    QVERIFY(m_sample->shows(flow));
    QVERIFY(!m_sample->shows(input));
    // Only the low byte counts.
    m_sample->filter.addRemoveFilter(256);
    QVERIFY(!m_sample->shows(high));
    QVERIFY(m_sample->shows(flow));
    QCOMPARE(changes.count(), 0);
    QVERIFY(m_sample->kind(3)->isChecked());
}

void EdgeFilterTest::unknownSendersChangeNothing() {
    const LamportEdge* edge = m_sample->edge(DT_FLOW);
    m_sample->showGraph();
    QSignalSpy changes(&m_sample->filter, &EdgeFilter::filterChanged);
    m_sample->filter.typeFilterChanged();
    QCOMPARE(changes.count(), 1);
    QAction stranger("Flow", nullptr);
    connect(&stranger, &QAction::changed, &m_sample->filter, &EdgeFilter::typeFilterChanged);
    stranger.setEnabled(false);
    QCOMPARE(changes.count(), 2);
    m_sample->filter.varFilterChanged();
    m_sample->filter.carrierFilterChanged();
    QCOMPARE(changes.count(), 4);
    QVERIFY(m_sample->shows(edge));
}

void EdgeFilterTest::bothEndsHaveToBeShown() {
    const LamportEdge* same = m_sample->edge(DT_FLOW, {-1}, "a", "a");
    const LamportEdge* from = m_sample->edge(DT_FLOW, {-1}, "a", "b");
    const LamportEdge* to = m_sample->edge(DT_FLOW, {-1}, "b", "a");
    const LamportEdge* other = m_sample->edge(DT_FLOW, {-1}, "b", "b");
    m_sample->showGraph();
    QSignalSpy changes(&m_sample->filter, &EdgeFilter::filterChanged);
    FilterSample::entryOf(m_sample->variables(), "a")->trigger();
    QCOMPARE(changes.count(), 1);
    QVERIFY(!m_sample->shows(same));
    QVERIFY(!m_sample->shows(from));
    QVERIFY(!m_sample->shows(to));
    QVERIFY(m_sample->shows(other));
    FilterSample::entryOf(m_sample->variables(), "a")->trigger();
    QCOMPARE(changes.count(), 2);
    for (const LamportEdge* edge : {same, from, to, other})
        QVERIFY(m_sample->shows(edge));
}

void EdgeFilterTest::carriersAreToggledByTheirActions() {
    const LamportEdge* first = m_sample->edge(DT_FLOW, {1});
    const LamportEdge* both = m_sample->edge(DT_FLOW, {1, 2});
    m_sample->showGraph();
    QSignalSpy changes(&m_sample->filter, &EdgeFilter::filterChanged);
    FilterSample::entryOf(m_sample->carriers(), "1")->trigger();
    QCOMPARE(changes.count(), 1);
    QVERIFY(!m_sample->shows(first));
    QVERIFY(m_sample->shows(both));
    FilterSample::entryOf(m_sample->carriers(), "2")->trigger();
    QVERIFY(!m_sample->shows(both));
    FilterSample::entryOf(m_sample->carriers(), "1")->trigger();
    QVERIFY(m_sample->shows(first));
    QVERIFY(m_sample->shows(both));
    QCOMPARE(changes.count(), 3);
}

void EdgeFilterTest::edgesWithinAnIteration() {
    const LamportEdge* within = m_sample->edge(DT_FLOW, {-1});
    const LamportEdge* also = m_sample->edge(DT_FLOW, {-1, 1});
    const LamportEdge* carried = m_sample->edge(DT_FLOW, {1});
    m_sample->showGraph();
    FilterSample::entryOf(m_sample->carriers(), "LID")->trigger();
    QVERIFY(!m_sample->shows(within));
    QVERIFY(m_sample->shows(also));
    QVERIFY(m_sample->shows(carried));
    FilterSample::entryOf(m_sample->carriers(), "1")->trigger();
    QVERIFY(!m_sample->shows(also));
    FilterSample::entryOf(m_sample->carriers(), "LID")->trigger();
    QVERIFY(m_sample->shows(within));
    QVERIFY(m_sample->shows(also));
    QVERIFY(!m_sample->shows(carried));
}

void EdgeFilterTest::edgesWithoutCarriers() {
    const LamportEdge* unknown = m_sample->edge(DT_FLOW, {});
    m_sample->edge(DT_FLOW, {1});
    m_sample->showGraph();
    FilterSample::entryOf(m_sample->carriers(), "LID")->trigger();
    QVERIFY(m_sample->shows(unknown));
    FilterSample::entryOf(m_sample->carriers(), "LID")->trigger();
    FilterSample::entryOf(m_sample->carriers(), "1")->trigger();
    QVERIFY(m_sample->shows(unknown));
    FilterSample::entryOf(m_sample->carriers(), "LID")->trigger();
    QVERIFY(!m_sample->shows(unknown));
}

QTEST_MAIN(EdgeFilterTest)
#include "EdgeFilterTest.moc"
