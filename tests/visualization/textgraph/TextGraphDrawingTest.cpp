// SPDX-License-Identifier: MIT
#include "TestTextGraph.h"
#include "visualization/textgraph/CellPainter.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QSvgRenderer>
#include <QtTest>

#include <random>

using namespace Kova::GUI;
using namespace Kova::GUI::TextGraph;

namespace {

constexpr QRgb white = 0xffffffff;

/// Counts how often it is drawn.
class CountedNode : public GraphNodeBase {
public:
    using GraphNodeBase::GraphNodeBase;
    void draw(QPainter& painter) const override {
        ++drawn;
        GraphNodeBase::draw(painter);
    }
    mutable int drawn = 0;
};

/// Notes when it is drawn.
class NotedNode : public GraphNodeBase {
public:
    NotedNode(const QPoint& pos, const QString& text, QStringList& drawn) : GraphNodeBase(pos, text), m_drawn(drawn) {}
    void draw(QPainter& painter) const override {
        m_drawn.append(getText());
        GraphNodeBase::draw(painter);
    }

private:
    QStringList& m_drawn;
};

/// Adds up the widths of the texts that are drawn on it.
class TextRuler : public QPaintDevice {
public:
    struct Engine : QPaintEngine {
        Engine() : QPaintEngine(AllFeatures) {}
        bool begin(QPaintDevice*) override { return true; }
        bool end() override { return true; }
        void updateState(const QPaintEngineState&) override {}
        void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
        void drawTextItem(const QPointF&, const QTextItem& item) override { width += item.width(); }
        [[nodiscard]] Type type() const override { return User; }
        double width = 0.0;
    };
    [[nodiscard]] QPaintEngine* paintEngine() const override { return &m_engine; }
    [[nodiscard]] double takeWidth() const { return std::exchange(m_engine.width, 0.0); }

protected:
    [[nodiscard]] int metric(PaintDeviceMetric which) const override { return m_model.metric(which); }

private:
    /// Fonts get the sizes that they have on an image.
    class Model : public QImage {
    public:
        Model() : QImage(10, 10, QImage::Format_RGB32) {}
        using QImage::metric;
    };
    Model m_model;
    mutable Engine m_engine;
};

QImage canvas(const QSize& size) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    return image;
}

/// The first and the last column of ink between two columns, in any row.
std::pair<int, int> inkColumns(const QImage& image, int from, int to) {
    int first = -1;
    int last = -1;
    for (int x = std::max(from, 0); x < std::min(to, image.width()); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            if (image.pixel(x, y) != white) {
                first = first == -1 ? x : first;
                last = x;
                break;
            }
        }
    }
    return {first, last};
}

/// Adds a line with one word without cutting it at blanks.
void addWord(TestTextGraph& graph, const QString& word) {
    WordLayout layout(graph.getFont(), graph.lines());
    layout.addWords({{{word.toStdString(), nullptr}}},
                    [](const QPoint& pos, const QString& text, const Kova::Tessel::TesselBase*) {
                        return new GraphNodeBase(pos, text);
                    });
    graph.setGraphSize(layout.getSize());
}

struct View {
    double scale;
    QPoint scroll;
    QRect exposed;
    QSize size = QSize(500, 400);
};

/// What is asked for of the picture, by the widget or by drawing everything.
QImage paint(TestTextGraph& graph, const View& view, bool everything) {
    QImage image = canvas(view.size);
    QPainter painter(&image);
    painter.setClipRect(view.exposed);
    painter.translate(-view.scroll);
    painter.scale(view.scale, view.scale);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!everything) {
        graph.drawGraph(painter);
        return image;
    }
    CellPainter cells(painter, graph.getFont(), graph.getCharWidth());
    for (const NodesLine& line : graph.getLines()) {
        for (const NodeBase* node : line.nodes)
            cells.draw(*node);
    }
    for (int i = 0; i < graph.getEdges().size(); ++i)
        graph.getEdges().at(i)->draw(painter, i == graph.getSelectedEdge());
    return image;
}

} // namespace

class TextGraphDrawingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void edgesAreAboveWordsInListOrder() {
        TestTextGraph graph;
        graph.addText({QStringLiteral("a"), QStringLiteral("MMMM"), QStringLiteral("a")});
        graph.shiftLines(1, 30);
        graph.shiftLines(2, 30);
        for (const QColor& color : {QColor(Qt::red), QColor(Qt::blue)}) {
            graph.join(graph.node(0, 0), graph.node(2, 0), color);
            // All through the same ports.
            graph.edges().at(graph.getEdges().size() - 1)->setPort(EdgeSide::From, 1);
        }
        graph.node(0, 0)->setRect(QRect(0, 0, 10, 2));
        graph.node(2, 0)->setRect(QRect(0, 0, 10, 2));
        graph.edges().at(1)->setPort(EdgeSide::To, -1);
        QImage image = canvas(QSize(300, 200));
        {
            QPainter painter(&image);
            graph.drawGraph(painter);
        }
        const ArrowCurve curve = graph.getEdges().at(1)->getCurve();
        QCOMPARE(graph.getEdges().at(0)->getCurve().start, curve.start);
        QCOMPARE(curve.start.x(), curve.end.x());
        // Through the M, which is black beside it.
        bool inkBeside = false;
        for (int y = graph.getLines().at(1).y - 10; y < graph.getLines().at(1).y; ++y) {
            QCOMPARE(image.pixel(curve.start.x(), y), QColor(Qt::blue).rgb());
            inkBeside |= qGray(image.pixel(curve.start.x() - 2, y)) < 128;
        }
        QVERIFY(inkBeside);
    }

    void wordsAreDrawnLineByLine() {
        QStringList drawn;
        TestTextGraph graph;
        // Neither by their places nor by their texts.
        const QList<QStringList> texts = {
            {QStringLiteral("d"), QStringLiteral("b")}, {}, {QStringLiteral("c"), QStringLiteral("a")}};
        for (const QStringList& line : texts) {
            graph.lines().append(NodesLine());
            for (const QString& text : line)
                graph.lines().last().nodes.append(
                    new NotedNode(QPoint(50 - 20 * graph.getLines().last().nodes.size(), 0), text, drawn));
            graph.lines().last().setY(100 - 30 * graph.getLines().size());
        }
        QImage image = canvas(QSize(100, 100));
        QPainter painter(&image);
        graph.drawGraph(painter);
        QCOMPARE(drawn,
                 (QStringList{QStringLiteral("d"), QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("a")}));
        QCOMPARE(painter.font().family(), graph.getFont().family());
        QCOMPARE(painter.font().pointSize(), 14);
    }

    void theSelectedEdgeIsWide() {
        TestTextGraph graph;
        graph.addText({QStringLiteral("a"), QStringLiteral("a")});
        graph.shiftLines(1, 60);
        graph.join(graph.node(0, 0), graph.node(1, 0), Qt::red);
        graph.finish();
        const ArrowCurve curve = graph.getEdges().at(0)->getCurve();
        const auto redColumns = [&] {
            const QImage image = graph.renderImage();
            int count = 0;
            for (int x = 0; x < image.width(); ++x)
                count += image.pixel(x, (curve.start.y() + curve.end.y()) / 2) != white;
            return count;
        };
        const int plain = redColumns();
        graph.selectEdge(0);
        QVERIFY(redColumns() >= plain);
        QImage byHand = canvas(graph.getGraphSize());
        QPainter painter(&byHand);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
        graph.getEdges().at(0)->draw(painter, true);
        painter.end();
        const QRect between(0, curve.start.y() + 10, graph.getGraphSize().width(), 20);
        QCOMPARE(graph.renderImage().copy(between), byHand.copy(between));
        graph.selectEdge(-1);
        QVERIFY(graph.renderImage().copy(between) != byHand.copy(between));
    }

    void textIsAsWideAsItsCells_data() {
        QTest::addColumn<QFont>("font");
        QTest::addColumn<QString>("text");
        const QFont usual(QStringLiteral("Monospace"), 14);
        QTest::newRow("word") << usual << QStringLiteral("word");
        QTest::newRow("line") << usual << QStringLiteral("for (int i = 0; i < n; ++i) a[i] = b[i];");
        QTest::newRow("ligatures") << usual << QStringLiteral("office -> fl");
        QTest::newRow("Cyrillic") << usual << QString::fromUtf8("\"Ширина строки\"");
        QTest::newRow("combining") << usual << QString::fromUtf8("u\u0308ber e\u0301");
        QTest::newRow("missing") << usual << QString::fromUtf8("\"日本\"");
        QTest::newRow("small") << QFont(QStringLiteral("Monospace"), 10) << QString(100, QLatin1Char('x'));
        QTest::newRow("bold") << QFont(QStringLiteral("Monospace"), 13, QFont::Bold) << QString(100, QLatin1Char('x'));
        QTest::newRow("not of fixed pitch")
            << QFont(QStringLiteral("Arial"), 14) << QStringLiteral("iiiiWWWW and so on");
        QFont spaced(usual);
        spaced.setLetterSpacing(QFont::AbsoluteSpacing, 3.0);
        QTest::newRow("spaced") << spaced << QStringLiteral("word");
    }
    void textIsAsWideAsItsCells() {
        QFETCH(QFont, font);
        QFETCH(QString, text);
        TestTextGraph graph;
        graph.setFont(font);
        addWord(graph, text);
        const TextRuler ruler;
        {
            QPainter painter(const_cast<TextRuler*>(&ruler));
            graph.drawGraph(painter);
        }
        const double wanted = graph.getCharWidth() * text.size();
        // Spacing comes in steps of 1/64 unit.
        const double width = ruler.takeWidth();
        QVERIFY2(std::abs(width - wanted) <= text.size() / 128.0, qPrintable(QString::number(width - wanted)));
        QCOMPARE(graph.getFont(), font);
    }

    /// Characters stand in their cells, in images as in SVG files, wherever they are in the line.
    void charactersStandInTheirCells_data() {
        QTest::addColumn<int>("pointSize");
        QTest::addColumn<bool>("svg");
        for (const int size : {10, 14, 22}) {
            QTest::addRow("%d points, image", size) << size << false;
            QTest::addRow("%d points, SVG", size) << size << true;
        }
    }
    void charactersStandInTheirCells() {
        QFETCH(int, pointSize);
        QFETCH(bool, svg);
        TestTextGraph graph;
        graph.setFont(QFont(QStringLiteral("Monospace"), pointSize));
        // A bar in every other cell.
        addWord(graph, QStringLiteral("|.|.").repeated(15));
        graph.setGraphSize(graph.getGraphSize() + QSize(20, 0));
        graph.finish();
        QImage image = graph.renderImage();
        if (svg) {
            QBuffer buffer;
            QVERIFY(graph.renderSvg(buffer));
            image.fill(Qt::white);
            QSvgRenderer renderer(buffer.data());
            QPainter painter(&image);
            painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
            renderer.render(&painter, QRectF(QPointF(0, 0), graph.getGraphSize()));
        }
        // Above the dots.
        image = image.copy(0, 0, image.width(), graph.getLines().at(0).y - graph.getLineHeight() / 4);
        const int cell = graph.getCharWidth();
        const auto [firstLeft, firstRight] = inkColumns(image, 0, cell + 1);
        QVERIFY(firstLeft >= 0);
        const double offset = (firstLeft + firstRight) / 2.0;
        for (int i = 2; i < 60; i += 2) {
            const auto [left, right] = inkColumns(image, i * cell - cell / 2, (i + 1) * cell + cell / 2);
            QVERIFY(left >= 0);
            QVERIFY2(std::abs((left + right) / 2.0 - offset - i * cell) <= 1.5, qPrintable(QString::number(i)));
        }
        // Nothing beyond the last cell.
        QCOMPARE(inkColumns(image, 60 * cell + 2, image.width()).first, -1);
    }

    void wordsDoNotOverlap() {
        TestTextGraph graph;
        const QString word(40, QLatin1Char('M'));
        graph.addText({word + QLatin1Char(' ') + QLatin1Char('M')});
        graph.finish();
        const QImage image = graph.renderImage();
        // Half a cell is left between them.
        const int end = 40 * graph.getCharWidth();
        QCOMPARE(graph.node(0, 1)->getPos().x(), end + graph.getCharWidth() / 2);
        QCOMPARE(inkColumns(image, end + 1, end + graph.getCharWidth() / 2 - 1).first, -1);
        QVERIFY(inkColumns(image, end - graph.getCharWidth(), end).first != -1);
    }

    void onlyWhatCanBeSeenIsDrawn() {
        TestTextGraph graph;
        std::vector<CountedNode*> nodes;
        for (int line = 0; line < 200; ++line) {
            graph.lines().append(NodesLine());
            for (int column = 0; column < 20; ++column) {
                auto* node = new CountedNode(QPoint(column * 60, 0), QStringLiteral("word"));
                node->setRect(QRect(0, -15, 44, 20));
                graph.lines().last().nodes.append(node);
                nodes.push_back(node);
            }
            graph.lines().last().setY(24 * (line + 1));
        }
        QImage image = canvas(QSize(300, 240));
        QPainter painter(&image);
        painter.setClipRect(image.rect());
        painter.translate(-300, -2400);
        graph.drawGraph(painter);
        painter.end();
        int drawn = 0;
        for (const CountedNode* node : nodes) {
            drawn += node->drawn;
            const QRectF place(node->getPos().x() - 300, node->getPos().y() - 2400 - 15, 44, 20);
            // Nodes may draw a line's height beyond their rectangles.
            const qreal reach = graph.getLineHeight() - 1;
            if (place.adjusted(-reach, -reach, reach, reach).intersects(image.rect()))
                QCOMPARE(node->drawn, 1);
        }
        // 6 × 11 can be seen; one or two more on each side are drawn for safety.
        QVERIFY2(drawn <= 9 * 15, qPrintable(QString::number(drawn)));
    }

    void partsLookAsInTheWholePicture_data() {
        QTest::addColumn<int>("reach");
        QTest::newRow("short edges") << 3;
        QTest::newRow("long edges") << 60;
    }
    void partsLookAsInTheWholePicture() {
        QFETCH(int, reach);
        std::mt19937 generator(reach);
        const auto any = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(generator); };
        static constexpr double scales[] = {0.1, 0.33, 0.5, 0.91, 1.0, 1.1, 1.7, 3.0, 7.3};
        TestTextGraph graph;
        graph.addRandom(generator, 60, 8, 300, reach);
        // Loops next to each other, an arc over a whole line, glyphs that are higher than the line.
        graph.join(graph.node(30, 0), graph.node(30, 7), Qt::red);
        graph.node(31, 3)->setPos(graph.node(31, 3)->getPos() + QPoint(0, 7));
        graph.finish();
        for (int round = 0; round < 90; ++round) {
            graph.selectEdge(any(-1, 300));
            View view;
            view.scale = scales[round % 9];
            view.scroll = QPoint(any(-30, static_cast<int>(600 * view.scale)),
                                 any(-30, static_cast<int>(graph.getGraphSize().height() * view.scale)));
            view.exposed =
                round % 4 == 0 ? QRect(0, 0, 500, 400) : QRect(any(0, 350), any(0, 250), any(1, 140), any(1, 140));
            QVERIFY2(paint(graph, view, true) == paint(graph, view, false),
                     qPrintable(QStringLiteral("round %1 scale %2").arg(round).arg(view.scale)));
        }
    }

    /// Tips of arrows and glyphs that lean over, enlarged: where the least is seen of what is drawn.
    void nothingIsMissingAtTheRims() {
        std::mt19937 generator(4);
        const auto any = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(generator); };
        TestTextGraph graph;
        QFont font(QStringLiteral("Monospace"), 14);
        font.setItalic(true);
        graph.setFont(font);
        graph.addRandom(generator, 20, 5, 80, 4);
        graph.finish();
        constexpr double scale = 7.3;
        const auto isWhole = [&](const QPoint& place) {
            View view{scale, QPoint(place * scale) - QPoint(30, 30), QRect(), QSize(60, 60)};
            for (int round = 0; round < 4; ++round) {
                view.exposed = QRect(30 + any(-24, 24), 30 + any(-24, 24), any(1, 6), any(1, 6));
                if (paint(graph, view, false) != paint(graph, view, true))
                    return false;
            }
            return true;
        };
        for (int i = 0; i < graph.getEdges().size(); ++i) {
            graph.selectEdge(any(0, 1) == 0 ? i : -1);
            const ArrowCurve curve = graph.getEdges().at(i)->getCurve();
            for (const QPoint& place : {curve.start, curve.end, curve.wings.first, curve.wings.second})
                QVERIFY2(isWhole(place), qPrintable(QString::number(i)));
        }
        for (const NodesLine& line : graph.getLines()) {
            for (const NodeBase* node : line.nodes) {
                QVERIFY(isWhole(node->getPos()));
                QVERIFY(isWhole(QPoint(node->getRightEnd(), node->getPos().y() - 12)));
            }
        }
    }

    /// The ports of a loop are in the middle of its word, however far that is from where it swings out.
    void loopsOfLongWordsAreNotMissed() {
        TestTextGraph graph;
        graph.addText({QString(), QStringLiteral("   ") + QString(60, QLatin1Char('x'))});
        GraphNodeBase* word = graph.node(1, graph.getLines().at(1).nodes.size() - 1);
        graph.join(word, word, Qt::red);
        graph.finish();
        const QRect bulge = graph.edgeRects().at(0).toAlignedRect();
        QVERIFY(bulge.width() > 200);
        const View view{1.0, QPoint(0, 0), QRect(bulge.left() - 2, bulge.center().y() - 2, 6, 4)};
        const QImage painted = paint(graph, view, false);
        QCOMPARE(painted, paint(graph, view, true));
        QVERIFY(painted != canvas(view.size));
    }

    /// From 50 down to 53, with wings that reach up to 38.
    void arrowheadsLongerThanTheirEdgesAreNotMissed() {
        TestTextGraph graph;
        graph.addText({QStringLiteral("a"), QStringLiteral("b")});
        graph.lines()[0].setY(40);
        graph.lines()[1].setY(60);
        graph.node(0, 0)->setRect(QRect(QPoint(0, -5), QPoint(9, 10)));
        graph.node(1, 0)->setRect(QRect(QPoint(0, -7), QPoint(9, 0)));
        graph.join(graph.node(0, 0), graph.node(1, 0), Qt::red);
        graph.finish();
        const ArrowCurve curve = graph.getEdges().at(0)->getCurve();
        QCOMPARE(curve.start, QPoint(5, 50));
        QCOMPARE(curve.end, QPoint(5, 53));
        QCOMPARE(curve.wings.first.y(), 38);
        const View view{1.0, QPoint(0, 0), QRect(0, 37, 12, 4)};
        const QImage painted = paint(graph, view, false);
        QCOMPARE(painted, paint(graph, view, true));
        bool red = false;
        for (int x = 0; x < 12; ++x)
            red |= painted.pixelColor(x, 39).green() < 200 && painted.pixelColor(x, 39).red() > 200;
        QVERIFY(red);
    }

    void paintingChangesNothing() {
        std::mt19937 generator(1);
        TestTextGraph graph;
        graph.addRandom(generator, 20, 5, 60, 5);
        graph.finish();
        const QImage once = graph.renderImage();
        graph.grab();
        QCOMPARE(graph.renderImage(), once);
    }

    void everyLineIsInTheExport() {
        TestTextGraph graph;
        graph.addText({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
        graph.join(graph.node(0, 0), graph.node(1, 0));
        graph.join(graph.node(1, 0), graph.node(2, 0));
        graph.moveCloseLinesApart();
        graph.finish();
        const QImage image = graph.renderImage();
        const int y = graph.getLines().last().y;
        bool ink = false;
        for (int x = 0; x < graph.getCharWidth(); ++x)
            ink |= qGray(image.pixel(x, y - 3)) < 100;
        QVERIFY(ink);
        QCOMPARE(image.height(), y + graph.getLineHeight());
    }
};

QTEST_MAIN(TextGraphDrawingTest)
#include "TextGraphDrawingTest.moc"
