// SPDX-License-Identifier: MIT
#include "visualization/graphcore/GraphWidgetBase.h"

#include "GraphProbe.h"
#include "tests/visualization/graphcore/Pixels.h"

#include <QSignalSpy>
#include <QtTest>

#include <cmath>
#include <limits>

using namespace Kova::GUI;

namespace {

QStringList words(const char* text) {
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

/// An image on which text is as large and as smooth as on the viewport.
QImage canvasFor(const GraphProbe& probe) {
    QImage image(probe.viewport()->size(), QImage::Format_RGB32);
    image.setDotsPerMeterX(qRound(probe.viewport()->logicalDpiX() / 0.0254));
    image.setDotsPerMeterY(qRound(probe.viewport()->logicalDpiY() / 0.0254));
    return image;
}

QImage painted(const GraphProbe& probe) {
    QImage image = canvasFor(probe);
    probe.viewport()->render(&image);
    return image;
}

} // namespace

class GraphWidgetBaseTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void startsEmpty() {
        GraphProbe probe;
        QCOMPARE(probe.getGraphSize(), QSize(-1, -1));
        QCOMPARE(probe.getScale(), 1.0);
        QVERIFY(!probe.hasMouseScroll());
        QCOMPARE(probe.imageAction()->text(), QStringLiteral("Save As Image..."));
        QCOMPARE(probe.svgAction()->text(), QStringLiteral("Save As SVG..."));
        QVERIFY(!probe.imageAction()->isEnabled());
        QVERIFY(!probe.svgAction()->isEnabled());
        QCOMPARE(probe.imageAction()->parent(), &probe);
        QCOMPARE(probe.svgAction()->parent(), &probe);
        QVERIFY(probe.actions().isEmpty());
        QCOMPARE(probe.contextMenuPolicy(), Qt::DefaultContextMenu);
    }

    void metaObject() {
        const QMetaObject& meta = GraphWidgetBase::staticMetaObject;
        QCOMPARE(meta.className(), "Kova::GUI::GraphWidgetBase");
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
        QStringList methods;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            methods.append(QString::fromLatin1(meta.method(i).methodSignature()));
        QCOMPARE(methods, words("scaleChanged(double) save(QString) save() saveSvg(QString) saveSvg()"));
    }

    void clearResets() {
        GraphProbe probe;
        probe.setGraphSize(500, 400);
        probe.setScale(2.0);
        probe.imageAction()->setEnabled(true);
        probe.svgAction()->setEnabled(true);
        QSignalSpy scales(&probe, &GraphWidgetBase::scaleChanged);
        probe.log.clear();
        probe.clear();
        QCOMPARE(probe.getGraphSize(), QSize(0, 0));
        QCOMPARE(probe.getScale(), 1.0);
        QVERIFY(!probe.imageAction()->isEnabled());
        QVERIFY(!probe.svgAction()->isEnabled());
        QCOMPARE(scales, QList<QVariantList>({{1.0}}));
        // The size first, then the scale.
        QCOMPARE(probe.log, words("bars bars map"));
        probe.clear();
        QCOMPARE(scales.size(), 1);
    }

    void scaleHasALowerBoundOnly() {
        GraphProbe probe;
        QSignalSpy scales(&probe, &GraphWidgetBase::scaleChanged);
        probe.log.clear();
        for (const double refused :
             {0.0999, 0.0, -1.0, -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()})
            probe.setScale(refused);
        QCOMPARE(probe.getScale(), 1.0);
        QVERIFY(scales.isEmpty());
        QVERIFY(probe.log.isEmpty());
        probe.setScale(0.1);
        QCOMPARE(probe.getScale(), 0.1);
        probe.setScale(1000.0);
        QCOMPARE(probe.getScale(), 1000.0);
        QCOMPARE(scales, QList<QVariantList>({{0.1}, {1000.0}}));
    }

    void changedScaleUpdatesBarsThenMapThenTells() {
        GraphProbe probe;
        probe.log.clear();
        connect(&probe, &GraphWidgetBase::scaleChanged, this, [&] { probe.log.append(QStringLiteral("signal")); });
        probe.setScale(2.0);
        QCOMPARE(probe.log, words("bars map signal"));
        probe.setScale(2.0);
        QCOMPARE(probe.log.size(), 3);
    }

    void changedScaleRepaints() {
        GraphProbe probe;
        QCoreApplication::processEvents();
        probe.log.clear();
        probe.setScale(2.0);
        QTRY_VERIFY(probe.log.contains(QStringLiteral("graph")));
    }

