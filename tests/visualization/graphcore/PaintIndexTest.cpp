// SPDX-License-Identifier: MIT
#include "visualization/graphcore/PaintIndex.h"

#include "RandomGraph.h"
#include "tests/visualization/graphcore/Pixels.h"

#include <QFontMetricsF>
#include <QRegularExpression>
#include <QtTest>

#include <algorithm>
#include <functional>

using namespace Kova::GUI::GenericGraph;

namespace {

using Indices = std::vector<std::size_t>;
using Drawing = std::function<void(QPainter&)>;

/// How far extents may be too large, in units.
constexpr int slack = 60;

QRect grown(const QRect& area) {
    return area.adjusted(-slack, -slack, slack, slack);
}

/// Draws what it is told to.
class DrawingNode : public NodeBase {
public:
    explicit DrawingNode(Drawing drawing) : NodeBase(QString()), m_drawing(std::move(drawing)) {}
    void draw(QPainter& painter, bool) const override { m_drawing(painter); }
    void setDrawing(Drawing drawing) {
        m_drawing = std::move(drawing);
        touch();
    }

private:
    Drawing m_drawing;
};

/// A graph and its index, with a device as pictures have it.
class Indexed : public RandomGraph {
public:
    using RandomGraph::RandomGraph;

    QFont font{QStringLiteral("Arial"), 12};
    PaintIndex index;

    void update() { index.update(nodes, edges, font, QImage(1, 1, QImage::Format_RGB32)); }

    /// Whether an item, drawn alone, leaves a mark in the area.
    template <typename Item>
    [[nodiscard]] bool marks(const Item& item, const QRect& area) const {
        const QImage image = Pixels::painted(area.size(), [&](QPainter& painter) {
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setFont(font);
            painter.translate(-area.topLeft());
            item.draw(painter, false);
        });
        return image != Pixels::blank(area.size());
    }

    /// Whether an edge that leaves no mark may yet be found.
    [[nodiscard]] bool isNear(const EdgeBase& edge, const QRect& area) const {
        if (edge.getPen().isCosmetic())
            return true;
        const bool isLine = edge.getShapeKind() == EdgeBase::Straight && edge.getStart() != edge.getEnd();
        if (isLine && edge.getText().isEmpty())
            return marks(edge, grown(area));
        const QRectF label = QFontMetricsF(font).boundingRect(edge.getText()).translated(edge.getTextPosition());
        const QRectF extent = edge.getShape().controlPointRect().united(label);
        return extent.adjusted(-slack, -slack, slack, slack).intersects(area);
    }
};

bool ascends(const Indices& indices) {
    return std::adjacent_find(indices.begin(), indices.end(), std::greater_equal<>()) == indices.end();
}

bool holds(const Indices& indices, std::size_t index) {
    return std::find(indices.begin(), indices.end(), index) != indices.end();
}

} // namespace

Q_DECLARE_METATYPE(Drawing)

class PaintIndexTest : public QObject {
    Q_OBJECT

    /// Whether what is found in an area is in order, is all that marks it, and is near it.
    static void checkNodes(const Indexed& graph, const QRect& area) {
        const Indices found = graph.index.nodesIn(graph.nodes, area, nullptr);
        QVERIFY(ascends(found));
        for (std::size_t i = 0; i < graph.nodes.size(); ++i) {
            if (holds(found, i))
                QVERIFY(graph.marks(*graph.nodes[i], grown(area)));
            else
                QVERIFY(!graph.marks(*graph.nodes[i], area));
        }
    }
    static void checkEdges(const Indexed& graph, const QRect& area) {
        const Indices found = graph.index.edgesIn(graph.edges, area, nullptr);
        QVERIFY(ascends(found));
        for (std::size_t i = 0; i < graph.edges.size(); ++i) {
            if (holds(found, i))
                QVERIFY(graph.isNear(*graph.edges[i], area));
            else
                QVERIFY(!graph.marks(*graph.edges[i], area));
        }
    }

private Q_SLOTS:
    void nothingIsFoundInNothing() {
        Indexed graph(1, 0, 0, 1);
        graph.update();
        QVERIFY(graph.index.nodesIn({}, QRectF(0, 0, 100, 100), nullptr).empty());
        QVERIFY(graph.index.edgesIn({}, QRectF(0, 0, 100, 100), nullptr).empty());
    }

