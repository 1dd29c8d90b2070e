// SPDX-License-Identifier: MIT
#include "TestTextGraph.h"

#include <QAction>
#include <QToolTip>
#include <QtTest>

using namespace Kova::GUI;
using namespace Kova::GUI::TextGraph;

namespace {

std::vector<int> ysOf(const TestTextGraph& graph) {
    std::vector<int> ys;
    for (const NodesLine& line : graph.getLines())
        ys.push_back(line.y);
    return ys;
}

/// Four lines of three words, a straight edge from the first to the last line.
class Sample : public TestTextGraph {
public:
    explicit Sample(const QSize& size = QSize(600, 400)) : TestTextGraph(size) {
        addText({QStringLiteral("alpha beta gamma"), QStringLiteral("delta eps zeta"), QStringLiteral("eta theta iota"),
                 QStringLiteral("kappa lambda mu")});
        shiftLines(1, 40);
        shiftLines(2, 40);
        shiftLines(3, 40);
        join(node(0, 2), node(3, 2))->setHint(QStringLiteral("the hint"));
        setGraphSize(getGraphSize() + QSize(0, 120));
        finish();
        show();
    }
    /// On the edge, in graph units, away from all words.
    [[nodiscard]] QPoint onEdge() const {
        const ArrowCurve curve = getEdges().at(0)->getCurve();
        return {(curve.start.x() + curve.end.x()) / 2, (curve.start.y() + curve.end.y()) / 2};
    }
};

} // namespace