    void graphSizeUpdatesBarsAndDoesNotRepaint() {
        GraphProbe probe;
        QTest::qWait(50);
        probe.log.clear();
        probe.setGraphSize(500, 400);
        probe.setGraphSize(QSize(500, 401));
        QTest::qWait(50);
        QCOMPARE(probe.log, words("bars bars"));
        QCOMPARE(probe.getGraphSize(), QSize(500, 401));
    }

    void scrollRangesAreTruncated() {
        GraphProbe probe;
        probe.setGraphSize(333, 77);
        QCOMPARE(probe.horizontalScrollBar()->pageStep(), 200);
        QCOMPARE(probe.verticalScrollBar()->pageStep(), 100);
        QCOMPARE(probe.horizontalScrollBar()->maximum(), 133);
        QCOMPARE(probe.verticalScrollBar()->maximum(), 0);
        QCOMPARE(probe.verticalScrollBar()->minimum(), 0);
        // 333 * 1.5 - 200 = 299.5, 77 * 1.5 - 100 = 15.5
        probe.setScale(1.5);
        QCOMPARE(probe.horizontalScrollBar()->maximum(), 299);
        QCOMPARE(probe.verticalScrollBar()->maximum(), 15);
    }

    void enormousPicturesClampTheRanges() {
        GraphProbe probe;
        probe.setGraphSize(2000000000, 2000000000);
        probe.setScale(1000.0);
        QCOMPARE(probe.horizontalScrollBar()->maximum(), std::numeric_limits<int>::max());
    }

    void resizeUpdatesBarsThenMap() {
        GraphProbe probe;
        probe.setGraphSize(1000, 1000);
        probe.log.clear();
        probe.resize(300, 150);
        QCOMPARE(probe.log, words("bars map"));
        QCOMPARE(probe.horizontalScrollBar()->maximum(), 700);
        QCOMPARE(probe.verticalScrollBar()->maximum(), 850);
    }

    void screenToGraphTruncates() {
        GraphProbe probe;
        probe.setGraphSize(1000, 1000);
        probe.setScale(3.0);
        probe.scrollTo(100, 101);
        QCOMPARE(probe.screenToGraph(QPoint(0, 0)), QPoint(33, 33));
        QCOMPARE(probe.screenToGraph(QPoint(2, 1)), QPoint(34, 34));
        QCOMPARE(probe.screenToGraph(QPoint(-104, -103)), QPoint(-1, 0));
    }

    void placeholderIsCentredAndNotScrolled() {
        GraphProbe probe(QSize(400, 200));
        probe.built = false;
        QImage expected = canvasFor(probe);
        expected.fill(probe.viewport()->palette().color(QPalette::Base));
        const QImage blank = expected;
        QPainter painter(&expected);
        painter.setFont(probe.viewport()->font());
        painter.setPen(Qt::lightGray);
        painter.drawText(QRect(0, 0, 400, 200), Qt::AlignCenter, QStringLiteral("[Graph is not built]"));
        painter.end();
        QVERIFY(expected != blank);
        probe.setGraphSize(2000, 2000);
        probe.scrollTo(300, 300);
        probe.log.clear();
        QCOMPARE(painted(probe), expected);
        QVERIFY(probe.log.isEmpty());
        probe.setScale(2.0);
        QCOMPARE(painted(probe), expected);
    }

    void paintsScrolledThenScaled() {
        GraphProbe probe;
        probe.setGraphSize(1000, 1000);
        probe.setScale(2.0);
        probe.scrollTo(4, 6);
        probe.log.clear();
        const QImage image = probe.viewport()->grab().toImage();
        QCOMPARE(probe.log, words("graph legend"));
        QVERIFY(probe.hints.testFlag(QPainter::Antialiasing));
        QVERIFY(probe.clipped);
        QCOMPARE(probe.transform.map(QPointF(10, 10)), QPointF(16, 14));
        QCOMPARE(probe.legendTransform, probe.transform);
        QCOMPARE(image.pixel(16, 14), Pixels::red);
        QCOMPARE(image.pixel(25, 23), Pixels::red);
        QVERIFY(image.pixel(15, 14) != Pixels::red);
        QVERIFY(image.pixel(26, 23) != Pixels::red);
        QCOMPARE(image.pixel(56, 54), QRgb(0xff00ff00));
    }

