// SPDX-License-Identifier: MIT
// Small print of the mouse, the wheel and the pens.
#include "TestGraph.h"
#include "tests/visualization/graphcore/Pixels.h"

#include <QApplication>
#include <QBuffer>
#include <QFontMetrics>
#include <QPainter>
#include <QScrollBar>
#include <QSvgGenerator>
#include <QTimer>
#include <QToolTip>
#include <QTransform>
#include <QWheelEvent>
#include <QtTest>

#include <cmath>
#include <functional>
#include <limits>

using namespace Kova::GUI::GenericGraph;

namespace {

/// A picture larger than its viewport, so that it can be panned.
class PannedGraph : public TestGraph {
public:
    PannedGraph() {
        setMouseScroll(true);
        setGraphSize(2000, 2000);
    }

    /// An edge between two nodes that are placed at its ends.
    EdgeBase* addLine(const QPoint& from, const QPoint& to) {
        EdgeBase* edge = addEdge(addNode(QStringLiteral("a"), from), addNode(QStringLiteral("b"), to));
        updateMap();
        return edge;
    }

    void turnWheel(const QPointF& position, int delta) {
        QWheelEvent event(position, viewport()->mapToGlobal(position.toPoint()), QPoint(), QPoint(0, delta),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(viewport(), &event);
    }

    [[nodiscard]] QPoint scroll() const { return {horizontalScrollBar()->value(), verticalScrollBar()->value()}; }
};

/// An event whose position on the screen does not follow from that in the viewport.
bool sendFrom(const QPoint& global, PannedGraph& graph, QEvent::Type type, const QPoint& position,
              Qt::MouseButton button) {
    QMouseEvent event(type, position, global, button, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(graph.viewport(), &event);
    return event.isAccepted();
}

/// Where the tool tip's label is on the screen.
QPoint toolTipPosition() {
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->inherits("QTipLabel"))
            return window->pos();
    }
    return {};
}

QByteArray svgOf(const std::function<void(QPainter&)>& draw) {
    QBuffer buffer;
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    QPainter painter(&generator);
    draw(painter);
    painter.end();
    return buffer.data();
}

} // namespace

class GenericGraphDetailsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void uprightLinesAreFoundOneUnitBesideThem() {
        PannedGraph graph;
        EdgeBase* edge = graph.addLine(QPoint(100, 30), QPoint(100, 270));
        for (const auto& [x, found] : {std::pair(98, false), {99, true}, {100, true}, {101, true}, {102, false}}) {
            graph.moveMouse(QPoint(300, 150));
            QCOMPARE(graph.hoveredEdge(), nullptr);
            graph.moveMouse(QPoint(x, 150));
            QCOMPARE(graph.hoveredEdge() == edge, found);
        }
    }

    void leftIsProbedBeforeRight() {
        PannedGraph graph;
        EdgeBase* left = graph.addLine(QPoint(99, 30), QPoint(99, 270));
        graph.addLine(QPoint(101, 30), QPoint(101, 270));
        graph.moveMouse(QPoint(100, 150));
        QCOMPARE(graph.hoveredEdge(), left);
    }

    void sidesAreProbedBeforeAbove() {
        PannedGraph graph;
        EdgeBase* right = graph.addLine(QPoint(201, 30), QPoint(201, 270));
        graph.addLine(QPoint(30, 149), QPoint(370, 149));
        graph.moveMouse(QPoint(200, 150));
        QCOMPARE(graph.hoveredEdge(), right);
    }

    void toolTipsAppearAtTheGlobalPosition() {
        PannedGraph graph;
        graph.viewport()->setMouseTracking(true);
        graph.addLine(QPoint(50, 100), QPoint(350, 100))->setToolTip(QStringLiteral("one"));
        graph.addLine(QPoint(50, 200), QPoint(350, 200))->setToolTip(QStringLiteral("two"));
        sendFrom(QPoint(60, 300), graph, QEvent::MouseMove, QPoint(200, 100), Qt::NoButton);
        QCOMPARE(QToolTip::text(), QStringLiteral("one"));
        const QPoint first = toolTipPosition();
        sendFrom(QPoint(160, 270), graph, QEvent::MouseMove, QPoint(200, 200), Qt::NoButton);
        QCOMPARE(QToolTip::text(), QStringLiteral("two"));
        QCOMPARE(toolTipPosition() - first, QPoint(100, -30));
        // Beside the mouse by no more than its pointer is large.
        QVERIFY(QRect(60, 300, 60, 60).contains(first));
        QToolTip::hideText();
    }

    void menuOpensAtTheGlobalPosition() {
        PannedGraph graph;
        graph.contextMenu().addAction(QStringLiteral("x"));
        QPoint place;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
            if (QWidget* popup = QApplication::activePopupWidget()) {
                place = popup->pos();
                popup->close();
            }
        });
        timer.start(5);
        QVERIFY(sendFrom(QPoint(333, 222), graph, QEvent::MouseButtonRelease, QPoint(20, 10), Qt::RightButton));
        QCOMPARE(place, QPoint(333, 222));
    }

    void hoverLooksBeforeThePictureMoves() {
        PannedGraph graph;
        NodeBase* node = graph.addNode(QStringLiteral("a"), QPoint(240, 200)); // from 220 to 260
        graph.horizontalScrollBar()->setValue(100);
        QVERIFY(!graph.press(QPoint(200, 200)));
        QVERIFY(graph.moveMouse(QPoint(185, 200), Qt::LeftButton)); // 285 in the graph
        QCOMPARE(graph.hoveredNode(), nullptr);
        // At 240 of the graph; once the picture has followed the mouse, at 285 again.
        QVERIFY(graph.moveMouse(QPoint(140, 200), Qt::LeftButton));
        QCOMPARE(graph.scroll().x(), 145);
        QCOMPARE(graph.hoveredNode(), node);
    }

    void pressThatGrabsNothingStartsToPan() {
        PannedGraph graph;
        QVERIFY(!graph.press(QPoint(200, 200)));
        QVERIFY(!graph.moveMouse(QPoint(205, 205), Qt::LeftButton)); // 10 from the press
        QVERIFY(graph.moveMouse(QPoint(205, 206), Qt::LeftButton));
    }

    void otherButtonsKeepTheGrab() {
        PannedGraph graph;
        NodeBase* node = graph.addNode(QStringLiteral("a"), QPoint(100, 100));
        QVERIFY(graph.press(QPoint(100, 100)));
        graph.release(QPoint(300, 250), Qt::RightButton);
        QCOMPARE(graph.grabbedNode(), node);
    }

    void hoverGoesOnWhileAButtonIsHeld() {
        PannedGraph graph;
        EdgeBase* edge = graph.addLine(QPoint(50, 100), QPoint(350, 100));
        graph.moveMouse(QPoint(200, 100), Qt::RightButton);
        QCOMPARE(graph.hoveredEdge(), edge);
    }

    void movesOverAnEdgePan() {
        PannedGraph graph;
        graph.addLine(QPoint(50, 100), QPoint(350, 100));
        QVERIFY(!graph.press(QPoint(200, 100)));
        QVERIFY(graph.moveMouse(QPoint(220, 100), Qt::LeftButton));
    }

    void clearForgetsTheHoveredEdge() {
        PannedGraph graph;
        EdgeBase* edge = graph.addLine(QPoint(50, 100), QPoint(350, 100));
        graph.moveMouse(QPoint(200, 100));
        QCOMPARE(graph.hoveredEdge(), edge);
        graph.clear();
        QCOMPARE(graph.hoveredEdge(), nullptr);
    }

    void wheelRoundsWhereTheMouseIsAndWhatItAdds() {
        // 15 * 0.1 = 1.5 rounds to 2 and 7 * 0.1 = 0.7 to 1; positions round to (15, 7).
        for (const QPointF& position : {QPointF(15, 7), QPointF(14.6, 6.7), QPointF(15.4, 7.4)}) {
            PannedGraph graph;
            graph.turnWheel(position, 120);
            QCOMPARE(graph.scroll(), QPoint(2, 1));
        }
    }

    void releaseIsNotTakenWhenPanningWasSwitchedOff() {
        PannedGraph graph;
        graph.press(QPoint(200, 200));
        QVERIFY(graph.moveMouse(QPoint(220, 220), Qt::LeftButton));
        graph.setMouseScroll(false);
        QVERIFY(!graph.release(QPoint(220, 220)));
    }

    void farCornerOfAnEnormousPicture() {
        PannedGraph graph;
        graph.setGraphSize(2000000000, 2000000000);
        graph.setScale(1000.0);
        graph.horizontalScrollBar()->setValue(graph.horizontalScrollBar()->maximum());
        const int scrolled = graph.horizontalScrollBar()->value();
        QCOMPARE(scrolled, std::numeric_limits<int>::max());
        QCOMPARE(graph.screenToGraph(QPoint(353, 0)).x(), 2147484); // (2147483647 + 353) / 1000
        graph.turnWheel(QPointF(399, 0), 1200);
    }

    void sizingANodeUpdatesItsEdges() {
        PannedGraph graph;
        EdgeBase* edge = graph.addLine(QPoint(100, 100), QPoint(350, 100));
        NodeBase* node = edge->getSource();
        node->setSize(4, 4);
        edge->updatePos();
        const int before = edge->getStart().x();
        QFontMetrics metrics(graph.labelFont());
        node->updateSize(metrics);
        QVERIFY(edge->getStart().x() > before);
        QCOMPARE(edge->getStart().x(), node->getRect().right());
    }

    void selectedItemsHaveTheirCapsAndJoins() {
        PannedGraph graph;
        EdgeBase* edge = graph.addLine(QPoint(50, 100), QPoint(350, 100));
        const QByteArray edgeSvg = svgOf([edge](QPainter& painter) { edge->draw(painter, true); });
        QVERIFY(edgeSvg.contains("stroke-linecap=\"round\""));
        QVERIFY(edgeSvg.contains("stroke-linejoin=\"miter\""));
        const QByteArray nodeSvg = svgOf([edge](QPainter& painter) { edge->getSource()->draw(painter, true); });
        QVERIFY(nodeSvg.contains("stroke-linecap=\"square\""));
        QVERIFY(nodeSvg.contains("stroke-linejoin=\"bevel\""));
    }

    void wingsStandTenDegreesToBothSides() {
        const QPoint tip(1000, 1000);
        int differing = 0;
        for (int degrees = 0; degrees < 360; ++degrees) {
            QTransform turned;
            turned.rotate(degrees);
            const QPoint control = (QPointF(tip) - turned.map(QPointF(500, 0))).toPoint();
            // What truncation leaves of the back of the arrow, turned by 10 degrees either way.
            const QPointF back = QPointF(control - tip) / std::hypot(control.x() - tip.x(), control.y() - tip.y()) * 15;
            const auto wing = [&](double angle) {
                const QPointF at = QPointF(tip) + QTransform().rotate(angle).map(back);
                return QPoint(static_cast<int>(at.x()), static_cast<int>(at.y()));
            };
            const auto wings = Kova::GUI::arrowWings(control, tip);
            differing += wings.first != wing(10) ? 1 : 0;
            differing += wings.second != wing(-10) ? 1 : 0;
        }
        // Where a coordinate is a whole number but for the last bit, either neighbour may come out.
        QVERIFY2(differing <= 8, qPrintable(QString::number(differing)));
    }

    void labelsEndWithTheirBoxes() {
        PannedGraph graph;
        NodeBase* node = graph.addNode(QStringLiteral("a label much wider than its box"), QPoint(200, 100), {41, 31});
        const QImage image = Pixels::painted(QSize(400, 200), [&](QPainter& painter) {
            painter.setFont(graph.labelFont());
            node->draw(painter, false);
        });
        const QRect near = node->getRect().adjusted(-2, -2, 2, 2);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                QVERIFY(near.contains(x, y) || image.pixel(x, y) == Pixels::white);
    }

    void arrowheadsAreNeverFilled() {
        PannedGraph graph;
        EdgeBase* edge = graph.addLine(QPoint(50, 100), QPoint(350, 100));
        const QImage image = Pixels::painted(QSize(400, 200), [&](QPainter& painter) {
            painter.setBrush(Qt::red);
            edge->draw(painter, false);
        });
        QCOMPARE(Pixels::count(image, Pixels::red), 0);
    }
};

QTEST_MAIN(GenericGraphDetailsTest)
#include "GenericGraphDetailsTest.moc"
