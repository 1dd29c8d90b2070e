// SPDX-License-Identifier: MIT
#include "visualization/graphcore/PaintExtent.h"

#include "tests/visualization/graphcore/Pixels.h"

#include <QFontMetricsF>
#include <QPixmap>
#include <QtTest>

#include <functional>

using namespace Kova::GUI;

namespace {

QRectF extentOf(const std::function<void(QPainter&)>& draw) {
    const QImage model(1, 1, QImage::Format_RGB32);
    PaintExtent extent(model);
    QPainter painter(&extent);
    painter.setFont(QFont(QStringLiteral("Arial"), 12));
    draw(painter);
    return extent.bounds();
}

/// The pixels that are touched when the same is drawn, moved by (200, 200).
QRectF touchedBy(const std::function<void(QPainter&)>& draw) {
    const QImage image = Pixels::painted(QSize(400, 400), [&](QPainter& painter) {
        painter.translate(200, 200);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setFont(QFont(QStringLiteral("Arial"), 12));
        draw(painter);
    });
    QRectF touched;
    for (int y = 0; y < 400; ++y) {
        for (int x = 0; x < 400; ++x) {
            if (image.pixel(x, y) != Pixels::white)
                touched |= QRectF(x - 200, y - 200, 1, 1);
        }
    }
    return touched;
}

} // namespace

Q_DECLARE_METATYPE(std::function<void(QPainter&)>)

class PaintExtentTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothingDrawnHasNoExtent() {
        QVERIFY(extentOf([](QPainter&) {}).isNull());
    }

    void resetForgets() {
        const QImage model(1, 1, QImage::Format_RGB32);
        PaintExtent extent(model);
        QPainter painter(&extent);
        painter.drawRect(0, 0, 10, 10);
        QVERIFY(!extent.bounds().isNull());
        extent.reset();
        QVERIFY(extent.bounds().isNull());
    }

    void coversWhatIsDrawn_data() {
        QTest::addColumn<std::function<void(QPainter&)>>("draw");
        using Draw = std::function<void(QPainter&)>;
        QTest::newRow("rounded box") << Draw([](QPainter& p) { p.drawRoundedRect(QRect(-30, -20, 60, 40), 7, 7); });
        QTest::newRow("ellipse") << Draw([](QPainter& p) { p.drawEllipse(QRect(-30, -20, 60, 40)); });
        QTest::newRow("level line") << Draw([](QPainter& p) { p.drawLine(-50, 0, 50, 0); });
        QTest::newRow("point") << Draw([](QPainter& p) { p.drawPoint(5, 5); });
        QTest::newRow("wide mitred corner") << Draw([](QPainter& p) {
            p.setPen(QPen(QBrush(Qt::blue), 9.0, Qt::SolidLine, Qt::RoundCap, Qt::MiterJoin));
            p.drawPolyline(QPolygon({QPoint(-60, 0), QPoint(0, 0), QPoint(-40, 40)}));
        });
        QTest::newRow("filled only") << Draw([](QPainter& p) {
            p.setPen(Qt::NoPen);
            p.setBrush(Qt::red);
            p.drawRect(-10, -10, 20, 20);
        });
        QTest::newRow("text at a point") << Draw(
            [](QPainter& p) { p.drawText(QPoint(-40, 5), QStringLiteral("Ägypfj")); });
        QTest::newRow("slanted text") << Draw([](QPainter& p) {
            QFont font = p.font();
            font.setItalic(true);
            p.setFont(font);
            p.drawText(QPoint(-40, 5), QStringLiteral("ffff"));
        });
        QTest::newRow("text wider than its box") << Draw(
            [](QPainter& p) { p.drawText(QRect(-5, -5, 10, 10), Qt::AlignCenter, QStringLiteral("wide text")); });
        QTest::newRow("lines of text") << Draw(
            [](QPainter& p) { p.drawText(QRect(-5, -5, 10, 10), Qt::AlignCenter, QStringLiteral("two\nlines")); });
        QTest::newRow("moved") << Draw([](QPainter& p) {
            p.save();
            p.translate(80, -60);
            p.scale(2.0, 2.0);
            p.drawRect(0, 0, 10, 10);
            p.restore();
        });
        QTest::newRow("image") << Draw([](QPainter& p) {
            QImage image(20, 20, QImage::Format_RGB32);
            image.fill(Qt::green);
            p.drawImage(QPoint(-30, 30), image);
        });
    }

    void coversWhatIsDrawn() {
        QFETCH(std::function<void(QPainter&)>, draw);
        const QRectF touched = touchedBy(draw);
        const QRectF extent = extentOf(draw);
        QVERIFY(!touched.isEmpty());
        QVERIFY(extent.contains(touched));
        QVERIFY(extent.width() < touched.width() + 100.0);
        QVERIFY(extent.height() < touched.height() + 60.0);
    }

    void lineWhoseWidthDoesNotScaleIsUnbounded() {
        const QRectF extent = extentOf([](QPainter& p) {
            p.setPen(QPen(Qt::black, 0));
            p.drawLine(0, 0, 10, 10);
        });
        QCOMPARE(extent, unboundedExtent());
    }

    void fontsAreSizedAsOnTheModel() {
        const QString text = QStringLiteral("some text");
        const auto width = [&](double dotsPerInch) {
            QImage model(1, 1, QImage::Format_RGB32);
            model.setDotsPerMeterX(qRound(dotsPerInch / 0.0254));
            model.setDotsPerMeterY(qRound(dotsPerInch / 0.0254));
            PaintExtent extent(model);
            QPainter painter(&extent);
            painter.setFont(QFont(QStringLiteral("Arial"), 12));
            painter.drawText(QPoint(0, 0), text);
            return extent.bounds().width();
        };
        QVERIFY(width(192) > 1.5 * width(96));
    }
};

QTEST_MAIN(PaintExtentTest)
#include "PaintExtentTest.moc"