    void nodesAndEdgesAreFoundWhereTheyPaint_data() {
        QTest::addColumn<int>("extent");
        QTest::newRow("crowded") << 120;
        QTest::newRow("sparse") << 600;
    }

    // Everything may change between the questions.
    void nodesAndEdgesAreFoundWhereTheyPaint() {
        QFETCH(int, extent);
        const auto flagAt = [](const QPoint& top) -> Drawing {
            return [top](QPainter& painter) {
                painter.setPen(QPen(Qt::red, 5.0));
                painter.drawLine(top, top + QPoint(0, 200));
                painter.drawText(top, QStringLiteral("flag"));
            };
        };
        // Made first: edges of the graph may lead to it.
        DrawingNode flag(flagAt(QPoint(0, 0)));
        Indexed graph(2, 25, 40, extent);
        graph.nodes.push_back(&flag);
        const std::function<void()> changes[] = {
            [&] { flag.setDrawing(flagAt(graph.anyPoint())); },
            [&] { graph.changeNodes(); },
            [&] { graph.changeEdges(); },
            [&] { graph.anyEdge()->setText(QStringLiteral("a label of an edge")); },
            [&] { graph.anyEdge()->setText(QString()); },
            [&] { graph.anyEdge()->setPen(QPen(Qt::red, graph.any(0, 12))); },
            [&] { graph.font = QFont(QStringLiteral("Arial"), graph.any(8, 20)); },
        };
        for (int round = 0; round < 150; ++round) {
            for (int i = 0; i < 5; ++i)
                changes[graph.any(0, 6)]();
            graph.update();
            const QRect area(graph.anyPoint(), QSize(graph.any(1, 90), graph.any(1, 90)));
            checkNodes(graph, area);
            checkEdges(graph, area);
            if (QTest::currentTestFailed())
                return;
        }
    }

    void selectedItemIsAlwaysFoundInItsPlace() {
        Indexed graph(3, 20, 30, 600);
        graph.update();
        const QRectF area(-300, -300, 300, 300);
        const auto with = [](Indices indices, std::size_t added) {
            indices.insert(std::upper_bound(indices.begin(), indices.end(), added), added);
            indices.erase(std::unique(indices.begin(), indices.end()), indices.end());
            return indices;
        };
        const Indices nodes = graph.index.nodesIn(graph.nodes, area, nullptr);
        for (std::size_t i = 0; i < graph.nodes.size(); ++i)
            QCOMPARE(graph.index.nodesIn(graph.nodes, area, graph.nodes[i]), with(nodes, i));
        const Indices edges = graph.index.edgesIn(graph.edges, area, nullptr);
        for (std::size_t i = 0; i < graph.edges.size(); ++i)
            QCOMPARE(graph.index.edgesIn(graph.edges, area, graph.edges[i]), with(edges, i));
        QVERIFY(nodes.size() < graph.nodes.size());
        QVERIFY(edges.size() < graph.edges.size());
    }

    // The arrowhead is three units high on one side, which is more than the line is thick.
    void edgesAreFoundByTheirArrowheads() {
        Indexed graph(6, 3, 0, 10);
        for (NodeBase* node : graph.nodes)
            node->setSize(1, 1);
        graph.nodes[0]->moveTo(100, 100);
        graph.nodes[1]->moveTo(400, 100);
        graph.nodes[2]->moveTo(100, 400);
        EdgeBase level(graph.nodes[0], graph.nodes[1]);
        EdgeBase upright(graph.nodes[0], graph.nodes[2]);
        level.updatePos();
        upright.updatePos();
        QCOMPARE(level.getFirstWing(), QPoint(385, 97));
        QCOMPARE(upright.getSecondWing(), QPoint(97, 385));
        graph.edges = {&level, &upright};
        graph.update();
        QVERIFY(graph.marks(level, QRect(384, 96, 2, 1)));
        QCOMPARE(graph.index.edgesIn(graph.edges, QRectF(384, 96, 2, 1), nullptr), Indices({0}));
        QVERIFY(graph.marks(upright, QRect(96, 384, 1, 2)));
        QCOMPARE(graph.index.edgesIn(graph.edges, QRectF(96, 384, 1, 2), nullptr), Indices({1}));
        QVERIFY(graph.index.edgesIn(graph.edges, QRectF(384, 91, 2, 1), nullptr).empty());
    }

