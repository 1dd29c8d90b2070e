// SPDX-License-Identifier: MIT
#include "visualization/graphcore/NodeBase.h"

#include "tests/visualization/graphcore/Pixels.h"
#include "visualization/graphcore/EdgeBase.h"

#include <QFontMetrics>
#include <QtTest>

#include <functional>
#include <memory>
#include <type_traits>
#include <vector>

using namespace Kova::GUI::GenericGraph;

namespace {

static_assert(std::is_polymorphic_v<NodeBase>);
static_assert(!std::has_virtual_destructor_v<NodeBase>);
static_assert(!std::is_copy_constructible_v<NodeBase> && !std::is_copy_assignable_v<NodeBase>);
static_assert(NodeBase::In == 0 && NodeBase::Out == 1);
static_assert(NodeBase::Inner == 0 && NodeBase::Sink == 1 && NodeBase::Source == 2);

/// Tells when an edge asks where it leaves the box.
class SpyNode : public NodeBase {
public:
    SpyNode(const QString& text, QStringList& log) : NodeBase(text), m_log(log) {}
    [[nodiscard]] QPoint cutEdge(const QPoint& a, const QPoint&) const override {
        m_log.append(getText());
        if (onCut)
            onCut();
        return a;
    }
    std::function<void()> onCut;

private:
    QStringList& m_log;
};

/// Larger than its base.
class LargeNode : public NodeBase {
public:
    LargeNode() : NodeBase(QStringLiteral("large")) {}
    int payload[100] = {};
};

using Pixels::black;
using Pixels::blue;
using Pixels::count;
using Pixels::red;
using Pixels::white;

QImage painted(const NodeBase& node, bool selected, const QBrush& brush = Qt::NoBrush) {
    return Pixels::painted(QSize(120, 80), [&](QPainter& painter) {
        painter.setBrush(brush);
        node.draw(painter, selected);
    });
}

} // namespace

class NodeBaseTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void freshNode() {
        const NodeBase node(QStringLiteral("p"));
        QCOMPARE(node.getText(), QStringLiteral("p"));
        QVERIFY(node.getIncomingEdges().empty());
        QVERIFY(node.getOutgoingEdges().empty());
        QCOMPARE(QPoint(node.getX(), node.getY()), QPoint(0, 0));
        QCOMPARE(node.getWidth(), -1);
        QCOMPARE(node.getHeight(), -1);
        QVERIFY(node.isVisible());
        QCOMPARE(node.getTextColor(), QRgb(0xff000000));
        QCOMPARE(node.getCenter(), QPoint(0, 0));
    }

    void kindCountsEntries() {
        NodeBase a(QStringLiteral("a"));
        NodeBase b(QStringLiteral("b"));
        QCOMPARE(a.getKind(), NodeBase::Source);
        auto edge = std::make_unique<EdgeBase>(&a, &b);
        QCOMPARE(a.getKind(), NodeBase::Source);
        QCOMPARE(b.getKind(), NodeBase::Sink);
        const EdgeBase back(&b, &a);
        QCOMPARE(a.getKind(), NodeBase::Inner);
        QCOMPARE(b.getKind(), NodeBase::Inner);
        edge.reset();
        QCOMPARE(b.getKind(), NodeBase::Inner);
    }

    void kindOfALoop() {
        NodeBase node(QStringLiteral("a"));
        const EdgeBase loop(&node, &node);
        QCOMPARE(node.getKind(), NodeBase::Inner);
    }

    void deletedEdgeLeavesNullEntries() {
        NodeBase a(QStringLiteral("a"));
        NodeBase b(QStringLiteral("b"));
        auto first = std::make_unique<EdgeBase>(&a, &b);
        EdgeBase second(&a, &b);
        first.reset();
        QCOMPARE(a.getOutgoingEdges(), std::vector<EdgeBase*>({nullptr, &second}));
        QCOMPARE(b.getIncomingEdges(), std::vector<EdgeBase*>({nullptr, &second}));
        QCOMPARE(b.getKind(), NodeBase::Sink);
        b.moveTo(50, 50);
        QCOMPARE(second.getEnd(), QPoint(50, 50));
    }

    void detachIgnoresAbsentEdges() {
        NodeBase a(QStringLiteral("a"));
        NodeBase b(QStringLiteral("b"));
        EdgeBase edge(&a, &b);
        a.detach(&edge, NodeBase::In);
        b.detach(&edge, NodeBase::Out);
        QCOMPARE(a.getOutgoingEdges(), std::vector<EdgeBase*>({&edge}));
        QVERIFY(a.getIncomingEdges().empty());
    }

    void attachAppends() {
        NodeBase a(QStringLiteral("a"));
        NodeBase b(QStringLiteral("b"));
        EdgeBase edge(&a, &b);
        b.attach(&edge, NodeBase::Out);
        QCOMPARE(b.getOutgoingEdges(), std::vector<EdgeBase*>({&edge}));
        b.detach(&edge, NodeBase::Out);
        QCOMPARE(b.getOutgoingEdges(), std::vector<EdgeBase*>({nullptr}));
    }

    void moveToPlacesTheCenter() {
        NodeBase node(QStringLiteral("a"));
        node.moveTo(10, 20);
        // -1 / 2 is 0.
        QCOMPARE(QPoint(node.getX(), node.getY()), QPoint(10, 20));
        QCOMPARE(node.getCenter(), QPoint(10, 20));
        node.setSize(5, 8);
        node.moveTo(10, 20);
        QCOMPARE(node.getRect(), QRect(8, 16, 5, 8));
        QCOMPARE(node.getCenter(), QPoint(10, 20));
        node.moveTo(-10, -20);
        QCOMPARE(node.getRect(), QRect(-12, -24, 5, 8));
        node.move(3, -4);
        QCOMPARE(node.getRect(), QRect(-9, -28, 5, 8));
    }

    void sizeFollowsTheLabelAndKeepsXCentred() {
        QFontMetrics metrics(QFont(QStringLiteral("Arial"), 12));
        for (const QString& text : {QStringLiteral("i"), QStringLiteral("procedure"), QStringLiteral("two\nlines")}) {
            NodeBase node(text);
            node.move(0, 7);
            node.updateSize(metrics);
            const QSize label = metrics.size(0, text);
            QCOMPARE(node.getWidth(), label.width() + 10);
            QCOMPARE(node.getHeight(), label.height() + 10);
            // From a width of -1; a width of 47 makes -24.
            QCOMPARE(node.getX(), -((label.width() + 11) / 2));
            QCOMPARE(node.getY(), 7);
            node.updateSize(metrics);
            QCOMPARE(node.getX(), -((label.width() + 11) / 2));
        }
    }

    void shrinkingMovesXToTheRight() {
        QFontMetrics metrics(QFont(QStringLiteral("Arial"), 12));
        NodeBase node(QStringLiteral("i"));
        node.setSize(501, 20);
        node.updateSize(metrics);
        QCOMPARE(node.getX(), (501 - metrics.size(0, QStringLiteral("i")).width() - 10) / 2);
    }

    void edgesFollowEverySizeAndMove() {
        NodeBase a(QStringLiteral("a"));
        NodeBase b(QStringLiteral("b"));
        const EdgeBase edge(&a, &b);
        QFontMetrics metrics(QFont(QStringLiteral("Arial"), 12));
        a.updateSize(metrics);
        a.moveTo(100, 100);
        b.moveTo(300, 100);
        QCOMPARE(edge.getStart(), QPoint(a.getRect().right(), 100));
        a.move(10, 0);
        QCOMPARE(edge.getStart(), QPoint(a.getRect().right(), 100));
    }

    void incomingEdgesAreUpdatedBeforeOutgoingOnes() {
        QStringList log;
        NodeBase hub(QStringLiteral("hub"));
        SpyNode target(QStringLiteral("target"), log);
        SpyNode source(QStringLiteral("source"), log);
        SpyNode other(QStringLiteral("other"), log);
        const EdgeBase out(&hub, &target);
        const EdgeBase in(&source, &hub);
        const EdgeBase second(&other, &hub);
        hub.notifyEdges();
        QCOMPARE(log, QStringList({QStringLiteral("source"), QStringLiteral("other"), QStringLiteral("target")}));
    }

    void loopIsUpdatedTwice() {
        QStringList log;
        SpyNode node(QStringLiteral("n"), log);
        const EdgeBase loop(&node, &node);
        node.notifyEdges();
        // Each update cuts at both ends.
        QCOMPARE(log.size(), 4);
    }

    void listsMayChangeWhileEdgesAreUpdated_data() {
        QTest::addColumn<int>("direction");
        QTest::newRow("incoming") << int(NodeBase::In);
        QTest::newRow("outgoing") << int(NodeBase::Out);
    }

    // Every edge that was in the list at the start is updated, and none that came later.
    void listsMayChangeWhileEdgesAreUpdated() {
        QFETCH(int, direction);
        const auto side = static_cast<Direction>(direction);
        QStringList log;
        NodeBase hub(QStringLiteral("hub"));
        SpyNode first(QStringLiteral("first"), log);
        SpyNode second(QStringLiteral("second"), log);
        SpyNode later(QStringLiteral("later"), log);
        const auto connect = [&](NodeBase& other) {
            return side == NodeBase::In ? std::make_unique<EdgeBase>(&other, &hub)
                                        : std::make_unique<EdgeBase>(&hub, &other);
        };
        const auto firstEdge = connect(first);
        const auto secondEdge = connect(second);
        std::vector<std::unique_ptr<EdgeBase>> added;
        first.onCut = [&] {
            hub.detach(secondEdge.get(), side);
            for (int i = 0; i < 100; ++i)
                added.push_back(connect(later));
        };
        hub.notifyEdges();
        QCOMPARE(log, QStringList({QStringLiteral("first"), QStringLiteral("second")}));
        const std::vector<EdgeBase*>& list = side == NodeBase::In ? hub.getIncomingEdges() : hub.getOutgoingEdges();
        QCOMPARE(list.size(), std::size_t(102));
        QCOMPARE(list[1], nullptr);
    }

    void cutUsesTheBoxWithItsCorners() {
        NodeBase node(QStringLiteral("n"));
        node.setSize(21, 11);
        node.moveTo(100, 100);
        QCOMPARE(node.cutEdge(QPoint(100, 100), QPoint(300, 100)), QPoint(110, 100));
        QCOMPARE(node.cutEdge(QPoint(100, 100), QPoint(110, 105)), QPoint(100, 100));
        QCOMPARE(node.cutEdge(QPoint(0, 100), QPoint(300, 100)), QPoint(0, 100));
    }

    void drawsASeeThroughBox() {
        NodeBase node(QString{});
        node.setSize(61, 31);
        node.moveTo(50, 40);
        const QImage image = painted(node, false);
        QCOMPARE(node.getRect(), QRect(20, 25, 61, 31));
        QCOMPARE(image.pixel(20, 40), black);
        QCOMPARE(image.pixel(50, 25), black);
        QCOMPARE(image.pixel(50, 40), white);
        // Rounded with a radius of 7.
        QCOMPARE(image.pixel(20, 25), white);
        QCOMPARE(image.pixel(21, 40), white);
        QCOMPARE(image.pixel(27, 25), black);
    }

    void usesThePaintersBrush() {
        NodeBase node(QString{});
        node.setSize(61, 31);
        node.moveTo(50, 40);
        QCOMPARE(painted(node, false, Qt::red).pixel(50, 40), red);
    }

    void selectedNodeHasABlueBorderOfThree() {
        NodeBase node(QString{});
        node.setSize(61, 31);
        node.moveTo(50, 40);
        const QImage image = painted(node, true);
        for (const int x : {19, 20, 21})
            QCOMPARE(image.pixel(x, 40), blue);
        QCOMPARE(image.pixel(18, 40), white);
        QCOMPARE(image.pixel(22, 40), white);
        QCOMPARE(count(image, black), 0);
    }

    void labelIsCentredInItsColour() {
        NodeBase node(QStringLiteral("Label"));
        node.setSize(90, 40);
        node.moveTo(60, 40);
        node.setTextColor(red);
        QImage expected(120, 80, QImage::Format_RGB32);
        expected.fill(Qt::white);
        QPainter painter(&expected);
        painter.setPen(QColor(Qt::black));
        painter.drawRoundedRect(QRect(15, 20, 90, 40), 7.0, 7.0);
        painter.setPen(QColor(Qt::red));
        painter.drawText(QRect(15, 20, 90, 40), Qt::AlignCenter, QStringLiteral("Label"));
        painter.end();
        QCOMPARE(painted(node, false), expected);
        QVERIFY(count(expected, red) > 0);
    }

    void invisibleNodeIsNotDrawn() {
        NodeBase node(QStringLiteral("Label"));
        node.setSize(60, 30);
        node.moveTo(50, 40);
        node.setVisible(false);
        QCOMPARE(count(painted(node, true), white), 120 * 80);
    }

    void largerSubclassIsDestroyedAsNodeBase() {
        NodeBase::destroy(new LargeNode);
        NodeBase::destroy(nullptr);
    }

    void everyChangeIsStamped() {
        NodeBase node(QStringLiteral("n"));
        quint64 before = node.getStamp();
        const auto stamped = [&] {
            const bool newer = node.getStamp() > before;
            before = node.getStamp();
            return newer;
        };
        node.moveTo(1, 2);
        QVERIFY(stamped());
        node.move(1, 2);
        QVERIFY(stamped());
        node.setSize(3, 4);
        QVERIFY(stamped());
        node.setVisible(false);
        QVERIFY(stamped());
        node.setTextColor(0xff00ff00);
        QVERIFY(stamped());
        QFontMetrics metrics{QFont()};
        node.updateSize(metrics);
        QVERIFY(stamped());
        painted(node, false);
        QVERIFY(!stamped());
    }
};

QTEST_MAIN(NodeBaseTest)
#include "NodeBaseTest.moc"
