// SPDX-License-Identifier: MIT
#include "GraphProbe.h"
#include "tests/visualization/graphcore/Pixels.h"
#include "visualization/graphcore/GraphWidgetBase.h"

#include <QApplication>
#include <QBuffer>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTimer>
#include <QXmlStreamReader>
#include <QtTest>

#include <functional>

using namespace Kova::GUI;

namespace {

using Pixels::red;
using Pixels::white;

struct Asked {
    bool shown = false;
    QString title;
    QStringList filters;
};

/// Runs the action and answers the file dialog that it opens; an empty name cancels.
Asked answerDialog(const std::function<void()>& action, const QString& fileName) {
    Asked asked;
    int attempts = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        asked = {true, dialog->windowTitle(), dialog->nameFilters()};
        // Typed as a whole path: selecting a file waits for the folder, which is read in the background.
        if (fileName.isEmpty() || ++attempts > 100) {
            dialog->reject();
            return;
        }
        dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(fileName);
        static_cast<QDialog*>(dialog)->accept();
    });
    timer.start(20);
    action();
    return asked;
}

} // namespace

class GraphWidgetBaseExportTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_directory;
    [[nodiscard]] QString path(const char* name) const { return m_directory.filePath(QString::fromLatin1(name)); }

private Q_SLOTS:
    void imageIsTheGraphAtScaleOneWithoutLegend() {
        GraphProbe probe;
        probe.setGraphSize(120, 70);
        probe.setScale(3.0);
        probe.scrollTo(50, 50);
        probe.log.clear();
        probe.save(path("a.png"));
        QCOMPARE(probe.log, QStringList(QStringLiteral("graph")));
        QCOMPARE(probe.transform, QTransform());
        QVERIFY(!probe.clipped);
        QVERIFY(probe.hints.testFlag(QPainter::Antialiasing));
        QVERIFY(probe.hints.testFlag(QPainter::TextAntialiasing));
        const QImage image(path("a.png"));
        QCOMPARE(image.size(), QSize(120, 70));
        QCOMPARE(image.pixel(9, 10), white);
        QCOMPARE(image.pixel(10, 10), red);
        QCOMPARE(image.pixel(14, 14), red);
        QCOMPARE(image.pixel(15, 15), white);
        QCOMPARE(image.pixel(32, 32), white);
    }

    void formatFollowsTheSuffix() {
        GraphProbe probe;
        probe.setGraphSize(120, 70);
        probe.save(path("a.xpm"));
        QFile file(path("a.xpm"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readLine().startsWith("/* XPM */"));
        QCOMPARE(QImage(path("a.xpm")).pixel(12, 12), red);
    }

    void nothingToExportWritesNothing() {
        GraphProbe probe;
        QBuffer buffer;
        QVERIFY(buffer.open(QIODevice::WriteOnly));
        const auto writesNothing = [&] {
            probe.log.clear();
            const Asked asked = answerDialog(
                [&] {
                    probe.save(path("none.png"));
                    probe.save();
                    probe.saveSvg(path("none.svg"));
                    probe.saveSvg();
                },
                QString());
            return !asked.shown && !QFile::exists(path("none.png")) && !QFile::exists(path("none.svg")) &&
                   probe.renderImage().isNull() && !probe.renderSvg(buffer) && buffer.data().isEmpty() &&
                   probe.log.isEmpty();
        };
        QVERIFY(writesNothing());
        for (const QSize& size : {QSize(0, 0), QSize(10, 0), QSize(0, 10), QSize(-1, 10)}) {
            probe.setGraphSize(size);
            QVERIFY(writesNothing());
        }
        probe.setGraphSize(100, 100);
        probe.built = false;
        QVERIFY(writesNothing());
    }

    void enormousImageIsSkipped() {
        GraphProbe probe;
        probe.setGraphSize(2000000000, 2000000000);
        probe.log.clear();
        QVERIFY(probe.renderImage().isNull());
        probe.save(path("large.png"));
        QVERIFY(!QFile::exists(path("large.png")));
        QVERIFY(probe.log.isEmpty());
    }

    void failuresAreSilent() {
        GraphProbe probe;
        probe.setGraphSize(100, 100);
        probe.save(path("missing/a.png"));
        probe.save(path("a.unknown"));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("QSvgPaintEngine::begin")));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("QPainter::begin")));
        probe.saveSvg(path("missing/a.svg"));
        QVERIFY(!QFile::exists(path("missing")));
        QVERIFY(!QFile::exists(path("a.unknown")));
    }

    void renderedImageIsWhatIsSaved() {
        GraphProbe probe;
        probe.setGraphSize(120, 70);
        const QImage image = probe.renderImage();
        QCOMPARE(image.format(), QImage::Format_RGB32);
        probe.save(path("same.png"));
        QCOMPARE(QImage(path("same.png")).convertToFormat(QImage::Format_RGB32), image);
    }

    void svgHasSizeTitleAndGraph() {
        GraphProbe probe;
        probe.setGraphSize(144, 72);
        probe.setScale(2.0);
        probe.log.clear();
        probe.saveSvg(path("a.svg"));
        QCOMPARE(probe.log, QStringList(QStringLiteral("graph")));
        QCOMPARE(probe.transform, QTransform());
        QVERIFY(!probe.clipped);
        QVERIFY(!probe.hints.testFlag(QPainter::Antialiasing));
        QFile file(path("a.svg"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QXmlStreamReader reader(&file);
        QString title;
        QString width;
        QString height;
        QString viewBox;
        bool red = false;
        while (!reader.atEnd()) {
            if (reader.readNext() != QXmlStreamReader::StartElement)
                continue;
            red = red || reader.attributes().value(QLatin1String("fill")) == QLatin1String("#ff0000");
            if (reader.name() == QLatin1String("svg")) {
                width = reader.attributes().value(QLatin1String("width")).toString();
                height = reader.attributes().value(QLatin1String("height")).toString();
                viewBox = reader.attributes().value(QLatin1String("viewBox")).toString();
            } else if (reader.name() == QLatin1String("title")) {
                title = reader.readElementText();
            }
        }
        QVERIFY(!reader.hasError());
        QCOMPARE(title, QStringLiteral("Graph Visualization"));
        const double millimetres = 25.4 / probe.logicalDpiY();
        QCOMPARE(width, QStringLiteral("%1mm").arg(144 * millimetres));
        QCOMPARE(height, QStringLiteral("%1mm").arg(72 * millimetres));
        QCOMPARE(viewBox, QStringLiteral("0 0 144 72"));
        QVERIFY(red);
    }

    void svgTextIsWhatIsSaved() {
        GraphProbe probe;
        probe.setGraphSize(144, 72);
        QBuffer buffer;
        QVERIFY(buffer.open(QIODevice::WriteOnly));
        QVERIFY(probe.renderSvg(buffer));
        probe.saveSvg(path("same.svg"));
        QFile file(path("same.svg"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(buffer.data(), file.readAll());
    }

    void actionsAskForAName() {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        GraphProbe probe;
        probe.setGraphSize(120, 70);
        probe.imageAction()->setEnabled(true);
        probe.svgAction()->setEnabled(true);
        const Asked image = answerDialog([&] { probe.imageAction()->trigger(); }, path("asked.png"));
        QVERIFY(image.shown);
        QCOMPARE(image.title, QStringLiteral("Save As"));
        QCOMPARE(image.filters, QStringList(QStringLiteral("Images (*.png *.xpm)")));
        QCOMPARE(QImage(path("asked.png")).size(), QSize(120, 70));
        const Asked svg = answerDialog([&] { probe.svgAction()->trigger(); }, path("asked.svg"));
        QVERIFY(svg.shown);
        QCOMPARE(svg.title, QStringLiteral("Save As"));
        QCOMPARE(svg.filters, QStringList(QStringLiteral("SVG files (*.svg)")));
        QVERIFY(QFile::exists(path("asked.svg")));
    }

    void cancelledDialogDoesNothing() {
        GraphProbe probe;
        probe.setGraphSize(120, 70);
        QVERIFY(answerDialog([&] { probe.save(); }, QString()).shown);
        QVERIFY(answerDialog([&] { probe.saveSvg(); }, QString()).shown);
        QCOMPARE(probe.exports, 0);
    }
};

QTEST_MAIN(GraphWidgetBaseExportTest)
#include "GraphWidgetBaseExportTest.moc"
