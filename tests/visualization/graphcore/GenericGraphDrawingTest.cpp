// SPDX-License-Identifier: MIT
#include "TestGraph.h"
#include "tests/visualization/graphcore/Pixels.h"
#include "visualization/graphcore/GenericGraphWidgetBase.h"

#include <QImage>
#include <QPainter>
#include <QtTest>

#include <functional>

using namespace Kova::GUI::GenericGraph;

namespace {

using Pixels::blank;
using Pixels::blue;
using Pixels::red;
using Pixels::white;

struct View {
    double scale;
    QPoint scroll;
    QRect exposed;
};

void setUp(QPainter& painter, const View& view) {
    painter.setClipRect(view.exposed);
    painter.translate(-view.scroll);
    painter.scale(view.scale, view.scale);
    painter.setRenderHint(QPainter::Antialiasing);
}

QImage drawn(TestGraph& graph, const View& view) {
    QImage image = blank(graph.viewport()->size());
    QPainter painter(&image);
    setUp(painter, view);
    graph.drawGraph(painter);
    return image;
}

/// The same by drawing every item.
QImage drawnWhole(const TestGraph& graph, const View& view) {
    QImage image = blank(graph.viewport()->size());
    QPainter painter(&image);
    setUp(painter, view);
    painter.setFont(graph.labelFont());
    for (const EdgeBase* edge : graph.getEdges())
        edge->draw(painter, edge == graph.hoveredEdge());
    for (const NodeBase* node : graph.getNodes())
        node->draw(painter, node == graph.hoveredNode());
    return image;
}

/// Draws what it likes around its box, as far as the base is concerned.
class FlagNode : public NodeBase {
public:
    FlagNode() : NodeBase(QStringLiteral("flag")) { setSize(10, 10); }
    void setPole(int height) {
        m_height = height;
        touch();
    }
    void draw(QPainter& painter, bool) const override {
        painter.setPen(QPen(Qt::red, 5.0));
        painter.drawLine(getCenter(), getCenter() - QPoint(0, m_height));
        painter.drawText(getCenter() - QPoint(0, m_height), QStringLiteral("flag text"));
    }

private:
    int m_height = 300;
};

} // namespace

class GenericGraphDrawingTest : public QObject {
    Q_OBJECT

    /// Whether culled and whole pictures are equal for random parts of the picture.
    static bool sameEverywhere(TestGraph& graph, std::mt19937& generator, int rounds) {
        const auto any = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(generator); };
        static constexpr double scales[] = {0.1, 0.33, 0.5, 0.91, 1.0, 1.1, 1.7, 3.0, 7.3};
        for (int round = 0; round < rounds; ++round) {
            View view;
            view.scale = scales[round % 9];
            const int farthest = std::max(1, static_cast<int>(1100 * view.scale));
            view.scroll = QPoint(any(-50, farthest), any(-50, farthest));
            view.exposed = round % 4 == 0 ? QRect(QPoint(0, 0), graph.viewport()->size())
                                          : QRect(any(0, 300), any(0, 200), any(1, 120), any(1, 120));
            if (drawn(graph, view) != drawnWhole(graph, view)) {
                qWarning() << "differs at scale" << view.scale << view.scroll << view.exposed;
                return false;
            }
        }
        return true;
    }