    // A pen of no width is as wide at every scale, so it may reach anywhere in units.
    void edgesOfAConstantWidthAreAlwaysFound() {
        Indexed graph(4, 2, 1, 10);
        graph.edges[0]->setPen(QPen(Qt::black, 0));
        graph.update();
        QCOMPARE(graph.index.edgesIn(graph.edges, QRectF(100000, 100000, 1, 1), nullptr), Indices({0}));
    }

    void fontsAreMeasuredAsOnTheDevice() {
        Indexed graph(5, 2, 1, 10);
        const QString text = QStringLiteral("a label that is rather long");
        graph.edges[0]->setText(text);
        QImage fine(1, 1, QImage::Format_RGB32);
        fine.setDotsPerMeterX(2 * fine.dotsPerMeterX());
        fine.setDotsPerMeterY(2 * fine.dotsPerMeterY());
        const int width = qRound(QFontMetricsF(graph.font).horizontalAdvance(text));
        QVERIFY(width > 100);
        const QRectF beyond(graph.edges[0]->getTextPosition() + QPoint(width + 40, -5), QSizeF(5, 5));
        const auto foundOn = [&](const QImage& device) {
            graph.index.update(graph.nodes, graph.edges, graph.font, device);
            return !graph.index.edgesIn(graph.edges, beyond, nullptr).empty();
        };
        const QImage coarse(1, 1, QImage::Format_RGB32);
        QVERIFY(!foundOn(coarse));
        QVERIFY(foundOn(fine));
        QVERIFY(!foundOn(coarse));
    }

    void untidyNodesDoNotMoveOthers_data() {
        QTest::addColumn<Drawing>("untidiness");
        QTest::newRow("transform") << Drawing([](QPainter& painter) {
            painter.translate(300, -200);
            painter.scale(3.0, 2.0);
        });
        QTest::newRow("window") << Drawing([](QPainter& painter) { painter.setWindow(0, 0, 100, 100); });
        QTest::newRow("font") << Drawing(
            [](QPainter& painter) { painter.setFont(QFont(QStringLiteral("Arial"), 90)); });
        QTest::newRow("clip") << Drawing([](QPainter& painter) { painter.setClipRect(0, 0, 1, 1); });
        QTest::newRow("saved state") << Drawing([](QPainter& painter) {
            painter.translate(300, -200);
            painter.save();
            painter.translate(300, -200);
        });
    }

    // Whatever a node leaves behind in the painter, the next ones are measured as if it had not been there.
    void untidyNodesDoNotMoveOthers() {
        QFETCH(Drawing, untidiness);
        if (QByteArray(QTest::currentDataTag()) == "saved state")
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("Painter ended with . saved states")));
        NodeBase a(QStringLiteral("a"));
        NodeBase b(QStringLiteral("a node with a long label"));
        EdgeBase edge(&a, &b);
        edge.setText(QStringLiteral("edge"));
        a.moveTo(50, 50);
        b.moveTo(200, 150);
        DrawingNode untidy(untidiness);
        const QFont font(QStringLiteral("Arial"), 12);
        const QImage device(1, 1, QImage::Format_RGB32);
        PaintIndex alone;
        alone.update({&a, &b}, {&edge}, font, device);
        PaintIndex shared;
        shared.update({&untidy, &a, &b}, {&edge}, font, device);
        int found = 0;
        for (int x = -400; x < 1600; x += 20) {
            for (int y = -400; y < 1600; y += 20) {
                const QRectF area(x, y, 10, 10);
                Indices expected = alone.nodesIn({&a, &b}, area, nullptr);
                for (std::size_t& index : expected)
                    ++index;
                QCOMPARE(shared.nodesIn({&untidy, &a, &b}, area, nullptr), expected);
                QCOMPARE(shared.edgesIn({&edge}, area, nullptr), alone.edgesIn({&edge}, area, nullptr));
                found += expected.empty() ? 0 : 1;
            }
        }
        QVERIFY(found > 10);
    }
};

QTEST_MAIN(PaintIndexTest)
#include "PaintIndexTest.moc"
