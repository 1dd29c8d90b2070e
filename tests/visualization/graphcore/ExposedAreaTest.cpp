// SPDX-License-Identifier: MIT
#include "visualization/graphcore/ExposedArea.h"

#include <QImage>
#include <QPainter>
#include <QtTest>

using namespace Kova::GUI;

class ExposedAreaTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void withoutAClipEverythingIsDrawn() {
        QImage image(100, 100, QImage::Format_RGB32);
        const QPainter painter(&image);
        QVERIFY(!exposedArea(painter).has_value());
    }

    void clipIsGivenInThePaintersCoordinates() {
        QImage image(100, 100, QImage::Format_RGB32);
        QPainter painter(&image);
        painter.setClipRect(QRect(20, 30, 40, 10));
        painter.translate(-200, -300);
        painter.scale(2.0, 2.0);
        // 3 pixels of room on each side.
        QCOMPARE(exposedArea(painter).value(), QRectF((200 + 17) / 2.0, (300 + 27) / 2.0, 46 / 2.0, 16 / 2.0));
    }

    void transformsWithoutAnInverseDrawEverything() {
        QImage image(100, 100, QImage::Format_RGB32);
        QPainter painter(&image);
        painter.setClipRect(QRect(20, 30, 40, 10));
        painter.scale(0.0, 1.0);
        QVERIFY(!exposedArea(painter).has_value());
    }
};

QTEST_MAIN(ExposedAreaTest)
#include "ExposedAreaTest.moc"
