// SPDX-License-Identifier: MIT
#include "PlainGraph.h"
#include "TestGraph.h"
#include "visualization/graphcore/GenericGraphWidgetBase.h"
#include "visualization/graphcore/GraphEventHandler.h"

#include <QApplication>
#include <QTimer>
#include <QToolTip>
#include <QtTest>

#include <functional>
#include <vector>

using namespace Kova::GUI::GenericGraph;

namespace {

class Recorder : public GraphEventHandler {
public:
    void nodeClicked(const QPoint& position, NodeBase* node) override {
        events.append({"node", position, node, nullptr});
    }
    void nodeDoubleClicked(NodeBase* node) override { events.append({"double", QPoint(), node, nullptr}); }
    void edgeClicked(const QPoint& position, EdgeBase* edge) override {
        events.append({"edge", position, nullptr, edge});
    }

    struct Event {
        QByteArray kind;
        QPoint position;
        NodeBase* node;
        EdgeBase* edge;
    };
    QList<Event> events;
};

/// Two nodes with a level edge between them at y = 100, and a third node apart.
class Scene : public TestGraph {
public:
    Scene() {
        left = addNode(QStringLiteral("left"), QPoint(50, 100));
        right = addNode(QStringLiteral("right"), QPoint(250, 100));
        apart = addNode(QStringLiteral("apart"), QPoint(150, 250));
        edge = addEdge(left, right);
        edge->setToolTip(QStringLiteral("left calls right"));
        setMouseScroll(true);
        setGraphSize(2000, 2000);
        updateMap();
        QTest::qWait(20);
    }
    NodeBase* left;
    NodeBase* right;
    NodeBase* apart;
    EdgeBase* edge;

    bool repainted = false;

protected:
    void paintEvent(QPaintEvent* event) override {
        repainted = true;
        TestGraph::paintEvent(event);
    }
};

/// Closes the menu that a right click opens; whether there was one.
bool menuAppears(const std::function<void()>& click) {
    bool appeared = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        if (QWidget* popup = QApplication::activePopupWidget()) {
            appeared = true;
            popup->close();
        }
    });
    timer.start(5);
    click();
    return appeared;
}

} // namespace

class GenericGraphEventsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void pressGrabsANode() {
        Scene scene;
        QVERIFY(scene.press(QPoint(55, 105)));
        QCOMPARE(scene.grabbedNode(), scene.left);
        QVERIFY(scene.release(QPoint(55, 105)));
        QCOMPARE(scene.grabbedNode(), nullptr);
    }

    void otherButtonsDoNotGrab() {
        Scene scene;
        QVERIFY(!scene.press(QPoint(55, 105), Qt::RightButton));
        QCOMPARE(scene.grabbedNode(), nullptr);
    }

    void pressOnEmptySpacePans() {
        Scene scene;
        scene.horizontalScrollBar()->setValue(100);
        QVERIFY(!scene.press(QPoint(200, 200)));
        QCOMPARE(scene.grabbedNode(), nullptr);
        QVERIFY(scene.moveMouse(QPoint(230, 200), Qt::LeftButton));
        QVERIFY(scene.moveMouse(QPoint(240, 200), Qt::LeftButton));
        QCOMPARE(scene.horizontalScrollBar()->value(), 90);
        QVERIFY(scene.release(QPoint(240, 200)));
    }

    void pressOnAnEdgePans() {
        Scene scene;
        QVERIFY(!scene.press(QPoint(150, 100)));
        QCOMPARE(scene.grabbedNode(), nullptr);
    }

    void dragMovesTheNodeAndReshapes() {
        Scene scene;
        scene.repainted = false;
        QVERIFY(scene.press(QPoint(150, 250)));
        QVERIFY(scene.moveMouse(QPoint(150, 103), Qt::LeftButton));
        QCOMPARE(scene.apart->getCenter(), QPoint(150, 103));
        QCOMPARE(scene.edge->getShapeKind(), EdgeBase::Arc);
        // The graph shrinks to what the centres need.
        QCOMPARE(scene.getGraphSize(), QSize(300, 153));
        QTRY_VERIFY(scene.repainted);
        // The map is not made anew before the release.
        QCOMPARE(scene.findEdgeByPosition(QPoint(150, 100)), scene.edge);
        QVERIFY(scene.release(QPoint(150, 103)));
        QCOMPARE(scene.findEdgeByPosition(QPoint(150, 100)), nullptr);
        QCOMPARE(scene.edgeBounds(), plainHitMap(scene.getEdges()).first);
        QVERIFY(!scene.moveMouse(QPoint(300, 200), Qt::NoButton));
        QCOMPARE(scene.apart->getCenter(), QPoint(150, 103));
    }

    void dragUsesGraphCoordinates() {
        Scene scene;
        scene.setScale(2.0);
        scene.horizontalScrollBar()->setValue(40);
        scene.verticalScrollBar()->setValue(60);
        // (60, 140) on screen is (50, 100).
        QVERIFY(scene.press(QPoint(60, 140)));
        QVERIFY(scene.moveMouse(QPoint(101, 161), Qt::LeftButton));
        QCOMPARE(scene.left->getCenter(), QPoint(70, 110));
        QVERIFY(scene.release(QPoint(101, 161)));
    }

    void hoverHighlightsANode() {
        Scene scene;
        QTest::qWait(20);
        scene.repainted = false;
        QVERIFY(!scene.moveMouse(QPoint(150, 250)));
        QCOMPARE(scene.hoveredNode(), scene.apart);
        QCOMPARE(scene.hoveredEdge(), nullptr);
        QTRY_VERIFY(scene.repainted);
        QVERIFY(!scene.moveMouse(QPoint(150, 200)));
        QCOMPARE(scene.hoveredNode(), nullptr);
    }

    void hoverThatChangesNothingDoesNotRepaint() {
        Scene scene;
        scene.moveMouse(QPoint(150, 250));
        QTest::qWait(30);
        scene.repainted = false;
        scene.moveMouse(QPoint(151, 250));
        scene.moveMouse(QPoint(152, 250));
        QTest::qWait(30);
        QVERIFY(!scene.repainted);
    }

    void hoverThatChangesTheEdgeRepaints() {
        Scene scene;
        // Nothing else appears on the screen.
        scene.edge->setToolTip(QString());
        const auto moveTo = [&](const QPoint& position) {
            QTest::qWait(30);
            scene.repainted = false;
            scene.moveMouse(position);
        };
        moveTo(QPoint(150, 100));
        QTRY_VERIFY(scene.repainted);
        moveTo(QPoint(152, 100));
        QTest::qWait(30);
        QVERIFY(!scene.repainted);
        moveTo(QPoint(150, 200));
        QTRY_VERIFY(scene.repainted);
    }

    void hoverShowsTheToolTipOfAnEdge() {
        Scene scene;
        QVERIFY(!scene.moveMouse(QPoint(150, 100)));
        QCOMPARE(scene.hoveredEdge(), scene.edge);
        QCOMPARE(scene.hoveredNode(), nullptr);
        QVERIFY(QToolTip::isVisible());
        QCOMPARE(QToolTip::text(), QStringLiteral("left calls right"));
        QVERIFY(!scene.moveMouse(QPoint(150, 200)));
        QCOMPARE(scene.hoveredEdge(), nullptr);
        QTRY_VERIFY(!QToolTip::isVisible());
    }

    void hoverProbesOneUnitAround() {
        Scene scene;
        for (const QPoint& beside : {QPoint(150, 99), QPoint(150, 101)}) {
            QCOMPARE(scene.findEdgeByPosition(beside), nullptr);
            scene.moveMouse(beside);
            QCOMPARE(scene.hoveredEdge(), scene.edge);
            scene.moveMouse(QPoint(150, 200));
            QCOMPARE(scene.hoveredEdge(), nullptr);
        }
        for (const QPoint& off : {QPoint(150, 98), QPoint(150, 102), QPoint(151, 98)}) {
            scene.moveMouse(off);
            QCOMPARE(scene.hoveredEdge(), nullptr);
        }
    }

    void probesAreInOrder() {
        // Level edges at y = 201, 200 and 199, drawn in this order; a probe below wins over the one above only when the
        // middle has none.
        TestGraph graph;
        std::vector<EdgeBase*> levels;
        for (const int y : {203, 201, 199}) {
            NodeBase* from = graph.addNode(QString(), QPoint(20, y), QSize(3, 1));
            NodeBase* to = graph.addNode(QString(), QPoint(380, y), QSize(3, 1));
            levels.push_back(graph.addEdge(from, to));
        }
        graph.updateMap();
        graph.moveMouse(QPoint(200, 200));
        // (0, -1) is probed before (0, 1).
        QCOMPARE(graph.hoveredEdge(), levels[2]);
        graph.moveMouse(QPoint(200, 201));
        QCOMPARE(graph.hoveredEdge(), levels[1]);
        graph.moveMouse(QPoint(200, 202));
        QCOMPARE(graph.hoveredEdge(), levels[1]);
        graph.moveMouse(QPoint(200, 203));
        QCOMPARE(graph.hoveredEdge(), levels[0]);
    }

    void probesAreInGraphUnits() {
        Scene scene;
        scene.setScale(2.0);
        // y = 102 in graph units is two units beside the line, y = 101 one.
        scene.moveMouse(QPoint(300, 204));
        QCOMPARE(scene.hoveredEdge(), nullptr);
        scene.moveMouse(QPoint(300, 203));
        QCOMPARE(scene.hoveredEdge(), scene.edge);
    }

    void edgeOverANodeWins() {
        Scene scene;
        scene.apart->moveTo(150, 100);
        scene.moveMouse(QPoint(150, 100));
        QCOMPARE(scene.hoveredEdge(), scene.edge);
        QCOMPARE(scene.hoveredNode(), nullptr);
        // The node is found again first, then the edge.
        scene.moveMouse(QPoint(151, 100));
        QCOMPARE(scene.hoveredEdge(), scene.edge);
        QCOMPARE(scene.hoveredNode(), nullptr);
    }

    void fromAnEdgeOntoANodeTheToolTipStays() {
        Scene scene;
        scene.moveMouse(QPoint(150, 100));
        QVERIFY(QToolTip::isVisible());
        scene.moveMouse(QPoint(150, 250));
        QCOMPARE(scene.hoveredNode(), scene.apart);
        QCOMPARE(scene.hoveredEdge(), nullptr);
        QVERIFY(QToolTip::isVisible());
        QToolTip::hideText();
    }

    void hoverWithoutToolTipText() {
        Scene scene;
        scene.edge->setToolTip(QString());
        scene.moveMouse(QPoint(150, 100));
        QCOMPARE(scene.hoveredEdge(), scene.edge);
        QTRY_VERIFY(!QToolTip::isVisible());
    }

    void rightClickGoesToTheHandler() {
        Scene scene;
        Recorder recorder;
        scene.setEventHandler(&recorder);
        scene.setScale(2.0);
        scene.press(QPoint(102, 202), Qt::RightButton);
        QVERIFY(scene.release(QPoint(102, 202), Qt::RightButton));
        QCOMPARE(recorder.events.size(), 1);
        QCOMPARE(recorder.events[0].kind, QByteArray("node"));
        QCOMPARE(recorder.events[0].node, scene.left);
        QCOMPARE(recorder.events[0].position, QPoint(102, 202));
        QVERIFY(scene.release(QPoint(300, 200), Qt::RightButton));
        QCOMPARE(recorder.events.size(), 2);
        QCOMPARE(recorder.events[1].kind, QByteArray("edge"));
        QCOMPARE(recorder.events[1].edge, scene.edge);
        QCOMPARE(recorder.events[1].position, QPoint(300, 200));
        // No probes for clicks.
        QVERIFY(!scene.release(QPoint(300, 202), Qt::RightButton));
        QVERIFY(!scene.release(QPoint(300, 280), Qt::RightButton));
        QCOMPARE(recorder.events.size(), 2);
    }

    void nodeComesBeforeEdgeInClicks() {
        Scene scene;
        Recorder recorder;
        scene.setEventHandler(&recorder);
        scene.apart->moveTo(150, 100);
        QVERIFY(scene.release(QPoint(150, 100), Qt::RightButton));
        QCOMPARE(recorder.events.size(), 1);
        QCOMPARE(recorder.events[0].node, scene.apart);
    }

    void rightClickOpensTheMenu() {
        Scene scene;
        bool accepted = true;
        QVERIFY(!menuAppears([&] { accepted = scene.release(QPoint(150, 200), Qt::RightButton); }));
        QVERIFY(!accepted);
        scene.contextMenu().addAction(QStringLiteral("x"));
        QVERIFY(menuAppears([&] { accepted = scene.release(QPoint(150, 200), Qt::RightButton); }));
        QVERIFY(accepted);
        // Without a handler over a node, too.
        QVERIFY(menuAppears([&] { accepted = scene.release(QPoint(50, 100), Qt::RightButton); }));
        Recorder recorder;
        scene.setEventHandler(&recorder);
        QVERIFY(!menuAppears([&] { accepted = scene.release(QPoint(50, 100), Qt::RightButton); }));
        QVERIFY(accepted);
        QVERIFY(menuAppears([&] { accepted = scene.release(QPoint(150, 200), Qt::RightButton); }));
    }

    void doubleClickNeedsAHeldNode() {
        Scene scene;
        Recorder recorder;
        QVERIFY(!scene.doubleClick(QPoint(50, 100)));
        scene.setEventHandler(&recorder);
        QVERIFY(!scene.doubleClick(QPoint(50, 100)));
        scene.press(QPoint(50, 100));
        scene.release(QPoint(50, 100));
        QVERIFY(!scene.doubleClick(QPoint(50, 100)));
        QVERIFY(recorder.events.isEmpty());
        scene.press(QPoint(50, 100));
        QVERIFY(scene.doubleClick(QPoint(150, 250)));
        QCOMPARE(recorder.events.size(), 1);
        QCOMPARE(recorder.events[0].kind, QByteArray("double"));
        QCOMPARE(recorder.events[0].node, scene.left);
        scene.setEventHandler(nullptr);
        QVERIFY(!scene.doubleClick(QPoint(50, 100)));
    }

    void realMouseDragsANode() {
        Scene scene;
        QVERIFY(QTest::qWaitForWindowExposed(&scene));
        QTest::mousePress(scene.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(150, 250));
        QCOMPARE(scene.grabbedNode(), scene.apart);
        QMouseEvent move(QEvent::MouseMove, QPointF(200, 220), scene.viewport()->mapToGlobal(QPoint(200, 220)),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(scene.viewport(), &move);
        QTest::mouseRelease(scene.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(200, 220));
        QCOMPARE(scene.apart->getCenter(), QPoint(200, 220));
        QCOMPARE(scene.grabbedNode(), nullptr);
    }
};

QTEST_MAIN(GenericGraphEventsTest)
#include "GenericGraphEventsTest.moc"
