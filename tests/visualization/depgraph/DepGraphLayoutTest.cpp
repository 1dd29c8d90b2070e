// SPDX-License-Identifier: MIT
#include "tests/visualization/depgraph/TestedWidget.h"
#include "tests/visualization/textgraph/SortedPorts.h"
#include "visualization/depgraph/DepGraphWidget.h"

#include <QFontMetrics>
#include <QtTest>

#include <random>

using namespace DepGraph;
using Kova::GUI::TextGraph::EdgeSide;
using Kova::GUI::TextGraph::GraphNodeBase;
using Kova::GUI::TextGraph::NodeBase;
using Kova::GUI::TextGraph::portsOf;
using Kova::GUI::TextGraph::sortedPorts;

/// Where words and arrows are.
class DepGraphLayoutTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void wordsAreLaidOut();
    void occurrencesOfDependencesAreNodes();
    void arrowsBecomeEdges();
    void joinedLinesAreApart();
    void inputLoopsHaveRoom();
    void twoArrowsHaveTheirOwnPorts();
    void portsAreSortedFourTimes();
    void theFontIsThatOfTheLayout();
};

void DepGraphLayoutTest::wordsAreLaidOut() {
    const SampleBlock sample;
    TestedWidget widget;
    widget.build(sample);
    const QFontMetrics metrics(QFont("Monospace", 14));
    const int cell = metrics.averageCharWidth();
    const int lineStep = metrics.height() + 1;
    QCOMPARE(widget.getLines().size(), 8);
    for (int line = 0; line < 8; ++line) {
        QCOMPARE(widget.getLines().at(line).y, (line + 1) * lineStep);
        for (const NodeBase* word : widget.getLines().at(line).nodes) {
            QCOMPARE(word->getPos().y(), (line + 1) * lineStep);
            QCOMPARE(word->getRect().width(), cell * word->getText().size());
            QCOMPARE(word->getRect().top(), metrics.boundingRect(word->getText()).top());
            QCOMPARE(word->getRect().left(), metrics.boundingRect(word->getText()).left());
        }
    }
    // Blanks take their real width, half a cell follows all else.
    QCOMPARE(widget.textOf(6).join(' '), QString("t  =  s ;"));
    int x = metrics.horizontalAdvance("    ");
    int right = 0;
    for (const NodeBase* word : widget.getLines().at(6).nodes) {
        QCOMPARE(word->getPos().x(), x);
        x += cell / 2 + cell * word->getText().size();
    }
    for (int line = 0; line < 8; ++line) {
        if (const auto& words = widget.getLines().at(line).nodes; !words.isEmpty())
            right = std::max(right, words.last()->getPos().x() + words.last()->getRect().right());
    }
    QCOMPARE(widget.getGraphSize(), QSize(right, 8 * lineStep + metrics.height() - 1));
}

void DepGraphLayoutTest::occurrencesOfDependencesAreNodes() {
    SampleBlock sample;
    TestedWidget widget;
    widget.build(sample.add(1, sample.writtenA, sample.readA, {1}).add(2, sample.readS, sample.writtenS, {-1}));
    QStringList nodes;
    for (int line = 0; line < widget.getLines().size(); ++line) {
        for (const NodeBase* word : widget.getLines().at(line).nodes) {
            if (dynamic_cast<const GraphNodeBase*>(word) != nullptr)
                nodes.append(QString::number(line) + word->getText());
        }
    }
    // The other s of line 4 and the one of line 6 take part in nothing.
    QCOMPARE(nodes, QStringList({"3a", "3s", "4s", "4a"}));
}

void DepGraphLayoutTest::arrowsBecomeEdges() {
    SampleBlock sample;
    TestedWidget widget;
    const auto graph = sample.addOneOfEachKind().graph();
    widget.onNewGraph(graph.get(), sample.block.get());
    QCOMPARE(widget.getEdges().size(), 4);
    const QList<int> kinds = {1, 2, 4, 8};
    const QStringList from = {"a", "s", "s", "n"};
    const QList<int> fromLines = {3, 3, 4, 1};
    const QList<int> toLines = {4, 4, 4, 1};
    const QList<QList<int>> carriers = {{1}, {-1, 1}, {1}, {1}};
    const QList<int> shapes = {1, 1, 3, 3};
    for (int i = 0; i < 4; ++i) {
        const auto& edge = widget.edge(i);
        QCOMPARE(int{edge.getType()}, kinds.at(i));
        QCOMPARE(edge.getFrom()->getText(), from.at(i));
        QCOMPARE(edge.getFrom()->getPos().y(), widget.getLines().at(fromLines.at(i)).y);
        QCOMPARE(edge.getTo()->getPos().y(), widget.getLines().at(toLines.at(i)).y);
        QCOMPARE(edge.getCarriers(), carriers.at(i));
        QCOMPARE(edge.getShapeType(), shapes.at(i));
        QVERIFY(edge.isVisible());
        for (int mode = 1; mode <= 4; ++mode)
            QCOMPARE(edge.getTags().at(mode - 1),
                     QString::fromStdString(
                         graph->getArrows().at(static_cast<std::size_t>(i))->GetTag(static_cast<EN_PrintModes>(mode))));
        QCOMPARE(edge.getHint(), edge.getTags().at(0));
    }
}

