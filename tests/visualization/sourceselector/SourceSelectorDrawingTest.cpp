// SPDX-License-Identifier: MIT
#include "tests/visualization/graphcore/Pixels.h"
#include "tests/visualization/sourceselector/SampleText.h"

#include <QBuffer>
#include <QSvgGenerator>
#include <QSvgRenderer>
#include <QtTest>

#include <functional>

using namespace Kova::GUI;
using namespace Kova::Tessel;

namespace {

/// The columns of a picture, from the left, that hold anything but the colour.
std::pair<int, int> inked(const QImage& picture, const QRect& area, QRgb colour) {
    int first = -1;
    int last = -1;
    for (int x = area.left(); x <= area.right(); ++x) {
        for (int y = area.top(); y <= area.bottom(); ++y) {
            if (picture.rect().contains(x, y) && picture.pixel(x, y) != colour) {
                first = first < 0 ? x : first;
                last = x;
            }
        }
    }
    return {first, last};
}

/// A block of so many statements with one number each.
std::unique_ptr<BlockStatement> longBlock(int count) {
    auto block = std::make_unique<BlockStatement>();
    for (int i = 0; i < count; ++i)
        block->append(Kova::Tests::statement(Kova::Tests::literal("8")));
    return block;
}

} // namespace

/// What a selector paints.
class SourceSelectorDrawingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void paintsNothingWithoutARoot();
    void textStandsInItsCells();
    void longTextsKeepToTheirCells();
    void textColours();
    void textIsBlackAtFirst();
    void changesAreSeenAtOnce();
    void backgroundsReachFromLineToLine();
    void linesAreCountedAlongTheWidth();
    void linesAreCountedFromTheScrollValue();
    void exposedAreasCountTheirOwnWidth();
    void scrolledSideways();
    void linesCanBeDrawnElsewhere();
    void svgKeepsTextsAndBackgrounds();

private:
    [[nodiscard]] QRgb plain() const { return m_selector->palette().color(QPalette::Base).rgb(); }
    /// What is painted in the cells of a line.
    [[nodiscard]] QRect row(int line) const {
        return {0, line * m_metrics.height() + m_metrics.descent(), m_selector->viewport()->width(),
                m_metrics.height()};
    }
    [[nodiscard]] bool isInked(int line) const {
        return inked(m_selector->viewport()->grab().toImage(), row(line), plain()).first >= 0;
    }

    SampleText m_sample;
    std::unique_ptr<SourceSelector> m_selector;
    QFontMetrics m_metrics{QFont("Monospace", 10)};
};

void SourceSelectorDrawingTest::init() {
    m_selector = std::make_unique<SourceSelector>();
    m_selector->setOptions({});
    m_selector->resize(500, 400);
    m_selector->setRootNode(m_sample.block.get());
    m_selector->grab();
}

void SourceSelectorDrawingTest::paintsNothingWithoutARoot() {
    SourceSelector selector;
    selector.resize(200, 100);
    const QImage picture = selector.viewport()->grab().toImage();
    QCOMPARE(Pixels::count(picture, plain()), picture.width() * picture.height());
}

void SourceSelectorDrawingTest::textStandsInItsCells() {
    const QImage picture = m_selector->viewport()->grab().toImage();
    const int width = m_metrics.averageCharWidth();
    const auto [brace, braceEnd] = inked(picture, row(0), plain());
    QVERIFY(brace >= 4 * width && braceEnd < 5 * width);
    const auto [first, last] = inked(picture, row(1), plain());
    QVERIFY(first >= 8 * width && first < 9 * width);
    QVERIFY(last >= 17 * width && last < 18 * width);
    QCOMPARE(inked(picture, row(8), plain()).first, -1);
}

// The advances of a font are fractions of a pixel: over many characters they would run out of the cells.
void SourceSelectorDrawingTest::longTextsKeepToTheirCells() {
    auto block = std::make_unique<BlockStatement>();
    block->append(Kova::Tests::statement(Kova::Tests::literal(std::string(50, '8'))));
    m_selector->resize(800, 100);
    m_selector->setRootNode(block.get());
    m_selector->setMarkParams(0, 0xFF000000, 0xFF00FF00, false, {Qt::LeftButton, 0});
    press(*m_selector, cell(*m_selector, 1, 8));
    const QImage picture = m_selector->viewport()->grab().toImage();
    const int width = m_metrics.averageCharWidth();
    const int y = row(1).top() + 1;
    // The background is exactly as wide as the cells.
    QCOMPARE(picture.pixel(8 * width - 1, y), plain());
    QCOMPARE(picture.pixel(8 * width, y), 0xFF00FF00);
    QCOMPARE(picture.pixel(58 * width - 2, y), 0xFF00FF00);
    QCOMPARE(picture.pixel(58 * width + 1, y), plain());
    m_selector->setRootNode(nullptr);
}

