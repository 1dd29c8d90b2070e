// SPDX-License-Identifier: MIT
#include "visualization/textgraph/EdgeBase.h"
#include "visualization/textgraph/EdgesList.h"
#include "visualization/textgraph/GraphNodeBase.h"

#include <QImage>
#include <QPainter>
#include <QtTest>

#include <cmath>
#include <complex>
#include <memory>
#include <type_traits>

using namespace Kova::GUI;
using namespace Kova::GUI::TextGraph;

namespace {

using Node = GraphNodeBase;

/// A word whose only port is `width` / 2 from its start, 15 above its base line and 5 below.
std::unique_ptr<Node> word(int x, int y, int width = 80) {
    auto node = std::make_unique<Node>(QPoint(x, y), QStringLiteral("word"));
    node->setRect(QRect(QPoint(0, -15), QPoint(width - 1, 5)));
    return node;
}

/// Counts its own destruction.
class CountedEdge : public EdgeBase {
public:
    CountedEdge(Node* from, Node* to, int& destroyed) : EdgeBase(from, to), m_destroyed(destroyed) {}
    ~CountedEdge() override { ++m_destroyed; }

private:
    int& m_destroyed;
};

std::vector<QPointF> pointsOf(const QPainterPath& path) {
    std::vector<QPointF> points;
    for (int i = 0; i < path.elementCount(); ++i)
        points.emplace_back(path.elementAt(i));
    return points;
}

/// Where a complex number is, truncated.
QPoint truncatedPoint(const std::complex<double>& number) {
    return {static_cast<int>(number.real()), static_cast<int>(number.imag())};
}

} // namespace

class TextEdgeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shapesFollowThePlaces() {
        const auto a = word(0, 50);
        const auto b = word(200, 50);
        const auto c = word(0, 100);
        QCOMPARE(EdgeBase(a.get(), c.get()).getShapeType(), 1);
        QCOMPARE(EdgeBase(a.get(), b.get()).getShapeType(), 2);
        QCOMPARE(EdgeBase(a.get(), a.get()).getShapeType(), 3);
        // Decided once.
        EdgeBase edge(a.get(), c.get());
        c->setPos(QPoint(300, 50));
        edge.setVisible(false);
        edge.setVisible(true);
        QCOMPARE(edge.getShapeType(), 1);
        edge.setVisible(false);
    }

    void newEdgesAreVisibleAndPlain() {
        const auto a = word(0, 50);
        const auto b = word(0, 100);
        const EdgeBase edge(a.get(), b.get());
        QVERIFY(edge.isVisible());
        QVERIFY(edge.getHint().isEmpty());
        QCOMPARE(edge.getPen(), QPen());
        QCOMPARE(edge.getSelectedPen(), QPen());
        QCOMPARE(edge.getFrom(), a.get());
        QCOMPARE(edge.getTo(), b.get());
        QCOMPARE(edge.getNode(EdgeSide::From), a.get());
        QCOMPARE(edge.getNode(EdgeSide::To), b.get());
    }

    void straightEdgesGoFromTheBottomOfTheUpperLine() {
        const auto upper = word(0, 50);
        const auto lower = word(0, 100);
        const EdgeBase down(upper.get(), lower.get());
        QCOMPARE(down.getPort(EdgeSide::From), 1);
        QCOMPARE(down.getPort(EdgeSide::To), -1);
        const EdgeBase up(lower.get(), upper.get());
        QCOMPARE(up.getPort(EdgeSide::From), -2);
        QCOMPARE(up.getPort(EdgeSide::To), 2);
    }

    void arcsTakeTheTopOfBothNodes() {
        const auto a = word(0, 50);
        const auto b = word(200, 50);
        const EdgeBase right(a.get(), b.get());
        const EdgeBase left(b.get(), a.get());
        QCOMPARE(right.getPort(EdgeSide::From), -1);
        QCOMPARE(right.getPort(EdgeSide::To), -1);
        QCOMPARE(left.getPort(EdgeSide::From), -2);
        QCOMPARE(left.getPort(EdgeSide::To), -2);
    }

    void loopsTakeTopAndBottom() {
        const auto node = word(0, 50);
        EdgeBase loop(node.get(), node.get());
        QCOMPARE(loop.getPort(EdgeSide::From), -1);
        QCOMPARE(loop.getPort(EdgeSide::To), 1);
        EdgeBase second(node.get(), node.get());
        loop.setVisible(false);
        QCOMPARE(loop.getPort(EdgeSide::From), 0);
        QCOMPARE(loop.getPort(EdgeSide::To), 0);
        QCOMPARE(second.getPort(EdgeSide::From), -1);
        QCOMPARE(second.getPort(EdgeSide::To), 1);
        second.setVisible(false);
        QVERIFY(node->getUpPorts().empty());
        QVERIFY(node->getDownPorts().empty());
    }

    void visibilityIsSetOnce() {
        const auto a = word(0, 50);
        const auto b = word(0, 100);
        EdgeBase edge(a.get(), b.get());
        edge.setVisible(true);
        QCOMPARE(a->getDownPorts().size(), std::size_t{1});
        edge.setVisible(false);
        edge.setVisible(false);
        QVERIFY(a->getDownPorts().empty());
        QVERIFY(!edge.isVisible());
    }

    void deletedEdgesKeepTheirPorts() {
        const auto a = word(0, 50);
        const auto b = word(0, 100);
        std::make_unique<EdgeBase>(a.get(), b.get()).reset();
        QCOMPARE(a->getDownPorts().size(), std::size_t{1});
    }

    void nodesMayGoBeforeTheirEdges() {
        auto a = word(0, 50);
        auto b = word(200, 50);
        auto edge = std::make_unique<EdgeBase>(a.get(), b.get());
        a.reset();
        b.reset();
        edge.reset();
    }

    void straightEdgeDownwards() {
        const auto upper = word(60, 15);
        const auto lower = word(60, 95);
        const EdgeBase edge(upper.get(), lower.get());
        // From (100, 20) to (100, 80): wings at 90 ± 10 degrees, 15 long.
        const std::vector<QPointF> expected = {{100, 20}, {100, 80}, {102, 65}, {100, 80}, {97, 65}};
        QCOMPARE(pointsOf(edge.getShape()), expected);
        QCOMPARE(edge.getShape().elementAt(2).type, QPainterPath::MoveToElement);
        QCOMPARE(edge.getCurve().firstControl, QPoint(100, 20));
        QCOMPARE(edge.getCurve().secondControl, QPoint(100, 20));
    }

    void straightEdgeUpwards() {
        const auto upper = word(60, 15);
        const auto lower = word(60, 95);
        const EdgeBase edge(lower.get(), upper.get());
        const std::vector<QPointF> expected = {{100, 80}, {100, 20}, {97, 34}, {100, 20}, {102, 34}};
        QCOMPARE(pointsOf(edge.getShape()), expected);
    }

    /// A single unit downwards is downwards.
    void arrowheadsOfFlatEdges() {
        const auto upper = word(60, 45);
        const auto lower = word(70, 66);
        const EdgeBase down(upper.get(), lower.get());
        // From (100, 50) to (110, 51), 5.71 degrees down: wings at 15.71 and -4.29 degrees.
        const std::vector<QPointF> expected = {{100, 50}, {110, 51}, {95, 46}, {110, 51}, {95, 52}};
        QCOMPARE(pointsOf(down.getShape()), expected);
    }

    void arcToTheRight() {
        const auto a = word(60, 65);
        const auto b = word(360, 65);
        const EdgeBase edge(a.get(), b.get());
        // From (100, 50) to (400, 50): a third of the way, 30 degrees up: 100 · (cos 30°, sin 30°) = (86.6, 50).
        const std::vector<QPointF> expected = {{100, 50},
                                               {186, 0},
                                               {313, 0},
                                               {400, 50},
                                               // Direction (87, 50), 29.89 degrees.
                                               {388, 40},
                                               {400, 50},
                                               {385, 44}};
        QCOMPARE(pointsOf(edge.getShape()), expected);
        QCOMPARE(edge.getShape().elementAt(1).type, QPainterPath::CurveToElement);
    }

    void arcToTheLeft() {
        const auto a = word(60, 65);
        const auto b = word(360, 65);
        const EdgeBase edge(b.get(), a.get());
        const std::vector<QPointF> expected = {{400, 50}, {313, 0},  {186, 0}, {100, 50},
                                               {114, 44}, {100, 50}, {111, 40}};
        QCOMPARE(pointsOf(edge.getShape()), expected);
    }

    /// Against the formula with complex numbers, for ports at different heights and distances.
    void arcsRiseByThirtyDegrees() {
        using C = std::complex<double>;
        const double pi = std::acos(-1.0);
        for (const int dx : {-400, -57, -3, -1, 0, 1, 2, 10, 123, 1000}) {
            for (const int dy : {-7, -1, 0, 1, 2, 9}) {
                if (dx == 0 && dy == 0)
                    continue;
                const auto a = word(1000, 500);
                const auto b = word(1000 + dx, 500);
                b->setRect(QRect(QPoint(0, -15 + dy), QPoint(79, 5)));
                const EdgeBase edge(a.get(), b.get());
                const ArrowCurve curve = edge.getCurve();
                QCOMPARE(curve.start, QPoint(1040, 485));
                QCOMPARE(curve.end, QPoint(1040 + dx, 485 + dy));
                const C p0(1040, 485), p3(1040 + dx, 485 + dy);
                // The direct way, turned upwards (y grows downwards): to the left when it goes right. The angle's sign
                // is lost for dy < 1 only where it is negative anyway.
                const double turn = (dx > 0 ? -30.0 : 30.0) * pi / 180.0;
                const C third = (p3 - p0) / 3.0;
                const QPoint first = truncatedPoint(p0 + third * std::polar(1.0, turn));
                const QPoint second = truncatedPoint(p3 - third * std::polar(1.0, -turn));
                // One unit of play where rounding decides about truncation.
                QVERIFY2((curve.firstControl - first).manhattanLength() <= 1 &&
                             (curve.secondControl - second).manhattanLength() <= 1,
                         qPrintable(QStringLiteral("%1 %2").arg(dx).arg(dy)));
                QVERIFY(curve.firstControl.y() <= std::max(curve.start.y(), curve.end.y()));
            }
        }
    }

    /// Given ports along the bottom by hand, arcs hang below the line.
    void arcsFromTheBottomHangDown() {
        const auto a = word(60, 65);
        const auto b = word(361, 65);
        for (const bool rightwards : {true, false}) {
            Node* from = rightwards ? a.get() : b.get();
            Node* to = rightwards ? b.get() : a.get();
            EdgeBase edge(from, to);
            const int number = static_cast<int>(from->getDownPorts().size()) + 1;
            from->addDownPort(&edge, EdgeSide::From);
            to->addDownPort(&edge, EdgeSide::To);
            QCOMPARE(edge.getPort(EdgeSide::From), number);
            from->removeUpPort(1);
            to->removeUpPort(1);
            // From (100, 70) to (401, 70) or back: 301 / 3 · (cos 30°, sin 30°) = (86.89, 50.17).
            const ArrowCurve curve = edge.getCurve();
            QCOMPARE(curve.start, QPoint(rightwards ? 100 : 401, 70));
            QCOMPARE(curve.firstControl, QPoint(rightwards ? 186 : 314, 120));
            QCOMPARE(curve.secondControl, QPoint(rightwards ? 314 : 186, 120));
            QCOMPARE(curve.end, QPoint(rightwards ? 401 : 100, 70));
            from->removeDownPort(1);
            to->removeDownPort(1);
            edge.setPort(EdgeSide::From, 0);
            edge.setPort(EdgeSide::To, 0);
        }
    }

    void loopSwingsOutToTheLeft() {
        Node node(QPoint(100, 55), QStringLiteral("word"));
        node.setRect(QRect(QPoint(2, -15), QPoint(21, -3)));
        const EdgeBase edge(&node, &node);
        // Ports at (110, 40) and (110, 52); arrow direction (30, -20).
        const std::vector<QPointF> expected = {{110, 40}, {80, 20}, {80, 72}, {110, 52}, {96, 58}, {110, 52}, {99, 62}};
        QCOMPARE(pointsOf(edge.getShape()), expected);
    }

    void loopStartsAboveItsEnd() {
        Node node(QPoint(100, 55), QStringLiteral("word"));
        Node below(QPoint(100, 155), QStringLiteral("word"));
        node.setRect(QRect(QPoint(0, -15), QPoint(29, -3)));
        below.setRect(node.getRect());
        const EdgeBase other(&node, &below);
        const EdgeBase loop(&node, &node);
        // The top port alone is in the middle, the bottom one the second of two: 115 and 120.
        QCOMPARE(node.getPortCoords(-1), QPoint(115, 40));
        QCOMPARE(node.getPortCoords(2), QPoint(120, 52));
        QCOMPARE(loop.getCurve().start, QPoint(115, 40));
        QCOMPARE(loop.getCurve().end, QPoint(115, 52));
        QCOMPARE(loop.getCurve().firstControl, QPoint(80, 20));
    }

    void loopEndsBelowItsStart() {
        Node node(QPoint(100, 55), QStringLiteral("word"));
        Node above(QPoint(100, 5), QStringLiteral("word"));
        node.setRect(QRect(QPoint(0, -15), QPoint(29, -3)));
        above.setRect(node.getRect());
        const EdgeBase other(&above, &node);
        const EdgeBase loop(&node, &node);
        // Here the top port is the second of two: 120, and the bottom one in the middle: 115.
        QCOMPARE(node.getPortCoords(-2), QPoint(120, 40));
        QCOMPARE(loop.getCurve().start, QPoint(115, 40));
        QCOMPARE(loop.getCurve().end, QPoint(115, 52));
    }

    void endsThatCoincideHaveADegenerateArrowhead() {
        // Nodes of two lines whose ports meet.
        Node upper(QPoint(100, 50), QStringLiteral("word"));
        Node lower(QPoint(100, 60), QStringLiteral("word"));
        upper.setRect(QRect(QPoint(0, -15), QPoint(19, 0)));
        lower.setRect(QRect(QPoint(0, -10), QPoint(19, 0)));
        const EdgeBase edge(&upper, &lower);
        const QPoint meeting(110, 50);
        const ArrowCurve curve = edge.getCurve();
        QCOMPARE(curve.start, meeting);
        QCOMPARE(curve.end, meeting);
        QCOMPARE(curve.wings.first, meeting);
        QCOMPARE(curve.wings.second, meeting);
        QCOMPARE(edge.getShape().length(), 0.0);
        QCOMPARE(edge.getShape().currentPosition(), QPointF(meeting));
        // An arc of no length, whose direction is taken as 0.
        const auto a = word(0, 50);
        const auto b = word(0, 50);
        const EdgeBase arc(a.get(), b.get());
        QCOMPARE(arc.getShapeType(), 2);
        QCOMPARE(arc.getCurve().firstControl, QPoint(40, 35));
        QCOMPARE(arc.getCurve().wings.second, QPoint(40, 35));
    }

    /// Squares of such distances leave 32 bits.
    void farApartNodesAreJoined() {
        const auto a = word(60, 15);
        const auto b = word(60, 2000000015);
        const EdgeBase edge(a.get(), b.get());
        QCOMPARE(edge.getCurve().wings.first, QPoint(102, 1999999985));
        QCOMPARE(edge.getCurve().wings.second, QPoint(97, 1999999985));
        const auto c = word(900000060, 15);
        const EdgeBase arc(a.get(), c.get());
        // 300,000,000 · (cos 30°, sin 30°), where rounding decides about truncation.
        QVERIFY((arc.getCurve().firstControl - QPoint(100 + 259807621, -150000000)).manhattanLength() <= 1);
    }

    void hiddenEdgesHaveNoShape() {
        const auto a = word(0, 50);
        const auto b = word(0, 100);
        EdgeBase edge(a.get(), b.get());
        edge.setVisible(false);
        QVERIFY(edge.getShape().isEmpty());
        QVERIFY(edge.getCurve() == ArrowCurve());
    }

    void coloursArePens() {
        const auto a = word(0, 50);
        const auto b = word(0, 100);
        EdgeBase edge(a.get(), b.get());
        edge.setColor(Qt::darkGreen);
        QCOMPARE(edge.getPen(), QPen(QColor(Qt::darkGreen)));
        QCOMPARE(edge.getPen().widthF(), 1.0);
        const QPen& selected = edge.getSelectedPen();
        QCOMPARE(selected.color(), QColor(Qt::darkGreen));
        QCOMPARE(selected.style(), Qt::SolidLine);
        QCOMPARE(selected.widthF(), 2.0);
        QCOMPARE(selected.capStyle(), Qt::SquareCap);
        QCOMPARE(selected.joinStyle(), Qt::BevelJoin);
    }

    void hintIsStored() {
        const auto a = word(0, 50);
        EdgeBase edge(a.get(), a.get());
        edge.setHint(QStringLiteral("hint"));
        QCOMPARE(edge.getHint(), QStringLiteral("hint"));
    }

    void drawsItsShapeUnfilled() {
        const auto a = word(20, 65);
        const auto b = word(100, 65);
        EdgeBase edge(a.get(), b.get());
        edge.setColor(Qt::red);
        const auto paint = [&](bool selected, bool byHand) {
            QImage image(200, 80, QImage::Format_RGB32);
            image.fill(Qt::white);
            QPainter painter(&image);
            painter.setBrush(Qt::green);
            if (byHand)
                painter.strokePath(edge.getShape(), selected ? edge.getSelectedPen() : edge.getPen());
            else
                edge.draw(painter, selected);
            return image;
        };
        QCOMPARE(paint(false, false), paint(false, true));
        QCOMPARE(paint(true, false), paint(true, true));
        QVERIFY(paint(true, false) != paint(false, false));
        const QImage shown = paint(true, false);
        edge.setVisible(false);
        const QImage hidden = paint(true, false);
        QVERIFY(hidden != shown);
        QCOMPARE(hidden.pixel(100, 40), QRgb(0xffffffff));
        QImage blank(200, 80, QImage::Format_RGB32);
        blank.fill(Qt::white);
        QCOMPARE(hidden, blank);
    }

    void thePenStaysThatOfTheEdge() {
        const auto a = word(20, 65);
        const auto b = word(100, 65);
        EdgeBase edge(a.get(), b.get());
        edge.setColor(Qt::red);
        QImage image(200, 80, QImage::Format_RGB32);
        QPainter painter(&image);
        edge.draw(painter, true);
        QCOMPARE(painter.pen(), edge.getSelectedPen());
        edge.draw(painter, false);
        QCOMPARE(painter.pen(), edge.getPen());
        // Hidden edges touch nothing.
        painter.setPen(Qt::green);
        edge.setVisible(false);
        edge.draw(painter, true);
        QCOMPARE(painter.pen(), QPen(Qt::green));
    }

    void listsGiveBackOneEdgeAtATime() {
        const auto a = word(0, 50);
        const auto b = word(0, 100);
        EdgeBase edge(a.get(), b.get());
        EdgeBase other(a.get(), b.get());
        EdgesList list;
        for (EdgeBase* added : {&edge, &other, &edge})
            list.add(added);
        list.remove(&edge);
        QCOMPARE(std::vector<EdgeBase*>(list.begin(), list.end()), (std::vector<EdgeBase*>{&other, &edge}));
        list.remove(&edge);
        list.remove(&other);
        QVERIFY(list.isEmpty());
    }

    void listsOwnTheirEdges() {
        const auto a = word(0, 50);
        const auto b = word(0, 100);
        int destroyed = 0;
        {
            EdgesList list;
            QVERIFY(list.isEmpty());
            auto* first = new CountedEdge(a.get(), b.get(), destroyed);
            auto* second = new CountedEdge(a.get(), b.get(), destroyed);
            auto* third = new CountedEdge(a.get(), b.get(), destroyed);
            list.add(first);
            list.add(second);
            list.add(third);
            QCOMPARE(list.size(), 3);
            QCOMPARE(list.at(1), second);
            list.remove(second);
            QCOMPARE(destroyed, 0);
            QCOMPARE(list.size(), 2);
            QCOMPARE(list.at(1), third);
            list.remove(second);
            QCOMPARE(list.size(), 2);
            delete second;
            QCOMPARE(destroyed, 1);
            std::vector<EdgeBase*> walked(list.begin(), list.end());
            QCOMPARE(walked, (std::vector<EdgeBase*>{first, third}));
            list.clear();
            QCOMPARE(destroyed, 3);
            QVERIFY(list.isEmpty());
            list.add(new CountedEdge(a.get(), b.get(), destroyed));
        }
        QCOMPARE(destroyed, 4);
    }

    void edgesAreConvertibleAndNotCopied() {
        const auto a = word(0, 50);
        int destroyed = 0;
        CountedEdge edge(a.get(), a.get(), destroyed);
        EdgeBase& base = edge;
        QVERIFY(base.is_a<CountedEdge>());
        QCOMPARE(&base.cast_to<CountedEdge>(), &edge);
        QVERIFY(!std::is_copy_constructible_v<EdgeBase>);
        QVERIFY(!std::is_copy_assignable_v<EdgesList>);
    }
};

QTEST_GUILESS_MAIN(TextEdgeTest)
#include "TextEdgeTest.moc"