/// Real events at the viewport.
class TextGraphEventsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QToolTip::hideText(); }

    void pressOnAWordHoldsIt() {
        Sample graph;
        QVERIFY(graph.press(graph.middleOf(1, 1)));
        QCOMPARE(graph.heldNode(), QPoint(1, 1));
        QVERIFY(graph.release(graph.middleOf(1, 1)));
        QCOMPARE(graph.heldNode(), QPoint(-1, -1));
    }

    void otherButtonsHoldNothing() {
        Sample graph;
        QVERIFY(!graph.press(graph.middleOf(1, 1), Qt::RightButton));
        QVERIFY(!graph.press(graph.middleOf(1, 1), Qt::MiddleButton));
        QCOMPARE(graph.heldNode(), QPoint(-1, -1));
    }

    void dragMovesLinesAndWords() {
        Sample graph;
        const std::vector<int> ys = ysOf(graph);
        const int x1 = graph.node(1, 1)->getPos().x();
        const int x2 = graph.node(1, 2)->getPos().x();
        const int x0 = graph.node(1, 0)->getPos().x();
        const QPoint start = graph.middleOf(1, 1);
        graph.press(start);
        QVERIFY(graph.drag(start + QPoint(30, 15)));
        QCOMPARE(ysOf(graph), (std::vector<int>{ys[0], ys[1] + 15, ys[2] + 15, ys[3] + 15}));
        QCOMPARE(graph.node(1, 1)->getPos(), QPoint(x1 + 30, ys[1] + 15));
        QCOMPARE(graph.node(1, 2)->getPos().x(), x2 + 30);
        QCOMPARE(graph.node(1, 0)->getPos().x(), x0);
        // From there on, not from the start.
        QVERIFY(graph.drag(start + QPoint(31, 10)));
        QCOMPARE(graph.node(1, 1)->getPos(), QPoint(x1 + 31, ys[1] + 10));
        graph.release(start + QPoint(31, 10));
        // Let go, it stays.
        graph.moveMouse(start + QPoint(60, 60));
        graph.drag(start + QPoint(90, 90));
        QCOMPARE(graph.node(1, 1)->getPos(), QPoint(x1 + 31, ys[1] + 10));
    }

    void theGraphGrowsWithTheDrag() {
        Sample graph(QSize(300, 100));
        const QPoint start = graph.middleOf(0, 2);
        graph.press(start);
        graph.drag(start + QPoint(200, 300));
        QCOMPARE(graph.getGraphSize().height(), graph.getLines().last().y + graph.getLineHeight());
        QCOMPARE(graph.getGraphSize().width(), graph.node(0, 2)->getRightEnd());
        QCOMPARE(graph.verticalScrollBar()->maximum(), graph.getGraphSize().height() - 100);
        QCOMPARE(graph.horizontalScrollBar()->maximum(), graph.getGraphSize().width() - 300);
    }

    void ctrlKeepsLinesAndShiftKeepsWords() {
        Sample graph;
        const std::vector<int> ys = ysOf(graph);
        const QPoint pos = graph.node(1, 1)->getPos();
        const QPoint start = graph.middleOf(1, 1);
        graph.press(start);
        graph.drag(start + QPoint(0, 15), Qt::ControlModifier);
        QCOMPARE(ysOf(graph), ys);
        graph.drag(start + QPoint(20, 15), Qt::ShiftModifier);
        QCOMPARE(graph.node(1, 1)->getPos(), pos);
        // What was not moved is not made up for.
        graph.drag(start + QPoint(21, 16));
        QCOMPARE(graph.node(1, 1)->getPos(), pos + QPoint(1, 1));
        graph.drag(start + QPoint(31, 26), Qt::ControlModifier);
        QCOMPARE(graph.node(1, 1)->getPos(), pos + QPoint(11, 1));
        graph.drag(start + QPoint(41, 36), Qt::ShiftModifier);
        QCOMPARE(graph.node(1, 1)->getPos(), pos + QPoint(11, 11));
        graph.drag(start + QPoint(51, 46), Qt::ShiftModifier | Qt::ControlModifier);
        QCOMPARE(graph.node(1, 1)->getPos(), pos + QPoint(11, 11));
    }

    void lineDraggedUpStopsBelowTheOneAbove() {
        Sample graph;
        const QPoint start = graph.middleOf(3, 0);
        const int limit = graph.getLines().at(2).y + graph.getLineHeight();
        graph.press(start);
        for (int dy = 1; dy < 100; ++dy)
            graph.drag(start - QPoint(0, dy));
        QCOMPARE(graph.getLines().at(3).y, limit + 1);
        graph.drag(start - QPoint(0, 200));
        QCOMPARE(graph.getLines().at(3).y, limit + 1);
    }

    void firstWordIsNotDraggedOffTheLeft() {
        Sample graph;
        const QPoint start = graph.middleOf(1, 0);
        graph.press(start);
        graph.drag(start - QPoint(1, 0));
        QCOMPARE(graph.node(1, 0)->getPos().x(), 0);
        graph.drag(start + QPoint(9, 0));
        QCOMPARE(graph.node(1, 0)->getPos().x(), 10);
    }

    /// Ports follow what was dragged, but only when it is put down, and only those of straight edges.
    void portsAreSortedWhenTheWordIsPutDown() {
        Sample graph;
        // To the left and to the right, in the right order.
        EdgeBase* left = graph.join(graph.node(1, 1), graph.node(3, 0));
        EdgeBase* right = graph.join(graph.node(1, 1), graph.node(3, 1));
        EdgeBase* loop = graph.join(graph.node(1, 1), graph.node(1, 1));
        graph.updateMap();
        const QPoint start = graph.middleOf(3, 0);
        graph.press(start);
        // The left one passes the other: its line's words cannot, so the word itself is moved.
        graph.drag(start + QPoint(5, 0));
        graph.node(3, 0)->setPos(QPoint(500, graph.node(3, 0)->getPos().y()));
        QCOMPARE(left->getPort(EdgeSide::From), 1);
        const QRectF old = graph.edgeRects().at(1);
        graph.release(start + QPoint(5, 0));
        QCOMPARE(left->getPort(EdgeSide::From), 2);
        QCOMPARE(right->getPort(EdgeSide::From), 1);
        QCOMPARE(loop->getPort(EdgeSide::To), 3);
        // And can be hovered where they are now.
        QVERIFY(graph.edgeRects().at(1) != old);
        QCOMPARE(graph.edgeRects().at(1), left->getShape().boundingRect());
    }

    void onlyTheLeftButtonPutsAWordDown() {
        Sample graph;
        graph.createMenu();
        const QPoint start = graph.middleOf(1, 1);
        graph.press(start);
        graph.press(start, Qt::RightButton);
        QVERIFY(graph.release(start, Qt::RightButton));
        QVERIFY(graph.menu().isVisible());
        graph.menu().close();
        graph.release(start, Qt::MiddleButton);
        QCOMPARE(graph.heldNode(), QPoint(1, 1));
        graph.release(start);
        QCOMPARE(graph.heldNode(), QPoint(-1, -1));
    }

    /// Straight edges only, and once: more rounds, or all edges, would give other orders here.
    void portsAreSortedOnceWhenTheWordIsPutDown() {
        const auto numbers = [](const std::function<void(TestTextGraph&)>& action) {
            TestTextGraph graph(QSize(1200, 800));
            std::mt19937 generator(3);
            graph.addRandom(generator, 6, 3, 60, 6);
            graph.setBuilded();
            graph.show();
            action(graph);
            return graph.portNumbers();
        };
        const auto dropped = numbers([](TestTextGraph& graph) {
            graph.press(graph.middleOf(5, 0));
            QCOMPARE(graph.heldNode(), QPoint(5, 0));
            graph.release(graph.middleOf(5, 0));
        });
        QCOMPARE(dropped, numbers([](TestTextGraph& graph) { graph.reorder(false, 1); }));
        QVERIFY(dropped != numbers([](TestTextGraph& graph) { graph.reorder(false, 2); }));
        QVERIFY(dropped != numbers([](TestTextGraph& graph) { graph.reorder(true, 1); }));
        QVERIFY(dropped != numbers([](TestTextGraph&) {}));
    }

    void blankSpacePans() {
        Sample graph(QSize(200, 60));
        graph.setGraphSize(graph.getGraphSize() + QSize(200, 0));
        graph.scrollTo(50, 100);
        const QPoint scrolled = graph.scrolled();
        // Between lines, and beside the words of one.
        for (const QPoint& blank : {QPoint(190, 5), QPoint(190, 45)}) {
            QVERIFY(!graph.press(blank));
            QCOMPARE(graph.heldNode(), QPoint(graph.getLineByPoint(blank + scrolled), -1));
            const std::vector<int> ys = ysOf(graph);
            graph.drag(blank - QPoint(20, 20));
            QVERIFY(graph.drag(blank - QPoint(25, 22)));
            QCOMPARE(graph.scrolled(), scrolled + QPoint(5, 2));
            QVERIFY(graph.release(blank));
            QCOMPARE(ysOf(graph), ys);
            graph.scrollTo(50, 100);
        }
    }

    void pressOnAWordUnderAnEdgePans() {
        Sample graph(QSize(300, 100));
        // The edge runs over words of the third line.
        graph.node(2, 2)->setPos(QPoint(graph.onEdge().x() - 40, graph.node(2, 2)->getPos().y()));
        const ArrowCurve curve = graph.getEdges().at(0)->getCurve();
        const int y = graph.node(2, 2)->getPos().y() - 5;
        const double part = static_cast<double>(y - curve.start.y()) / (curve.end.y() - curve.start.y());
        const int x = static_cast<int>(std::lround(curve.start.x() + part * (curve.end.x() - curve.start.x())));
        graph.scrollTo(0, 60);
        const QPoint scrolled = graph.scrolled();
        const QPoint place = QPoint(x, y) - scrolled;
        QCOMPARE(graph.getNodeByCurPos(QPoint(x, y)), QPoint(2, 2));
        graph.moveMouse(place);
        QCOMPARE(graph.getSelectedEdge(), 0);
        const std::vector<int> ys = ysOf(graph);
        QVERIFY(!graph.press(place));
        QCOMPARE(graph.heldNode(), QPoint(2, -1));
        graph.drag(place + QPoint(0, 20));
        QVERIFY(graph.drag(place + QPoint(0, 24)));
        QCOMPARE(ysOf(graph), ys);
        QCOMPARE(graph.scrolled(), scrolled - QPoint(0, 4));
        QVERIFY(graph.release(place));
    }

    void scenePointsAreRounded() {
        Sample graph;
        graph.setScale(3.0);
        // The words' left bound is exclusive: x = 1 is the first that is in. 2 / 3 rounds to it, 1 / 3 does not.
        const int y = 3 * (graph.getLines().at(0).y - 5);
        graph.press(QPoint(1, y));
        QCOMPARE(graph.heldNode(), QPoint(0, -1));
        graph.release(QPoint(1, y));
        graph.press(QPoint(2, y));
        QCOMPARE(graph.heldNode(), QPoint(0, 0));
        graph.release(QPoint(2, y));
        // Scrolled by one pixel: 1 + 1.
        graph.resize(100, 100);
        graph.updateScrollBars();
        graph.scrollTo(1, 0);
        QCOMPARE(graph.scrolled(), QPoint(1, 0));
        graph.press(QPoint(1, y));
        QCOMPARE(graph.heldNode(), QPoint(0, 0));
    }

    void scenePointsAreRoundedDownwardsToo() {
        Sample graph;
        graph.setScale(3.0);
        // The first point below the upper bound of a line, which is exclusive: a third of a unit above it rounds to it.
        const int inside = graph.getLines().at(1).y - graph.getLineHeight() + 1;
        const int x = 3 * graph.middleOf(1, 0).x();
        graph.press(QPoint(x, 3 * inside - 2));
        QCOMPARE(graph.heldNode(), QPoint(-1, -1));
        graph.release(QPoint(x, 3 * inside - 2));
        graph.press(QPoint(x, 3 * inside - 1));
        QCOMPARE(graph.heldNode(), QPoint(1, 0));
        graph.release(QPoint(x, 3 * inside - 1));
        // Scrolled by as much as is missing.
        graph.resize(100, 100);
        graph.updateScrollBars();
        graph.scrollTo(0, 3 * inside - 1);
        graph.press(QPoint(x, 0));
        QCOMPARE(graph.heldNode(), QPoint(1, 0));
    }

    /// Half a unit above the picture is one above, where the mouse is that left the viewport.
    void halvesAreRoundedAwayFromZero() {
        Sample graph(QSize(1200, 800));
        graph.setScale(2.0);
        const int y = graph.getLines().at(0).y;
        const QPoint start = graph.middleOf(0, 0);
        graph.press(start * 2);
        QCOMPARE(graph.heldNode(), QPoint(0, 0));
        graph.drag(QPoint(start.x() * 2, -1));
        QCOMPARE(graph.getLines().at(0).y, y - start.y() - 1);
        graph.drag(QPoint(start.x() * 2, 1));
        QCOMPARE(graph.getLines().at(0).y, y - start.y() + 1);
    }

    void whatChangesIsRepainted() {
        Sample graph;
        QVERIFY(QTest::qWaitForWindowExposed(&graph));
        const QPoint start = graph.middleOf(1, 1);
        QCOMPARE(graph.repaintsAfter([&] { graph.moveMouse(graph.onEdge()); }), 1);
        // On the same edge nothing changes.
        QCOMPARE(graph.repaintsAfter([&] { graph.moveMouse(graph.onEdge()); }), 0);
        QCOMPARE(graph.repaintsAfter([&] { graph.moveMouse(start); }), 1);
        QCOMPARE(graph.repaintsAfter([&] { graph.press(start); }), 0);
        QCOMPARE(graph.repaintsAfter([&] { graph.drag(start + QPoint(3, 3)); }), 1);
        QCOMPARE(graph.repaintsAfter([&] { graph.release(start + QPoint(3, 3)); }), 1);
        QCOMPARE(graph.repaintsAfter([&] { graph.release(start + QPoint(3, 3)); }), 0);
        QCOMPARE(graph.repaintsAfter([&] { graph.selectEdge(0); }), 1);
        QCOMPARE(graph.repaintsAfter([&] { graph.selectEdge(0); }), 0);
        QCOMPARE(graph.repaintsAfter([&] { graph.makeRoomAbove(); }), 0);
        graph.shiftLines(0, -graph.getLines().at(0).y);
        graph.join(graph.node(0, 0), graph.node(0, 1));
        QCOMPARE(graph.repaintsAfter([&] { graph.makeRoomAbove(); }), 1);
    }

    void dragsAreScaled() {
        Sample graph(QSize(1200, 800));
        graph.setScale(2.0);
        const int y = graph.getLines().at(1).y;
        const QPoint start = graph.middleOf(1, 1) * 2;
        graph.press(start);
        graph.drag(start + QPoint(0, 20));
        QCOMPARE(graph.getLines().at(1).y, y + 10);
    }

    void hoverHighlightsAndHints() {
        Sample graph;
        std::vector<int> heard;
        graph.setHoverListener([&](int edge) { heard.push_back(edge); });
        QVERIFY(!graph.moveMouse(graph.onEdge()));
        QCOMPARE(graph.getSelectedEdge(), 0);
        QCOMPARE(QToolTip::text(), QStringLiteral("the hint"));
        QVERIFY(QToolTip::isVisible());
        graph.moveMouse(graph.onEdge() + QPoint(0, 1));
        QVERIFY(QToolTip::isVisible());
        graph.moveMouse(QPoint(400, 300));
        QCOMPARE(graph.getSelectedEdge(), -1);
        QTRY_VERIFY(!QToolTip::isVisible());
        QCOMPARE(heard, (std::vector<int>{0, -1}));
    }

    void onePixelBesideIsStillOnTheEdge() {
        // Lines of no slope: a vertical edge between words of the same place.
        TestTextGraph graph;
        graph.addText({QStringLiteral("word"), QStringLiteral("word")});
        graph.shiftLines(1, 100);
        graph.join(graph.node(0, 0), graph.node(1, 0));
        graph.finish();
        const ArrowCurve curve = graph.getEdges().at(0)->getCurve();
        QCOMPARE(curve.start.x(), curve.end.x());
        const QPoint middle(curve.start.x(), (curve.start.y() + curve.end.y()) / 2);
        for (const int dx : {-1, 0, 1}) {
            graph.moveMouse(QPoint(500, 300));
            QCOMPARE(graph.getSelectedEdge(), -1);
            graph.moveMouse(middle + QPoint(dx, 0));
            QCOMPARE(graph.getSelectedEdge(), 0);
        }
        for (const int dx : {-2, 2}) {
            graph.moveMouse(middle + QPoint(dx, 0));
            QCOMPARE(graph.getSelectedEdge(), -1);
        }
        // At the ends it is one pixel as well, up and down. The arrowhead is at the lower one.
        graph.moveMouse(curve.start - QPoint(0, 1));
        QCOMPARE(graph.getSelectedEdge(), 0);
        graph.moveMouse(curve.start - QPoint(0, 2));
        QCOMPARE(graph.getSelectedEdge(), -1);
        graph.moveMouse(curve.end + QPoint(0, 1));
        QCOMPARE(graph.getSelectedEdge(), 0);
    }

    /// The point itself first, then left, right, above, below.
    void neighboursAreTriedInOrder() {
        const auto selected = [](const QPoint& listedFirst, const QPoint& listedSecond) {
            TestTextGraph graph;
            // Vertical edges through and beside (100, 200), or ones above and below that fall by 2 on their way of 100.
            for (const QPoint& offset : {listedFirst, listedSecond}) {
                const bool across = offset.y() != 0;
                const QPoint from = QPoint(100, 200) + offset - (across ? QPoint(50, 1) : QPoint(0, 50));
                const QPoint to = QPoint(100, 200) + offset + (across ? QPoint(50, 1) : QPoint(0, 50));
                graph.lines().append(NodesLine());
                // A node without width has its ports at its position, where its rectangle's top and bottom are.
                for (const QPoint& place : {from, to}) {
                    auto* node = new GraphNodeBase(place, QString());
                    node->setRect(QRect(QPoint(0, 0), QPoint(-1, 0)));
                    graph.lines().last().nodes.append(node);
                }
                graph.join(graph.node(graph.getLines().size() - 1, 0), graph.node(graph.getLines().size() - 1, 1));
            }
            graph.finish();
            graph.moveMouse(QPoint(100, 200));
            return graph.getSelectedEdge();
        };
        const QPoint inOrder[] = {{0, 0}, {-1, 0}, {1, 0}, {0, -1}, {0, 1}};
        for (int first = 0; first < 5; ++first) {
            for (int second = 0; second < first; ++second)
                QCOMPARE(selected(inOrder[first], inOrder[second]), 1);
        }
        QCOMPARE(selected(QPoint(-1, 0), QPoint(1, 0)), 0);
        QCOMPARE(selected(QPoint(0, 1), QPoint(0, 2)), 0);
        QCOMPARE(selected(QPoint(2, 0), QPoint(0, 2)), -1);
    }

    void edgesThatWereHiddenMeanwhileHaveNoTip() {
        Sample graph;
        graph.edges().at(0)->setVisible(false);
        // The map still has it.
        graph.moveMouse(graph.edgeRects().at(0).center().toPoint());
        QCOMPARE(graph.getSelectedEdge(), 0);
        QVERIFY(QToolTip::text().isEmpty());
        QVERIFY(!QToolTip::isVisible());
    }

    void hiddenEdgesAreNotHovered() {
        Sample graph;
        const QPoint place = graph.onEdge();
        graph.filter = [](const EdgeBase*) { return false; };
        graph.updateEdgesVisibility();
        graph.updateMap();
        graph.moveMouse(place);
        QCOMPARE(graph.getSelectedEdge(), -1);
    }

    void hoverOverAClearedGraphFindsNothing() {
        Sample graph;
        const QPoint place = graph.onEdge();
        graph.moveMouse(place);
        graph.clear();
        QCOMPARE(graph.getSelectedEdge(), -1);
        graph.moveMouse(place);
        QCOMPARE(graph.getSelectedEdge(), -1);
        graph.press(place);
        graph.drag(place + QPoint(30, 30));
        graph.release(place);
    }

    void clearedWhileHeldMovesNothing() {
        Sample graph;
        graph.press(graph.middleOf(1, 1));
        graph.clear();
        QCOMPARE(graph.heldNode(), QPoint(-1, -1));
        graph.drag(QPoint(200, 200));
        graph.release(QPoint(200, 200));
    }

    void builtAnewNothingIsHeld() {
        Sample graph;
        graph.press(graph.middleOf(1, 1));
        graph.setBuilded();
        QCOMPARE(graph.heldNode(), QPoint(-1, -1));
    }

    void rightClickOpensTheMenuEvenOverAWord() {
        Sample graph;
        graph.createMenu();
        for (const QPoint& place : {graph.middleOf(1, 1), QPoint(400, 300)}) {
            graph.press(place, Qt::RightButton);
            QVERIFY(!graph.menu().isVisible());
            QVERIFY(graph.release(place, Qt::RightButton));
            QVERIFY(graph.menu().isVisible());
            QCOMPARE(graph.menu().pos(), graph.viewport()->mapToGlobal(place));
            graph.menu().close();
        }
    }

    void releasesThatEndPanningOpenNoMenu() {
        Sample graph(QSize(300, 100));
        graph.createMenu();
        graph.setMouseScrollButton(Qt::RightButton);
        const QPoint start(200, 90);
        graph.press(start, Qt::RightButton);
        graph.moveMouse(start - QPoint(0, 20), Qt::RightButton);
        graph.moveMouse(start - QPoint(0, 30), Qt::RightButton);
        QCOMPARE(graph.scrolled(), QPoint(0, 10));
        QVERIFY(graph.release(start - QPoint(0, 30), Qt::RightButton));
        QVERIFY(!graph.menu().isVisible());
        // The next click does.
        graph.press(start, Qt::RightButton);
        graph.release(start, Qt::RightButton);
        QVERIFY(graph.menu().isVisible());
        graph.menu().close();
    }

    void otherReleasesAreConsumedWithoutAMenu() {
        Sample graph;
        graph.createMenu();
        QVERIFY(graph.release(graph.middleOf(1, 1), Qt::LeftButton));
        QVERIFY(graph.release(graph.middleOf(1, 1), Qt::MiddleButton));
        QVERIFY(!graph.menu().isVisible());
    }

    void wheelZooms() {
        Sample graph;
        QWheelEvent wheel(QPointF(10, 10), graph.viewport()->mapToGlobal(QPoint(10, 10)), QPoint(), QPoint(0, 120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(graph.viewport(), &wheel);
        QCOMPARE(graph.getScale(), 1.1);
    }
};

QTEST_MAIN(TextGraphEventsTest)
#include "TextGraphEventsTest.moc"