void SourceSelectorDrawingTest::textColours() {
    m_selector->setMarkParams(0, 0xFFFF0000, 0xFFFFFFFF, true, {Qt::LeftButton, 0});
    press(*m_selector, cell(*m_selector, 0, 4));
    const QImage picture = m_selector->viewport()->grab().toImage();
    for (int y = 0; y < 3 * m_metrics.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            QVERIFY(pixel.red() > 250 && pixel.green() == pixel.blue());
        }
    }
    QVERIFY(Pixels::count(picture.copy(row(0)), 0xFFFF0000) > 0);
}

void SourceSelectorDrawingTest::textIsBlackAtFirst() {
    const auto isBlack = [&](int line) {
        const QImage picture = m_selector->viewport()->grab(row(line)).toImage();
        QColor darkest(Qt::white);
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                if (const QColor pixel = picture.pixelColor(x, y); pixel.lightness() < darkest.lightness())
                    darkest = pixel;
        return std::max({darkest.red(), darkest.green(), darkest.blue()}) < 0x18;
    };
    QVERIFY(isBlack(1));
    m_selector->setMarksNum(5);
    for (int mark = 0; mark < 5; ++mark) {
        m_selector->setMark(m_sample.firstStatement, mark);
        QVERIFY2(isBlack(1), qPrintable(QString::number(mark)));
    }
    move(*m_selector, cell(*m_selector, 1, 0));
    QVERIFY(isBlack(1));
    m_selector->setOverParams(0xFF0000FF, 0xFFFFFFFF);
    QVERIFY(!isBlack(1));
}

// Nobody but the selector asks for a repaint.
void SourceSelectorDrawingTest::changesAreSeenAtOnce() {
    class Paints : public QObject {
    public:
        bool eventFilter(QObject* /*watched*/, QEvent* event) override {
            m_count += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
        int take() {
            QCoreApplication::processEvents();
            return std::exchange(m_count, 0);
        }

    private:
        int m_count = 0;
    } paints;
    m_selector->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_selector.get()));
    m_selector->viewport()->installEventFilter(&paints);
    ProgramFragment fragment;
    fragment.set(*m_sample.firstStatement, *m_sample.lastStatement);
    SourceSelector::Options others;
    others.hideVariables = true;
    const std::vector<std::function<void()>> changes = {
        [&] { m_selector->setMark(m_sample.inner, 0); },
        [&] { m_selector->setMark(nullptr, 0); },
        [&] { m_selector->setMarkFragment(fragment, 1); },
        [&] { m_selector->setMarkFragment({}, 1); },
        [&] { m_selector->clearSelection(2); },
        [&] { m_selector->setMarkParams(1, 0xFF000000, 0xFF00FF00, true, {Qt::RightButton, 0}); },
        [&] { m_selector->setOverParams(0xFF000000, 0xFF00FF00); },
        [&] { move(*m_selector, cell(*m_selector, 1, 0)); },
        [&] { move(*m_selector, cell(*m_selector, 12, 0)); },
        [&] { press(*m_selector, cell(*m_selector, 1, 0)); },
        [&] { leave(*m_selector); },
        [&] { m_selector->setOptions(others); },
        [&] { m_selector->setRootNode(m_sample.inner); },
        [&] { m_selector->setRootNode(nullptr); }};
    for (std::size_t i = 0; i < changes.size(); ++i) {
        paints.take();
        changes[i]();
        QVERIFY2(paints.take() > 0, qPrintable(QString("change %1").arg(i)));
    }
    // A font does not show before the next repaint.
    m_selector->setFont(QFont("Monospace", 10));
    QCOMPARE(paints.take(), 0);
}

void SourceSelectorDrawingTest::backgroundsReachFromLineToLine() {
    press(*m_selector, cell(*m_selector, 0, 4));
    const QImage picture = m_selector->viewport()->grab().toImage();
    const int x = 1;
    for (int y = m_metrics.descent(); y < 5 * m_metrics.height() + m_metrics.descent(); ++y)
        QCOMPARE(picture.pixel(x, y), qRgb(200, 250, 200));
    QCOMPARE(picture.pixel(x, m_metrics.descent() - 1), plain());
}

// A window taller than wide: as many lines are drawn as its width holds, and one.
void SourceSelectorDrawingTest::linesAreCountedAlongTheWidth() {
    const auto block = longBlock(100);
    const int height = m_metrics.height();
    m_selector->setRootNode(block.get());
    m_selector->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_selector->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_selector->setFrameStyle(QFrame::NoFrame);
    for (const auto& [width, drawn] : {std::pair{10 * height, 11}, {10 * height + height - 1, 11}, {11 * height, 12}}) {
        m_selector->resize(width, 30 * height);
        QVERIFY(isInked(drawn - 1));
        QVERIFY(!isInked(drawn));
        QVERIFY(!isInked(25));
    }
    m_selector->setRootNode(nullptr);
}

