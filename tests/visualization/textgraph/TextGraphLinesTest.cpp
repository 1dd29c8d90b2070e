// SPDX-License-Identifier: MIT
#include "TestTextGraph.h"

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

using namespace Kova::GUI;
using namespace Kova::GUI::TextGraph;

namespace {

std::vector<int> ysOf(const TestTextGraph& graph) {
    std::vector<int> ys;
    for (const NodesLine& line : graph.getLines())
        ys.push_back(line.y);
    return ys;
}

std::vector<int> xsOf(const TestTextGraph& graph, int line) {
    std::vector<int> xs;
    for (const NodeBase* node : graph.getLines().at(line).nodes)
        xs.push_back(node->getPos().x());
    return xs;
}

/// Every node is on its line.
bool nodesAreOnTheirLines(const TestTextGraph& graph) {
    for (const NodesLine& line : graph.getLines()) {
        for (const NodeBase* node : line.nodes) {
            if (node->getPos().y() != line.y)
                return false;
        }
    }
    return true;
}

std::vector<int> shifted(std::vector<int> values, std::size_t from, int by) {
    for (std::size_t i = from; i < values.size(); ++i)
        values[i] += by;
    return values;
}

} // namespace

/// Moving lines and words, and the order of ports.
class TextGraphLinesTest : public QObject {
    Q_OBJECT

    static QStringList fourLines() {
        return {QStringLiteral("a b c"), QStringLiteral("d e f"), QStringLiteral("g h i"), QStringLiteral("j k l")};
    }

    /// Words of that width at 100 and 900 on a line at 60, joined by an arc, and a line below.
    static void addWideArc(TestTextGraph& graph, int width) {
        for (const int y : {60, 100}) {
            graph.lines().append(NodesLine());
            for (const int x : {100, 900}) {
                auto* word = new GraphNodeBase(QPoint(x, y), QStringLiteral("word"));
                word->setRect(QRect(0, -15, width, 20));
                graph.lines().last().nodes.append(word);
            }
            graph.lines().last().setY(y);
        }
        graph.setGraphSize(1000, 120);
        graph.join(graph.node(0, 0), graph.node(0, 1));
        graph.finish();
    }

private Q_SLOTS:
    void linesMoveWithThoseBelow() {
        TestTextGraph graph;
        graph.addText(fourLines());
        const std::vector<int> start = ysOf(graph);
        const QSize size = graph.getGraphSize();
        graph.shiftLines(2, 17);
        QCOMPARE(ysOf(graph), shifted(start, 2, 17));
        QVERIFY(nodesAreOnTheirLines(graph));
        graph.shiftLines(3, 5);
        QCOMPARE(ysOf(graph), shifted(shifted(start, 2, 17), 3, 5));
        graph.shiftLines(2, -17);
        QCOMPARE(ysOf(graph), shifted(start, 3, 5));
        // The size of the graph is the business of who moves.
        QCOMPARE(graph.getGraphSize(), size);
    }

    void linesStayMoreThanALineHeightApart() {
        TestTextGraph graph;
        graph.addText(fourLines());
        const std::vector<int> start = ysOf(graph);
        // They start a line height and 2 apart: one unit is left.
        graph.shiftLines(2, -2);
        QCOMPARE(ysOf(graph), start);
        graph.shiftLines(2, -1);
        QCOMPARE(ysOf(graph), shifted(start, 2, -1));
        graph.shiftLines(2, -1);
        QCOMPARE(ysOf(graph), shifted(start, 2, -1));
        graph.shiftLines(2, -1000);
        QCOMPARE(ysOf(graph), shifted(start, 2, -1));
    }

    void theFirstLineGoesAnywhere() {
        TestTextGraph graph;
        graph.addText(fourLines());
        const std::vector<int> start = ysOf(graph);
        graph.shiftLines(0, -500);
        QCOMPARE(ysOf(graph), shifted(start, 0, -500));
        QVERIFY(nodesAreOnTheirLines(graph));
    }

    void shiftsOfNoLineOrOutOfRangeAreIgnored() {
        TestTextGraph graph;
        graph.addText(fourLines());
        const std::vector<int> start = ysOf(graph);
        for (const int line : {-1, 4, 100})
            graph.shiftLines(line, 10);
        graph.shiftLines(1, std::numeric_limits<int>::max());
        graph.shiftLines(0, std::numeric_limits<int>::max() - start[0]);
        graph.shiftLines(1, std::numeric_limits<int>::min());
        QCOMPARE(ysOf(graph), start);
    }