    void wheelZoomsAboutTheMouse() {
        GraphProbe probe;
        probe.setGraphSize(1000, 1000);
        probe.scrollTo(100, 50);
        QVERIFY(probe.wheel(QPoint(30, 20), 120));
        QCOMPARE(probe.getScale(), 1.1);
        // The point (130, 70) stays under the mouse: it grew by (13, 7).
        QCOMPARE(probe.scrolled(), QPoint(113, 57));
        QCOMPARE(probe.screenToGraph(QPoint(30, 20)), QPoint(130, 70));
    }

    void wheelMayScrollBeyondTheOldRange() {
        GraphProbe probe;
        probe.setGraphSize(1000, 1000);
        probe.scrollTo(800, 900);
        // Range before: (800, 900); the growth of (990, 990) is 99.
        probe.wheel(QPoint(190, 90), 120);
        QCOMPARE(probe.scrolled(), QPoint(899, 999));
    }

    void wheelDeltaCountsWholeNotches_data() {
        QTest::addColumn<QPoint>("delta");
        QTest::addColumn<double>("scale");
        QTest::newRow("half") << QPoint(0, 60) << 1.0;
        QTest::newRow("half back") << QPoint(0, -60) << 1.0;
        QTest::newRow("almost two") << QPoint(0, 239) << 1.1;
        QTest::newRow("two back") << QPoint(0, -240) << 1.0 / 1.21;
        QTest::newRow("almost one back") << QPoint(0, -119) << 1.0;
        QTest::newRow("sideways") << QPoint(120, 0) << 1.1;
        QTest::newRow("larger component") << QPoint(-240, 120) << 1.0 / 1.21;
        QTest::newRow("equal: vertical") << QPoint(-120, 120) << 1.1;
    }

    void wheelDeltaCountsWholeNotches() {
        QFETCH(QPoint, delta);
        QFETCH(double, scale);
        GraphProbe probe;
        probe.setGraphSize(1000, 1000);
        QSignalSpy scales(&probe, &GraphWidgetBase::scaleChanged);
        QVERIFY(probe.wheel(QPoint(30, 20), delta));
        QCOMPARE(probe.getScale(), scale);
        QCOMPARE(scales.size(), scale == 1.0 ? 0 : 1);
    }

    void turningTooLittleStillNudges() {
        GraphProbe probe;
        probe.setGraphSize(1000, 1000);
        probe.setScale(3.0);
        probe.scrollTo(100, 101);
        QSignalSpy scales(&probe, &GraphWidgetBase::scaleChanged);
        probe.wheel(QPoint(50, 50), 60);
        QCOMPARE(probe.getScale(), 3.0);
        QVERIFY(scales.isEmpty());
        // The corner is (33, 33), times 3.
        QCOMPARE(probe.scrolled(), QPoint(99, 99));
    }

    void zoomingOutEndsAboveTheBound() {
        GraphProbe probe;
        probe.setGraphSize(100000, 100000);
        QSignalSpy scales(&probe, &GraphWidgetBase::scaleChanged);
        for (int i = 0; i < 40; ++i)
            probe.wheel(QPoint(30, 20), -120);
        // 1.1^24 = 9.85, 1.1^25 = 10.83
        QCOMPARE(scales.size(), 24);
        QCOMPARE(probe.getScale(), std::pow(1.1, -24));
    }

    void refusedNotchStillScrolls() {
        GraphProbe probe;
        probe.setGraphSize(10000, 10000);
        probe.setScale(0.1);
        probe.scrollTo(400, 500);
        QSignalSpy scales(&probe, &GraphWidgetBase::scaleChanged);
        probe.wheel(QPoint(10, 10), -120);
        QVERIFY(scales.isEmpty());
        QCOMPARE(probe.getScale(), 0.1);
        // g = (4100, 5100), o = (4000, 5000); g * (1/1.1 - 1) = (-372.7, -463.6); (3627, 4536) * 0.1
        QCOMPARE(probe.scrolled(), QPoint(363, 454));
    }

    void panningIsOffAtFirst() {
        GraphProbe probe;
        probe.setGraphSize(1000, 1000);
        probe.scrollTo(100, 100);
        QVERIFY(!probe.press(QPoint(50, 50)));
        QVERIFY(!probe.moveMouse(QPoint(90, 50)));
        QVERIFY(!probe.release(QPoint(90, 50)));
        QCOMPARE(probe.scrolled(), QPoint(100, 100));
    }

