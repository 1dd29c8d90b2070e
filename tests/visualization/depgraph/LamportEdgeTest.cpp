// SPDX-License-Identifier: MIT
#include "visualization/depgraph/LamportEdge.h"

#include "tests/visualization/depgraph/TextNodes.h"

#include <QtTest>

using namespace DepGraph;
using Kova::GUI::DepGraph::LamportEdge;
using Kova::GUI::TextGraph::EdgeBase;
using Kova::GUI::TextGraph::EdgeSide;

class LamportEdgeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isAnEdgeOfItsKind();
    void isDrawnInTheColourOfItsKind();
    void theFirstTagIsTheHint();
    void anyTagCanBeTheHint();
    void numbersOfNoTagAreIgnored();
    void noTagsKeepTheHint();
    void carriers();
    void noCarriersMayBeAnyLoop();

private:
    TextNodes m_nodes;
};

void LamportEdgeTest::isAnEdgeOfItsKind() {
    const auto from = m_nodes.node("a");
    const auto to = m_nodes.node("b");
    const LamportEdge edge(from, to, DT_ANTI);
    QCOMPARE(edge.getType(), DT_ANTI);
    QCOMPARE(edge.getFrom(), from);
    QCOMPARE(edge.getTo(), to);
    QVERIFY(edge.isVisible());
    QCOMPARE(edge.getPort(EdgeSide::From), 1);
    QCOMPARE(edge.getPort(EdgeSide::To), -1);
    QVERIFY(edge.getHint().isEmpty());
    QVERIFY(edge.getTags().isEmpty());
    QVERIFY(edge.getCarriers().isEmpty());
    const EdgeBase& base = edge;
    QCOMPARE(base.cast_ptr<LamportEdge>(), &edge);
}

void LamportEdgeTest::isDrawnInTheColourOfItsKind() {
    const LamportEdge& edge = *m_nodes.edge(DT_OUTPUT);
    QCOMPARE(edge.getPen(), QPen(QColor(0, 128, 0)));
    QCOMPARE(edge.getSelectedPen(), QPen(QColor(0, 128, 0), 2.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
}

void LamportEdgeTest::theFirstTagIsTheHint() {
    LamportEdge& edge = *m_nodes.edge(DT_FLOW);
    edge.setTags({"one", "two"});
    QCOMPARE(edge.getTags(), QStringList({"one", "two"}));
    QCOMPARE(edge.getHint(), QString("one"));
    edge.setCurrentTag(1);
    edge.setTags({"three", "four"});
    QCOMPARE(edge.getHint(), QString("three"));
}

void LamportEdgeTest::anyTagCanBeTheHint() {
    LamportEdge& edge = *m_nodes.edge(DT_FLOW);
    edge.setTags({"one", "two", "three"});
    edge.setCurrentTag(2);
    QCOMPARE(edge.getHint(), QString("three"));
    edge.setCurrentTag(0);
    QCOMPARE(edge.getHint(), QString("one"));
}

void LamportEdgeTest::numbersOfNoTagAreIgnored() {
    LamportEdge& edge = *m_nodes.edge(DT_FLOW);
    edge.setCurrentTag(0);
    QVERIFY(edge.getHint().isEmpty());
    edge.setTags({"one", "two"});
    edge.setCurrentTag(1);
    for (const int number : {-1, 2, 1000})
        edge.setCurrentTag(number);
    QCOMPARE(edge.getHint(), QString("two"));
}

void LamportEdgeTest::noTagsKeepTheHint() {
    LamportEdge& edge = *m_nodes.edge(DT_FLOW);
    edge.setTags({"one"});
    edge.setTags({});
    QVERIFY(edge.getTags().isEmpty());
    QCOMPARE(edge.getHint(), QString("one"));
}

void LamportEdgeTest::carriers() {
    LamportEdge& edge = *m_nodes.edge(DT_FLOW, {2, 5});
    QCOMPARE(edge.getCarriers(), QList<int>({2, 5}));
    QVERIFY(edge.hasCarrier(2));
    QVERIFY(edge.hasCarrier(5));
    for (const int number : {-1, 0, 1, 3})
        QVERIFY(!edge.hasCarrier(number));
    edge.setCarriers({-1});
    QVERIFY(edge.hasCarrier(-1));
    QVERIFY(!edge.hasCarrier(1));
}

void LamportEdgeTest::noCarriersMayBeAnyLoop() {
    const LamportEdge& edge = *m_nodes.edge(DT_FLOW, {});
    for (const int number : {-1, 0, 1, 2, 1000})
        QVERIFY(edge.hasCarrier(number));
}

QTEST_GUILESS_MAIN(LamportEdgeTest)
#include "LamportEdgeTest.moc"