    void wordsMoveWithThoseToTheRight() {
        TestTextGraph graph;
        graph.addText(fourLines());
        const std::vector<int> start = xsOf(graph, 1);
        const int height = graph.getGraphSize().height();
        graph.sprainLine(QPoint(1, 1), 40);
        QCOMPARE(xsOf(graph, 1), shifted(start, 1, 40));
        QCOMPARE(xsOf(graph, 2), start);
        QCOMPARE(graph.getGraphSize(), QSize(graph.node(1, 2)->getRightEnd(), height));
        QVERIFY(nodesAreOnTheirLines(graph));
        // Back again the widest line is another one.
        graph.node(3, 2)->setPos(graph.node(3, 2)->getPos() + QPoint(25, 0));
        graph.sprainLine(QPoint(1, 1), -40);
        QCOMPARE(xsOf(graph, 1), start);
        QCOMPARE(graph.getGraphSize(), QSize(graph.node(3, 2)->getRightEnd(), height));
    }

    void wordsStayRightOfTheirNeighbour() {
        TestTextGraph graph;
        graph.addText(fourLines());
        const std::vector<int> start = xsOf(graph, 1);
        const int room = graph.node(1, 1)->getPos().x() - graph.node(1, 0)->getRightEnd();
        QVERIFY(room > 0);
        graph.sprainLine(QPoint(1, 1), -room - 1);
        QCOMPARE(xsOf(graph, 1), start);
        // Touching is allowed.
        graph.sprainLine(QPoint(1, 1), -room);
        QCOMPARE(xsOf(graph, 1), shifted(start, 1, -room));
    }

    void theFirstWordStaysRightOfTheEdge() {
        TestTextGraph graph;
        graph.addText({QStringLiteral("  a b")});
        const std::vector<int> start = xsOf(graph, 0);
        graph.sprainLine(QPoint(0, 0), -start[0] - 1);
        QCOMPARE(xsOf(graph, 0), start);
        graph.sprainLine(QPoint(0, 0), -start[0]);
        QCOMPARE(xsOf(graph, 0), shifted(start, 0, -start[0]));
    }

    void movingRightIsNeverRefused() {
        TestTextGraph graph;
        graph.addText({QStringLiteral("a b")});
        // Overlapping, and left of 0.
        graph.node(0, 0)->setPos(QPoint(-50, graph.node(0, 0)->getPos().y()));
        graph.sprainLine(QPoint(0, 0), 5);
        QCOMPARE(graph.node(0, 0)->getPos().x(), -45);
        graph.node(0, 1)->setPos(graph.node(0, 0)->getPos());
        graph.sprainLine(QPoint(0, 1), 1);
        QCOMPARE(graph.node(0, 1)->getPos().x(), -44);
    }

    void theWidthIsThatOfTheLastMove() {
        TestTextGraph graph;
        graph.addText({QStringLiteral("a b"), QStringLiteral("c")});
        graph.lines().append(NodesLine());
        graph.setGraphSize(1234, 567);
        graph.sprainLine(QPoint(0, 1), -100);
        graph.sprainLine(QPoint(0, 1), 0);
        QCOMPARE(graph.getGraphSize(), QSize(1234, 567));
        graph.sprainLine(QPoint(1, 0), 1);
        QCOMPARE(graph.getGraphSize(), QSize(graph.node(0, 1)->getRightEnd(), 567));
    }

    void movesOfNoWordAreIgnored() {
        TestTextGraph graph;
        graph.addText(fourLines());
        const std::vector<int> start = xsOf(graph, 0);
        const QSize size = graph.getGraphSize();
        for (const QPoint& place : {QPoint(-1, -1), QPoint(0, -1), QPoint(0, 3), QPoint(4, 0), QPoint(-1, 0)})
            graph.sprainLine(place, 30);
        QCOMPARE(xsOf(graph, 0), start);
        QCOMPARE(graph.getGraphSize(), size);
    }