void DepGraphLayoutTest::joinedLinesAreApart() {
    SampleBlock sample;
    TestedWidget widget;
    widget.build(sample.add(1, sample.writtenA, sample.readA, {1}).add(1, sample.addedS, sample.lastS, {-1}));
    const int lineHeight = widget.getLineHeight();
    const int lineStep = lineHeight + 2;
    // Only the lines 3 and 4 are adjacent ones that an edge joins.
    for (int line = 0; line < 8; ++line)
        QCOMPARE(widget.getLines().at(line).y, (line + 1) * lineStep + (line >= 4 ? 50 : 0));
    QCOMPARE(widget.getGraphSize().height(), 8 * lineStep + 50 + lineHeight);
}

void DepGraphLayoutTest::inputLoopsHaveRoom() {
    const auto xOf = [](const TestedWidget& widget, int line) {
        QList<int> places;
        for (const NodeBase* word : widget.getLines().at(line).nodes)
            places.append(word->getPos().x());
        return places;
    };
    SampleBlock plain;
    TestedWidget before;
    before.build(plain);

    SampleBlock sample;
    sample.add(8, sample.addedS, sample.addedS, {1}).add(4, sample.writtenA, sample.writtenA, {1});
    sample.add(8, sample.lastS, sample.addedS, {-1}).add(8, sample.bound, sample.bound, {1});
    sample.add(8, sample.bound, sample.bound, {1});
    TestedWidget widget;
    widget.build(sample);
    // "s = s + a[i - 1];": from the second s on. Other kinds and edges between two nodes move nothing.
    QList<int> expected = xOf(before, 4);
    for (int i = widget.textOf(4).indexOf("s", 1); i < expected.size(); ++i)
        expected[i] += 30;
    QCOMPARE(xOf(widget, 4), expected);
    QCOMPARE(xOf(widget, 3), xOf(before, 3));
    QCOMPARE(xOf(widget, 6), xOf(before, 6));
    // Each of two loops moves.
    expected = xOf(before, 1);
    for (int i = widget.textOf(1).indexOf("n"); i < expected.size(); ++i)
        expected[i] += 60;
    QCOMPARE(xOf(widget, 1), expected);
    int right = 0;
    for (const auto& line : widget.getLines())
        right = std::max(right, line.nodes.last()->getPos().x() + line.nodes.last()->getRect().right());
    QCOMPARE(widget.getGraphSize().width(), right);
}

void DepGraphLayoutTest::twoArrowsHaveTheirOwnPorts() {
    SampleBlock sample;
    TestedWidget widget;
    widget.build(sample.add(1, sample.writtenA, sample.readA, {1}).add(1, sample.writtenA, sample.readA, {-1}));
    QCOMPARE(widget.getEdges().size(), 2);
    QCOMPARE(widget.edge(0).getFrom(), widget.edge(1).getFrom());
    QCOMPARE(widget.edge(0).getTo(), widget.edge(1).getTo());
    QCOMPARE(widget.edge(0).getFrom()->getDownPorts().size(), std::size_t{2});
    QCOMPARE(widget.edge(0).getTo()->getUpPorts().size(), std::size_t{2});
    QVERIFY(widget.edge(0).getPort(EdgeSide::From) != widget.edge(1).getPort(EdgeSide::From));
    QVERIFY(widget.edge(0).getPort(EdgeSide::To) != widget.edge(1).getPort(EdgeSide::To));
}

/// Once when the filter gets its graph, twice for the order, once when all is shown, and never with what a filter
/// hides. The rules of the order are such that it matters how often.
void DepGraphLayoutTest::portsAreSortedFourTimes() {
    int tellThree = 0;
    int tellFive = 0;
    for (unsigned seed = 0; seed < 200; ++seed) {
        std::mt19937 generator(seed);
        const auto any = [&](std::size_t limit) {
            return std::uniform_int_distribution<std::size_t>(0, limit - 1)(generator);
        };
        SampleBlock sample;
        const Kova::Tessel::ExpressionBase* occurrences[] = {sample.bound,    sample.writtenA, sample.readS,
                                                             sample.writtenS, sample.addedS,   sample.readA,
                                                             sample.writtenT, sample.lastS};
        for (int i = 0; i < 40; ++i)
            sample.add(1 << any(4), occurrences[any(8)], occurrences[any(8)], {1});
        TestedWidget widget;
        if (seed % 2 == 1)
            widget.entry("Input")->trigger();
        widget.build(sample);
        const std::vector<int> ports = portsOf(widget);
        QCOMPARE(ports, sortedPorts(widget, {4, 4, 4, 4}));
        tellThree += ports != sortedPorts(widget, {4, 4, 4});
        tellFive += ports != sortedPorts(widget, {4, 4, 4, 4, 4});
    }
    QVERIFY(tellThree > 0);
    QVERIFY(tellFive > 0);
}

void DepGraphLayoutTest::theFontIsThatOfTheLayout() {
    const SampleBlock sample;
    TestedWidget widget;
    const QFont font("Monospace", 30);
    widget.setFont(font);
    widget.build(sample);
    QCOMPARE(widget.getLines().at(2).y, 3 * (QFontMetrics(font).height() + 1));
    QCOMPARE(widget.node(0, 0).getRect().width(), QFontMetrics(font).averageCharWidth());
}

QTEST_MAIN(DepGraphLayoutTest)
#include "DepGraphLayoutTest.moc"