void SourceSelectorDrawingTest::linesAreCountedFromTheScrollValue() {
    const auto block = longBlock(100);
    const int height = m_metrics.height();
    m_selector->setRootNode(block.get());
    m_selector->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_selector->setFrameStyle(QFrame::NoFrame);
    m_selector->resize(10 * height, 30 * height);
    m_selector->grab();
    m_selector->verticalScrollBar()->setValue(40 * height + 3);
    // Lines 40 to 50, and the last of them is drawn three pixels higher.
    const QImage picture = m_selector->viewport()->grab().toImage();
    const auto rowOf = [&](int line) { return row(line - 40).translated(0, -3); };
    QVERIFY(inked(picture, rowOf(40), plain()).first >= 0);
    QVERIFY(inked(picture, rowOf(50), plain()).first >= 0);
    QCOMPARE(inked(picture, rowOf(51), plain()).first, -1);
    m_selector->setRootNode(nullptr);
}

// Only a part is exposed: its left edge counts as if it were lines, too.
void SourceSelectorDrawingTest::exposedAreasCountTheirOwnWidth() {
    const auto block = longBlock(100);
    const int height = m_metrics.height();
    const int width = m_metrics.averageCharWidth();
    m_selector->setRootNode(block.get());
    m_selector->setFrameStyle(QFrame::NoFrame);
    m_selector->resize(600, 30 * height);
    m_selector->grab();
    // From "8;" on, which stands at columns 8 and 9 of each line.
    const QRect exposed(8 * width, 0, 3 * height, 30 * height);
    QImage picture = Pixels::blank(m_selector->viewport()->size());
    m_selector->viewport()->render(&picture, exposed.topLeft(), exposed, QWidget::RenderFlags());
    const int first = 8 * width / height;
    QCOMPARE(inked(picture, row(first - 1) & exposed, Pixels::white).first, -1);
    QVERIFY(inked(picture, row(first), Pixels::white).first >= 0);
    QVERIFY(inked(picture, row(first + 3), Pixels::white).first >= 0);
    QCOMPARE(inked(picture, row(first + 4), Pixels::white).first, -1);
    m_selector->setRootNode(nullptr);
}

void SourceSelectorDrawingTest::scrolledSideways() {
    m_selector->resize(90, 300);
    m_selector->setMark(m_sample.block.get(), 0);
    m_selector->grab();
    const QImage before = m_selector->viewport()->grab().toImage();
    m_selector->horizontalScrollBar()->setValue(20);
    const QImage after = m_selector->viewport()->grab().toImage();
    const QRect area(0, 0, before.width() - 20, 4 * m_metrics.height());
    QCOMPARE(after.copy(area), before.copy(area.translated(20, 0)));
}

void SourceSelectorDrawingTest::linesCanBeDrawnElsewhere() {
    press(*m_selector, cell(*m_selector, 1, 0));
    QImage picture = Pixels::blank(m_selector->getTextSize() + QSize(0, m_metrics.height()));
    QPainter painter(&picture);
    m_selector->drawLines(painter, 1, 3);
    painter.end();
    QCOMPARE(inked(picture, row(0), Pixels::white).first, -1);
    QCOMPARE(picture.pixel(1, row(1).top() + 1), qRgb(200, 250, 200));
    QVERIFY(inked(picture, row(2), Pixels::white).first >= 0);
    QCOMPARE(inked(picture, row(3), Pixels::white).first, -1);
}

void SourceSelectorDrawingTest::svgKeepsTextsAndBackgrounds() {
    press(*m_selector, cell(*m_selector, 1, 0));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    const QSize size = m_selector->getTextSize() + QSize(0, m_metrics.height());
    generator.setSize(size);
    generator.setViewBox(QRect(QPoint(0, 0), size));
    QPainter painter(&generator);
    m_selector->drawLines(painter, 0, 8);
    painter.end();
    const QImage picture = Pixels::painted(size, [&](QPainter& second) { QSvgRenderer(bytes).render(&second); });
    QCOMPARE(picture.pixel(3, row(1).center().y()), qRgb(200, 250, 200));
    QVERIFY(inked(picture, row(7), Pixels::white).first >= 0);
    const int width = m_metrics.averageCharWidth();
    const auto [first, last] = inked(picture, row(6), Pixels::white);
    QVERIFY(first >= 8 * width - 1 && last <= 14 * width + 1);
}

QTEST_MAIN(SourceSelectorDrawingTest)
#include "SourceSelectorDrawingTest.moc"