    void farMovesStayInRange() {
        TestTextGraph graph;
        graph.addText({QStringLiteral("a b")});
        graph.sprainLine(QPoint(0, 1), std::numeric_limits<int>::max());
        QCOMPARE(graph.node(0, 1)->getPos().x(), std::numeric_limits<int>::max());
        QCOMPARE(graph.getGraphSize().width(), std::numeric_limits<int>::max());
    }

    void joinedLinesMoveApart() {
        TestTextGraph graph;
        graph.addText(fourLines());
        const std::vector<int> start = ysOf(graph);
        const QSize size = graph.getGraphSize();
        // Downwards, upwards, and one that skips a line.
        graph.join(graph.node(0, 0), graph.node(1, 2));
        graph.join(graph.node(3, 0), graph.node(2, 1));
        graph.join(graph.node(1, 0), graph.node(3, 1));
        graph.join(graph.node(1, 0), graph.node(1, 1));
        graph.moveCloseLinesApart();
        QCOMPARE(ysOf(graph), shifted(shifted(start, 1, 50), 3, 50));
        QVERIFY(nodesAreOnTheirLines(graph));
        // All of it can still be reached and exported.
        QCOMPARE(graph.getGraphSize(), size + QSize(0, 100));
        QCOMPARE(graph.getGraphSize().height(), graph.getLines().last().y + graph.getLineHeight());
    }

    void hiddenEdgesMoveLinesApartToo() {
        TestTextGraph graph;
        graph.addText(fourLines());
        const std::vector<int> start = ysOf(graph);
        graph.join(graph.node(0, 0), graph.node(1, 2))->setVisible(false);
        graph.moveCloseLinesApart();
        QCOMPARE(ysOf(graph), shifted(start, 1, 50));
    }

    void unjoinedLinesStay() {
        TestTextGraph graph;
        graph.moveCloseLinesApart();
        graph.addText(fourLines());
        const std::vector<int> start = ysOf(graph);
        const QSize size = graph.getGraphSize();
        graph.moveCloseLinesApart();
        QCOMPARE(ysOf(graph), start);
        QCOMPARE(graph.getGraphSize(), size);
    }

    /// Lines are told apart by where they are at that moment.
    void linesAtTheSameHeightCountAsOne() {
        TestTextGraph graph;
        graph.addText(fourLines());
        graph.join(graph.node(0, 0), graph.node(3, 0));
        // The fourth line where the second is: the edge joins the first to the second as well.
        graph.lines()[3].setY(graph.getLines().at(1).y);
        const std::vector<int> start = ysOf(graph);
        graph.moveCloseLinesApart();
        // 0-1 joined: 1, 2, 3 by 50; the third and the fourth are not.
        QCOMPARE(ysOf(graph), shifted(start, 1, 50));
    }

    /// Against looking at every edge for every line.
    void linesMoveApartAsWrittenDown() {
        for (unsigned seed = 0; seed < 60; ++seed) {
            TestTextGraph graph;
            TestTextGraph twin;
            for (TestTextGraph* each : {&graph, &twin}) {
                std::mt19937 generator(seed);
                const auto any = [&](int low, int high) {
                    return std::uniform_int_distribution<int>(low, high)(generator);
                };
                const int lineCount = any(1, 15);
                each->addText(QStringList(QVector<QString>(lineCount, QStringLiteral("a b")).toList()));
                for (int i = any(0, 12); i > 0; --i) {
                    const int line = any(0, lineCount - 1);
                    each->join(each->node(line, 0), each->node(std::clamp(line + any(-2, 2), 0, lineCount - 1), 1));
                }
                // Lines close together; in every third text at any height, with nodes beside them.
                for (int line = 0; line < lineCount; ++line)
                    each->lines()[line].setY(seed % 3 == 0 ? any(0, 8) * 50 : each->getLines().at(line).y - line * 3);
                if (seed % 4 == 1)
                    each->node(0, 0)->setPos(QPoint(0, each->getLines().at(any(0, lineCount - 1)).y));
            }
            graph.moveCloseLinesApart();
            for (int i = 0; i + 1 < twin.getLines().size(); ++i) {
                const int upper = twin.getLines().at(i).y;
                const int lower = twin.getLines().at(i + 1).y;
                bool joined = false;
                for (const EdgeBase* edge : twin.getEdges()) {
                    const int from = edge->getFrom()->getPos().y();
                    const int to = edge->getTo()->getPos().y();
                    joined |= (from == upper && to == lower) || (from == lower && to == upper);
                }
                if (joined)
                    twin.shiftLines(i + 1, 50);
            }
            QCOMPARE(ysOf(graph), ysOf(twin));
        }
    }

