// SPDX-License-Identifier: MIT
#include "visualization/graphcore/EdgeBase.h"

#include "tests/visualization/graphcore/Pixels.h"
#include "visualization/graphcore/NodeBase.h"

#include <QtTest>

#include <cstdlib>
#include <type_traits>
#include <utility>
#include <vector>

using namespace Kova::GUI::GenericGraph;

namespace {

static_assert(!std::is_polymorphic_v<EdgeBase>);
static_assert(!std::is_copy_constructible_v<EdgeBase> && !std::is_copy_assignable_v<EdgeBase>);
static_assert(EdgeBase::Straight == 0 && EdgeBase::Arc == 1 && EdgeBase::Loop == 2);

/// Records its cuts and answers with points of its own.
class SpyNode : public NodeBase {
public:
    explicit SpyNode(const QPoint& answer) : NodeBase(QString()), m_answer(answer) {}
    [[nodiscard]] QPoint cutEdge(const QPoint& a, const QPoint& b) const override {
        cuts.emplace_back(a, b);
        return m_answer;
    }
    mutable std::vector<std::pair<QPoint, QPoint>> cuts;

private:
    QPoint m_answer;
};

class LargeEdge : public EdgeBase {
public:
    using EdgeBase::EdgeBase;
    int payload[100] = {};
};

/// Two boxes of 21 × 11 around (100, 100) and (300, 100).
struct Pair {
    NodeBase source{QString()};
    NodeBase target{QString()};
    Pair() {
        source.setSize(21, 11);
        target.setSize(21, 11);
        source.moveTo(100, 100);
        target.moveTo(300, 100);
    }
};

bool isNear(const QPoint& point, int x, int y) {
    return std::abs(point.x() - x) <= 1 && std::abs(point.y() - y) <= 1;
}

using Pixels::blue;
using Pixels::red;
using Pixels::white;

QImage painted(const EdgeBase& edge, bool selected) {
    return Pixels::painted(QSize(400, 200), [&](QPainter& painter) { edge.draw(painter, selected); });
}

} // namespace

class EdgeBaseTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void freshEdgeIsAttachedAndHasNoGeometry() {
        Pair nodes;
        EdgeBase edge(&nodes.source, &nodes.target);
        QCOMPARE(edge.getSource(), &nodes.source);
        QCOMPARE(edge.getTarget(), &nodes.target);
        QCOMPARE(nodes.source.getOutgoingEdges(), std::vector<EdgeBase*>({&edge}));
        QCOMPARE(nodes.target.getIncomingEdges(), std::vector<EdgeBase*>({&edge}));
        for (const QPoint& point : {edge.getStart(), edge.getFirstControl(), edge.getSecondControl(), edge.getEnd(),
                                    edge.getFirstWing(), edge.getSecondWing()})
            QCOMPARE(point, QPoint(0, 0));
        QCOMPARE(edge.getShapeKind(), EdgeBase::Straight);
        QCOMPARE(edge.getBendIndex(), 0);
        QCOMPARE(edge.getTextColor(), QRgb(0xff000000));
        QCOMPARE(edge.getPen(), QPen(QColor(Qt::black)));
        QVERIFY(edge.getText().isEmpty());
        QVERIFY(edge.getToolTip().isEmpty());
    }

    void straightEdgeRunsBetweenTheBoxes() {
        Pair nodes;
        EdgeBase edge(&nodes.source, &nodes.target);
        edge.updatePos();
        QCOMPARE(edge.getStart(), QPoint(110, 100));
        QCOMPARE(edge.getEnd(), QPoint(290, 100));
        QCOMPARE(edge.getFirstControl(), QPoint(200, 100));
        QCOMPARE(edge.getSecondControl(), QPoint(200, 100));
        // 290 - 14.77, 100 ± 2.60
        QCOMPARE(edge.getFirstWing(), QPoint(275, 97));
        QCOMPARE(edge.getSecondWing(), QPoint(275, 102));
    }

    void straightCutsTheTargetTowardsTheNewStart() {
        SpyNode source(QPoint(11, 12));
        SpyNode target(QPoint(20, 33));
        source.moveTo(0, 0);
        target.moveTo(100, 50);
        EdgeBase edge(&source, &target);
        source.cuts.clear();
        target.cuts.clear();
        edge.updatePos();
        QCOMPARE(source.cuts.size(), std::size_t(1));
        QCOMPARE(source.cuts[0], std::make_pair(QPoint(0, 0), QPoint(100, 50)));
        QCOMPARE(target.cuts.size(), std::size_t(1));
        QCOMPARE(target.cuts[0], std::make_pair(QPoint(100, 50), QPoint(11, 12)));
        // (11 + 20) / 2 = 15.5, (12 + 33) / 2 = 22.5
        QCOMPARE(edge.getFirstControl(), QPoint(16, 23));
    }

    void arcTakesItsControlsFromTheCentres() {
        Pair nodes;
        EdgeBase edge(&nodes.source, &nodes.target);
        edge.setShapeKind(EdgeBase::Arc);
        // A third of 200 at 30°: (57.7, 33.3); from left to right that is downwards.
        QCOMPARE(edge.getFirstControl(), QPoint(157, 133));
        QCOMPARE(edge.getSecondControl(), QPoint(242, 133));
        // Leaves through the lower sides, y = 105: 100 + 57 * 5 / 33 and 300 - 58 * 5 / 33.
        QCOMPARE(edge.getStart(), QPoint(108, 105));
        QCOMPARE(edge.getEnd(), QPoint(291, 105));
    }

    void arcFromRightToLeftBendsUp() {
        Pair nodes;
        EdgeBase edge(&nodes.target, &nodes.source);
        edge.setShapeKind(EdgeBase::Arc);
        QVERIFY(isNear(edge.getFirstControl(), 242, 66));
        QVERIFY(isNear(edge.getSecondControl(), 157, 66));
    }

    void bendIndexBendsByTenDegreesMore() {
        Pair nodes;
        EdgeBase edge(&nodes.source, &nodes.target);
        edge.setBendIndex(1);
        edge.setShapeKind(EdgeBase::Arc);
        // 66.67 at 40°: (51.07, 42.85)
        QCOMPARE(edge.getFirstControl(), QPoint(151, 142));
        QCOMPARE(edge.getSecondControl(), QPoint(248, 142));
        edge.setBendIndex(3);
        QCOMPARE(edge.getFirstControl(), QPoint(151, 142));
        edge.updatePos();
        // at 60°: (33.33, 57.74)
        QVERIFY(isNear(edge.getFirstControl(), 133, 157));
    }

    void loopRisesAboveItsNode() {
        Pair nodes;
        EdgeBase edge(&nodes.source, &nodes.source);
        edge.setShapeKind(EdgeBase::Loop);
        QCOMPARE(edge.getFirstControl(), QPoint(180, 60));
        QCOMPARE(edge.getSecondControl(), QPoint(20, 60));
        QCOMPARE(edge.getStart(), QPoint(110, 95));
        QCOMPARE(edge.getEnd(), QPoint(90, 95));
        // Direction (70, 35) is 26.565°; 15 units at 36.565° and 16.565° back from (90, 95).
        QCOMPARE(edge.getFirstWing(), QPoint(77, 86));
        QCOMPARE(edge.getSecondWing(), QPoint(75, 90));
        QVERIFY(edge.getShape().boundingRect().top() < nodes.source.getY());
    }

    void coincidingCentresGiveAPoint() {
        NodeBase a{QString()};
        NodeBase b{QString()};
        EdgeBase edge(&a, &b);
        for (const ShapeKind kind : {EdgeBase::Arc, EdgeBase::Straight}) {
            edge.setShapeKind(kind);
            QCOMPARE(edge.getShape().boundingRect(), QRectF(0, 0, 0, 0));
            QCOMPARE(edge.getFirstWing(), QPoint(0, 0));
        }
    }

    void sameShapeKindChangesNothing() {
        Pair nodes;
        EdgeBase edge(&nodes.source, &nodes.target);
        edge.setShapeKind(EdgeBase::Straight);
        QCOMPARE(edge.getEnd(), QPoint(0, 0));
        edge.setShapeKind(EdgeBase::Arc);
        QVERIFY(edge.getEnd() != QPoint(0, 0));
    }

    void shapeIsCurveAndOpenHead() {
        Pair nodes;
        EdgeBase edge(&nodes.source, &nodes.target);
        edge.setShapeKind(EdgeBase::Arc);
        QPainterPath expected(edge.getStart());
        expected.cubicTo(edge.getFirstControl(), edge.getSecondControl(), edge.getEnd());
        expected.moveTo(edge.getFirstWing());
        expected.lineTo(edge.getEnd());
        expected.lineTo(edge.getSecondWing());
        QCOMPARE(edge.getShape(), expected);
        QCOMPARE(edge.getShape().elementCount(), 7);
    }

    void drawsWithItsPen() {
        Pair nodes;
        EdgeBase edge(&nodes.source, &nodes.target);
        edge.updatePos();
        edge.setPen(QPen(QColor(Qt::red)));
        const QImage image = painted(edge, false);
        QCOMPARE(image.pixel(200, 100), red);
        QCOMPARE(image.pixel(200, 99), white);
        QCOMPARE(image.pixel(200, 101), white);
        QCOMPARE(image.pixel(275, 97), red);
        QCOMPARE(image.pixel(275, 102), red);
        // The head is open.
        QCOMPARE(image.pixel(278, 99), white);
    }

    void selectedEdgeIsBlueAndThreeWide() {
        Pair nodes;
        EdgeBase edge(&nodes.source, &nodes.target);
        edge.updatePos();
        edge.setPen(QPen(QColor(Qt::red)));
        const QImage image = painted(edge, true);
        for (const int y : {99, 100, 101})
            QCOMPARE(image.pixel(200, y), blue);
        QCOMPARE(image.pixel(200, 98), white);
        QCOMPARE(image.pixel(200, 102), white);
    }

    void labelStartsBetweenTheControls() {
        Pair nodes;
        EdgeBase edge(&nodes.source, &nodes.target);
        edge.setShapeKind(EdgeBase::Arc);
        edge.setText(QStringLiteral("42"));
        edge.setTextColor(red);
        QImage expected(400, 200, QImage::Format_RGB32);
        expected.fill(Qt::white);
        QPainter painter(&expected);
        painter.setPen(QPen(QColor(Qt::black)));
        painter.drawPath(edge.getShape());
        painter.setPen(QColor(Qt::red));
        // (157 + 242) / 2 = 199.5
        painter.drawText(QPoint(200, 133), QStringLiteral("42"));
        painter.end();
        QCOMPARE(edge.getTextPosition(), QPoint(200, 133));
        QCOMPARE(painted(edge, false), expected);
        edge.setText(QString());
        QVERIFY(painted(edge, false) != expected);
    }

    void largerSubclassIsDeletedAsEdgeBase() {
        Pair nodes;
        static_assert(sizeof(LargeEdge) > sizeof(EdgeBase));
        EdgeBase* edge = new LargeEdge(&nodes.source, &nodes.target);
        delete edge;
        QCOMPARE(nodes.source.getOutgoingEdges(), std::vector<EdgeBase*>({nullptr}));
        QCOMPARE(nodes.target.getIncomingEdges(), std::vector<EdgeBase*>({nullptr}));
    }

    void everyChangeOfGeometryOrLookIsStamped() {
        Pair nodes;
        EdgeBase edge(&nodes.source, &nodes.target);
        quint64 before = edge.getStamp();
        const auto stamped = [&] {
            const bool newer = edge.getStamp() > before;
            before = edge.getStamp();
            return newer;
        };
        edge.updatePos();
        QVERIFY(stamped());
        edge.updatePos();
        QVERIFY(!stamped());
        edge.setShapeKind(EdgeBase::Arc);
        QVERIFY(stamped());
        edge.setText(QStringLiteral("x"));
        QVERIFY(stamped());
        edge.setTextColor(0xff00ff00);
        QVERIFY(stamped());
        edge.setPen(QPen(Qt::red));
        QVERIFY(stamped());
        edge.setToolTip(QStringLiteral("tip"));
        QCOMPARE(edge.getToolTip(), QStringLiteral("tip"));
        painted(edge, true);
        QVERIFY(!stamped());
        nodes.source.move(0, 50);
        QVERIFY(stamped());
    }
};

QTEST_MAIN(EdgeBaseTest)
#include "EdgeBaseTest.moc"