private Q_SLOTS:
    void nodesAreAboveEdges() {
        TestGraph graph;
        NodeBase* left = graph.addNode(QString(), QPoint(50, 100));
        NodeBase* right = graph.addNode(QString(), QPoint(250, 100));
        graph.addNode(QString(), QPoint(150, 110), QSize(61, 21));
        EdgeBase* edge = graph.addEdge(left, right);
        edge->setPen(QPen(QColor(Qt::red)));
        QImage image = blank(QSize(400, 300));
        QPainter painter(&image);
        graph.drawGraph(painter);
        painter.end();
        // Where the third box's top side covers the edge; the box itself is see-through.
        QCOMPARE(image.pixel(150, 100), QRgb(0xff000000));
        QCOMPARE(image.pixel(100, 100), red);
        QCOMPARE(image.pixel(150, 110), white);
    }

    void laterItemsAreAboveEarlierOnes() {
        TestGraph graph;
        NodeBase* left = graph.addNode(QString(), QPoint(50, 100));
        NodeBase* right = graph.addNode(QString(), QPoint(250, 100));
        graph.addEdge(left, right)->setPen(QPen(QColor(Qt::red)));
        graph.addEdge(left, right)->setPen(QPen(QColor(Qt::green)));
        QImage image = blank(QSize(400, 300));
        QPainter painter(&image);
        graph.drawGraph(painter);
        painter.end();
        QCOMPARE(image.pixel(150, 100), QRgb(0xff00ff00));
    }

    void hoveredItemsAreSelected() {
        TestGraph graph;
        NodeBase* left = graph.addNode(QString(), QPoint(50, 100));
        NodeBase* right = graph.addNode(QString(), QPoint(250, 100));
        graph.addEdge(left, right);
        graph.updateMap();
        const View all{1.0, QPoint(0, 0), QRect(0, 0, 400, 300)};
        QVERIFY(drawn(graph, all).pixel(150, 100) != blue);
        graph.moveMouse(QPoint(150, 100));
        const QImage edgeHovered = drawn(graph, all);
        QCOMPARE(edgeHovered.pixel(150, 100), blue);
        QVERIFY(edgeHovered.pixel(30, 100) != blue);
        graph.moveMouse(QPoint(50, 105));
        const QImage nodeHovered = drawn(graph, all);
        QVERIFY(nodeHovered.pixel(150, 100) != blue);
        // The left side of the box, x = 30; antialiased pens lie between pixels.
        QCOMPARE(nodeHovered.pixel(30, 100), blue);
    }

    void labelsUseTheWidgetsFont() {
        TestGraph graph;
        graph.addNode(QStringLiteral("label"), QPoint(150, 100), QSize(200, 60));
        graph.setLabelFont(QFont(QStringLiteral("Arial"), 30));
        const View all{1.0, QPoint(0, 0), QRect(0, 0, 400, 300)};
        QImage expected = blank(QSize(400, 300));
        QPainter painter(&expected);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setFont(QFont(QStringLiteral("Arial"), 30));
        painter.drawRoundedRect(QRect(50, 70, 200, 60), 7.0, 7.0);
        painter.drawText(QRect(50, 70, 200, 60), Qt::AlignCenter, QStringLiteral("label"));
        painter.end();
        QCOMPARE(drawn(graph, all), expected);
    }

    void culledPictureEqualsTheWholeOne() {
        for (unsigned seed = 0; seed < 6; ++seed) {
            std::mt19937 generator(seed);
            TestGraph graph;
            graph.addRandom(generator, 60, 120, 1000);
            QVERIFY(sameEverywhere(graph, generator, 54));
        }
    }

    void culledPictureEqualsTheWholeOneWhenHovered() {
        std::mt19937 generator(7);
        TestGraph graph;
        graph.addRandom(generator, 60, 120, 1000);
        int hovered = 0;
        for (std::size_t i = 0; i < 10; ++i) {
            graph.moveMouse(graph.getNodes()[i]->getCenter());
            QVERIFY(sameEverywhere(graph, generator, 9));
            hovered += graph.hoveredNode() ? 1 : 0;
            graph.moveMouse(graph.getEdges()[i]->getStart());
            QVERIFY(sameEverywhere(graph, generator, 9));
            hovered += graph.hoveredEdge() ? 1 : 0;
        }
        QVERIFY(hovered > 3);
    }

    void culledPictureFollowsEveryChange() {
        std::mt19937 generator(8);
        const auto any = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(generator); };
        TestGraph graph;
        graph.addRandom(generator, 50, 80, 1000);
        graph.nodes().push_back(new FlagNode);
        graph.nodes().back()->moveTo(500, 500);
        const auto anyNode = [&] { return graph.nodes()[static_cast<std::size_t>(any(0, 49))]; };
        const auto anyEdge = [&]() -> EdgeBase*& { return graph.edges()[static_cast<std::size_t>(any(0, 70))]; };
        const std::function<void()> changes[] = {
            [&] { anyNode()->moveTo(any(0, 1000), any(0, 1000)); },
            [&] { anyNode()->move(any(-90, 90), any(-90, 90)); },
            [&] { anyNode()->setSize(any(1, 300), any(1, 300)); },
            [&] { anyNode()->setVisible(any(0, 1) == 0); },
            [&] { anyNode()->setTextColor(0xffff00ff); },
            [&] { anyEdge()->setText(QStringLiteral("a rather long label of an edge")); },
            [&] { anyEdge()->setPen(QPen(Qt::red, any(0, 40))); },
            [&] { anyEdge()->setShapeKind(ShapeKind(any(0, 2))); },
            [&] { anyEdge()->setTextColor(0xffff00ff); },
            [&] { std::swap(anyEdge(), anyEdge()); },
            [&] { std::swap(graph.nodes()[0], graph.nodes()[static_cast<std::size_t>(any(1, 49))]); },
            [&] {
                EdgeBase*& edge = anyEdge();
                delete edge;
                edge = new EdgeBase(anyNode(), anyNode());
                edge->updatePos();
            },
            [&] {
                delete graph.edges().back();
                graph.edges().pop_back();
                graph.addEdge(anyNode(), anyNode());
            },
            [&] { graph.setLabelFont(QFont(QStringLiteral("Arial"), any(8, 30))); },
            [&] { graph.updateNodeSizes(); },
            [&] { graph.updateCollisions(); },
            [&] { static_cast<FlagNode*>(graph.nodes().back())->setPole(any(10, 900)); },
        };
        for (int round = 0; round < 6; ++round) {
            for (const auto& change : changes) {
                change();
                QVERIFY(sameEverywhere(graph, generator, 9));
            }
        }
    }

    void onlyWhatCanBeSeenIsDrawn() {
        TestGraph graph;
        std::vector<CountedNode*> all;
        for (int i = 0; i < 400; ++i)
            all.push_back(graph.addNode(QStringLiteral("n"), QPoint(50 + i % 20 * 100, 50 + i / 20 * 100)));
        const View corner{1.0, QPoint(900, 900), QRect(0, 0, 200, 200)};
        drawn(graph, corner);
        for (CountedNode* node : all)
            node->drawn = 0;
        drawn(graph, corner);
        int drawnNodes = 0;
        for (const CountedNode* node : all)
            drawnNodes += node->drawn;
        QVERIFY(drawnNodes >= 4);
        QVERIFY(drawnNodes <= 16);
        // Without a clip, everything.
        QImage image = blank(QSize(10, 10));
        QPainter painter(&image);
        for (CountedNode* node : all)
            node->drawn = 0;
        graph.drawGraph(painter);
        for (const CountedNode* node : all)
            QCOMPARE(node->drawn, 1);
    }

    void rotatedPainterIsCulledRightly() {
        std::mt19937 generator(9);
        TestGraph graph;
        graph.addRandom(generator, 60, 120, 1000);
        const auto rotated = [&](bool whole) {
            QImage image = blank(QSize(400, 300));
            QPainter painter(&image);
            painter.setClipRect(100, 100, 80, 60);
            painter.rotate(30.0);
            painter.translate(0, -400);
            painter.setFont(graph.labelFont());
            if (!whole) {
                graph.drawGraph(painter);
                return image;
            }
            for (const EdgeBase* edge : graph.getEdges())
                edge->draw(painter, false);
            for (const NodeBase* node : graph.getNodes())
                node->draw(painter, false);
            return image;
        };
        QCOMPARE(rotated(false), rotated(true));
    }

    void exposedPartOfTheScreenIsPaintedAsAWhole() {
        std::mt19937 generator(10);
        TestGraph graph;
        graph.addRandom(generator, 60, 120, 1000);
        graph.setScale(1.3);
        graph.horizontalScrollBar()->setValue(200);
        graph.verticalScrollBar()->setValue(300);
        const QImage whole = graph.viewport()->grab().toImage();
        const QRect part(120, 70, 61, 43);
        QCOMPARE(graph.viewport()->grab(part).toImage(), whole.copy(part));
    }

    void exportDrawsEverything() {
        TestGraph graph(QSize(50, 50));
        CountedNode* first = graph.addNode(QStringLiteral("a"), QPoint(50, 50));
        CountedNode* far = graph.addNode(QStringLiteral("b"), QPoint(1500, 900));
        graph.addEdge(first, far);
        graph.updateCollisions();
        first->drawn = far->drawn = 0;
        const QImage image = graph.renderImage();
        QCOMPARE(image.size(), QSize(1550, 950));
        QCOMPARE(first->drawn, 1);
        QCOMPARE(far->drawn, 1);
        QVERIFY(image.pixel(1500, 890) != white);
    }

    void paintingChangesNothing() {
        std::mt19937 generator(11);
        TestGraph graph;
        graph.addRandom(generator, 30, 60, 600);
        std::vector<quint64> before;
        const auto stamps = [&] {
            std::vector<quint64> all;
            for (const NodeBase* node : graph.getNodes())
                all.push_back(node->getStamp());
            for (const EdgeBase* edge : graph.getEdges())
                all.push_back(edge->getStamp());
            return all;
        };
        before = stamps();
        const QSize size = graph.getGraphSize();
        const auto bounds = graph.edgeBounds();
        graph.viewport()->grab();
        QCOMPARE(stamps(), before);
        QCOMPARE(graph.getGraphSize(), size);
        QCOMPARE(graph.edgeBounds(), bounds);
        QCOMPARE(graph.viewport()->grab().toImage(), graph.viewport()->grab().toImage());
    }
};

QTEST_MAIN(GenericGraphDrawingTest)
#include "GenericGraphDrawingTest.moc"