    /// An arc of 800 units from the ports at 45 on rises by 100, to -55; 2 are left for the pen.
    void edgesAboveThePictureGetRoom() {
        TestTextGraph graph;
        addWideArc(graph, 0);
        const std::vector<int> start = ysOf(graph);
        graph.makeRoomAbove();
        QCOMPARE(ysOf(graph), shifted(start, 0, 57));
        QVERIFY(nodesAreOnTheirLines(graph));
        QCOMPARE(graph.getGraphSize(), QSize(1000, graph.getLines().last().y + graph.getLineHeight()));
        QCOMPARE(graph.edgeRects().at(0), graph.getEdges().at(0)->getShape().boundingRect());
        QVERIFY(graph.edgeRects().at(0).top() >= 2.0);
        // Once is enough.
        graph.makeRoomAbove();
        QCOMPARE(ysOf(graph), shifted(start, 0, 57));
    }

    /// An arc may get longer by both of its words when other edges go: 160 / 8 more.
    void roomIsLeftForWanderingPorts() {
        TestTextGraph graph;
        addWideArc(graph, 80);
        EdgeBase* below = graph.join(graph.node(0, 0), graph.node(0, 1));
        graph.finish();
        const std::vector<int> start = ysOf(graph);
        graph.makeRoomAbove();
        const int moved = ysOf(graph)[0] - start[0];
        QVERIFY2(moved >= 72 && moved <= 82, qPrintable(QString::number(moved)));
        below->setVisible(false);
        QVERIFY(graph.getEdges().at(0)->getShape().boundingRect().top() >= 2.0);
    }

    void picturesWithRoomStayAsTheyAre() {
        TestTextGraph graph;
        graph.addText(fourLines());
        graph.join(graph.node(0, 0), graph.node(0, 2));
        graph.join(graph.node(1, 0), graph.node(0, 2));
        graph.shiftLines(0, 20);
        graph.finish();
        const std::vector<int> start = ysOf(graph);
        const QSize size = graph.getGraphSize();
        graph.makeRoomAbove();
        QCOMPARE(ysOf(graph), start);
        QCOMPARE(graph.getGraphSize(), size);
        // Neither hidden edges count, nor is there anything to do without edges.
        TestTextGraph hidden;
        addWideArc(hidden, 0);
        hidden.edges().at(0)->setVisible(false);
        hidden.makeRoomAbove();
        QCOMPARE(ysOf(hidden), (std::vector<int>{60, 100}));
        TestTextGraph empty;
        empty.makeRoomAbove();
        QCOMPARE(empty.getGraphSize(), QSize(-1, -1));
    }

    /// A loop swings out upwards as well: from 5 to the control point at -15 and back is up to 0.
    void loopsGetRoomToo() {
        TestTextGraph graph;
        addWideArc(graph, 0);
        graph.shiftLines(0, -40);
        graph.join(graph.node(0, 0), graph.node(0, 0));
        graph.filter = [](const EdgeBase* edge) { return edge->getShapeType() == EdgeBase::Loop; };
        graph.finish();
        const double top = graph.edgeRects().at(1).top();
        QVERIFY(top < 2.0);
        graph.makeRoomAbove();
        QCOMPARE(ysOf(graph)[0], 20 + static_cast<int>(std::ceil(2.0 - top)));
        QVERIFY(graph.edgeRects().at(1).top() >= 2.0);
    }

    void reorderSortsOneKindOrAll() {
        const auto numbers = [](bool full, int rounds) {
            TestTextGraph graph;
            graph.addText(fourLines());
            graph.shiftLines(1, 100);
            // A loop behind a straight edge, and two straight edges that cross.
            graph.join(graph.node(0, 0), graph.node(1, 2));
            graph.join(graph.node(0, 0), graph.node(0, 0));
            graph.join(graph.node(0, 0), graph.node(1, 1));
            graph.reorder(full, rounds);
            std::vector<int> result;
            for (const EdgeBase* edge : graph.getEdges())
                result.push_back(edge->getPort(edge->getShapeType() == 3 ? EdgeSide::To : EdgeSide::From));
            return result;
        };
        QCOMPARE(numbers(true, 0), (std::vector<int>{1, 2, 3}));
        QCOMPARE(numbers(true, -1), (std::vector<int>{1, 2, 3}));
        // The straight edge goes to the front, past the loop; loops first, it stays behind the loop.

        QCOMPARE(numbers(false, 1), (std::vector<int>{2, 3, 1}));
        QCOMPARE(numbers(true, 1), (std::vector<int>{3, 1, 2}));
    }