    void shortMovementIsAClick() {
        GraphProbe probe;
        probe.setMouseScroll(true);
        QVERIFY(probe.hasMouseScroll());
        probe.setGraphSize(1000, 1000);
        probe.scrollTo(100, 100);
        QVERIFY(!probe.press(QPoint(50, 50)));
        QVERIFY(!probe.moveMouse(QPoint(55, 45)));
        QVERIFY(!probe.moveMouse(QPoint(45, 55)));
        QVERIFY(!probe.release(QPoint(45, 55)));
        QCOMPARE(probe.scrolled(), QPoint(100, 100));
    }

    void longerMovementScrolls() {
        GraphProbe probe;
        probe.setMouseScroll(true);
        probe.setGraphSize(1000, 1000);
        probe.scrollTo(100, 100);
        QVERIFY(!probe.press(QPoint(50, 50)));
        QVERIFY(!probe.moveMouse(QPoint(55, 55)));
        // Eleven pixels from the press start the drag; scrolling counts from here.
        QVERIFY(probe.moveMouse(QPoint(55, 56)));
        QCOMPARE(probe.scrolled(), QPoint(100, 100));
        QVERIFY(probe.moveMouse(QPoint(60, 50)));
        QCOMPARE(probe.scrolled(), QPoint(95, 106));
        QVERIFY(probe.moveMouse(QPoint(61, 50)));
        QCOMPARE(probe.scrolled(), QPoint(94, 106));
        QVERIFY(!probe.release(QPoint(61, 50), Qt::RightButton));
        QVERIFY(probe.release(QPoint(61, 50)));
        QVERIFY(!probe.release(QPoint(61, 50)));
        QVERIFY(!probe.moveMouse(QPoint(90, 90), Qt::NoButton));
        QCOMPARE(probe.scrolled(), QPoint(94, 106));
    }

    void onlyTheScrollButtonPans() {
        GraphProbe probe;
        probe.setMouseScroll(true);
        probe.setMouseScrollButton(Qt::MiddleButton);
        probe.setGraphSize(1000, 1000);
        probe.scrollTo(100, 100);
        probe.press(QPoint(50, 50), Qt::LeftButton);
        QVERIFY(!probe.moveMouse(QPoint(100, 50), Qt::LeftButton));
        probe.press(QPoint(50, 50), Qt::MiddleButton);
        QVERIFY(probe.moveMouse(QPoint(70, 50), Qt::LeftButton | Qt::MiddleButton));
        QVERIFY(probe.moveMouse(QPoint(80, 50), Qt::LeftButton | Qt::MiddleButton));
        QCOMPARE(probe.scrolled(), QPoint(90, 100));
        QVERIFY(!probe.release(QPoint(80, 50), Qt::LeftButton));
        QVERIFY(probe.release(QPoint(80, 50), Qt::MiddleButton));
    }

    void fitShrinksOnly_data() {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<double>("scale");
        QTest::newRow("smaller") << QSize(100, 50) << 1.0;
        QTest::newRow("equal") << QSize(200, 100) << 1.0;
        QTest::newRow("twice as wide") << QSize(400, 50) << 0.5;
        QTest::newRow("twice as wide, four times as high") << QSize(400, 400) << 0.25;
        QTest::newRow("too wide for the lowest scale") << QSize(5000, 50) << 1.0;
        QTest::newRow("nothing") << QSize(0, 0) << 1.0;
        QTest::newRow("unset") << QSize(-1, -1) << 1.0;
        QTest::newRow("no width") << QSize(0, 400) << 0.25;
    }

    void fitShrinksOnly() {
        QFETCH(QSize, size);
        QFETCH(double, scale);
        GraphProbe probe;
        probe.setGraphSize(size);
        probe.fitGraphToViewport();
        QCOMPARE(probe.getScale(), scale);
    }

    void fitNeverEnlarges() {
        GraphProbe probe;
        probe.setGraphSize(100, 50);
        probe.setScale(0.5);
        probe.fitGraphToViewport();
        QCOMPARE(probe.getScale(), 0.5);
    }

    void fitInNoViewport() {
        GraphProbe probe(QSize(0, 0));
        probe.setGraphSize(0, 0);
        probe.fitGraphToViewport();
        QCOMPARE(probe.getScale(), 1.0);
    }
};

QTEST_MAIN(GraphWidgetBaseTest)
#include "GraphWidgetBaseTest.moc"