    void reorderGoesRoundAsOftenAsAsked() {
        std::mt19937 generator(3);
        for (int rounds = 1; rounds <= 3; ++rounds) {
            for (const bool full : {false, true}) {
                const auto seed = static_cast<unsigned>(generator());
                TestTextGraph graph;
                TestTextGraph twin;
                for (TestTextGraph* each : {&graph, &twin}) {
                    std::mt19937 same(seed);
                    each->addRandom(same, 6, 3, 60, 6);
                }
                graph.reorder(full, rounds);
                for (int round = 0; round < rounds; ++round) {
                    for (int line = 0; line < 6; ++line) {
                        for (int index = 0; index < 3; ++index)
                            twin.node(line, index)->reorder(full ? 4 : 1);
                    }
                }
                for (int i = 0; i < 60; ++i) {
                    for (const EdgeSide side : {EdgeSide::From, EdgeSide::To})
                        QCOMPARE(graph.getEdges().at(i)->getPort(side), twin.getEdges().at(i)->getPort(side));
                }
            }
        }
    }

    void plainNodesAreLeftAlone() {
        TestTextGraph graph;
        graph.addText(fourLines());
        graph.lines()[0].nodes.append(new NodeBase(QPoint(300, 24), QStringLiteral("plain")));
        graph.join(graph.node(0, 0), graph.node(1, 0));
        graph.reorder(true, 1);
        QCOMPARE(graph.getEdges().at(0)->getPort(EdgeSide::From), 1);
    }

    /// All kinds of edges, and once: more rounds, or straight edges only, would give other orders here.
    void portsAreSortedOnceWhenVisibilityChanges() {
        const auto numbers = [](const std::function<void(TestTextGraph&)>& sort) {
            TestTextGraph graph;
            std::mt19937 generator(3);
            graph.addRandom(generator, 6, 3, 60, 6);
            for (EdgeBase* edge : graph.getEdges())
                edge->setVisible(edge->getPen().color() != Qt::red);
            graph.filter = [](const EdgeBase* edge) { return edge->getPen().color() != Qt::red; };
            sort(graph);
            return graph.portNumbers();
        };
        const auto updated = numbers([](TestTextGraph& graph) { graph.updateEdgesVisibility(); });
        QCOMPARE(updated, numbers([](TestTextGraph& graph) { graph.reorder(true, 1); }));
        QVERIFY(updated != numbers([](TestTextGraph& graph) { graph.reorder(true, 2); }));
        QVERIFY(updated != numbers([](TestTextGraph& graph) { graph.reorder(false, 1); }));
        QVERIFY(updated != numbers([](TestTextGraph&) {}));
    }

    void visibilityFollowsTheFilter() {
        TestTextGraph graph;
        graph.addText(fourLines());
        graph.shiftLines(1, 100);
        graph.join(graph.node(0, 1), graph.node(1, 2), Qt::red);
        graph.join(graph.node(0, 1), graph.node(1, 1), Qt::blue);
        graph.join(graph.node(0, 1), graph.node(1, 0), Qt::blue);
        graph.filter = [](const EdgeBase* edge) { return edge->getPen().color() == Qt::blue; };
        graph.updateEdgesVisibility();
        QCOMPARE(graph.asked, 3);
        QVERIFY(!graph.getEdges().at(0)->isVisible());
        // And ports are sorted: the one that leads farther left is left.
        QCOMPARE(graph.getEdges().at(1)->getPort(EdgeSide::From), 2);
        QCOMPARE(graph.getEdges().at(2)->getPort(EdgeSide::From), 1);
        graph.filter = nullptr;
        graph.updateEdgesVisibility();
        QCOMPARE(graph.getEdges().at(0)->getPort(EdgeSide::From), 3);
    }
};

QTEST_MAIN(TextGraphLinesTest)
#include "TextGraphLinesTest.moc"
