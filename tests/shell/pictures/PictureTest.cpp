// SPDX-License-Identifier: MIT
#include "shell/pictures/Picture.h"

#include "tests/shell/ShellTesting.h"
#include "visualization/graphcore/GraphWidgetBase.h"

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QtTest>

namespace Kova::Shell {

namespace {

/// A picture that is known in advance: a red box on whatever ground.
class BoxWidget : public GUI::GraphWidgetBase {
public:
    explicit BoxWidget(const QSize& size) {
        setGraphSize(size);
        setScale(2.0); // must not matter
    }
    void drawGraph(QPainter& painter) override { painter.fillRect(box(), Qt::red); }
    [[nodiscard]] bool isBuilded() const override { return m_built; }
    void clear() override {
        m_built = false;
        GraphWidgetBase::clear();
    }
    [[nodiscard]] static QRect box() { return {20, 30, 40, 10}; }

private:
    bool m_built = true;
};

/// Pixels whose colour is not the box's inside it or white outside it.
int wrongPixels(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QRgb expected = BoxWidget::box().contains(x, y) ? qRgb(255, 0, 0) : qRgb(255, 255, 255);
            count += (image.pixel(x, y) | 0xff000000) != expected;
        }
    return count;
}

QImage renderSvg(const QByteArray& data) {
    QSvgRenderer renderer(data);
    QImage image(renderer.defaultSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

} // namespace

class PictureTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void imagesHaveTheGraphsSize_data();
    void imagesHaveTheGraphsSize();
    void svgShowsTheSame();
    void anEmptyViewGivesNoFile();
    void tooManyPixelsAreRefused();
    void unknownSuffix();
    void unwritablePlace();
};

void PictureTest::imagesHaveTheGraphsSize_data() {
    QTest::addColumn<QString>("name");
    QTest::newRow("png") << "a.png";
    QTest::newRow("xpm") << "a.XPM";
}

void PictureTest::imagesHaveTheGraphsSize() {
    QFETCH(QString, name);
    const Testing::SourceFolder folder;
    BoxWidget widget(QSize(100, 60));
    QCOMPARE(exportPicture(widget, folder.path(name)), QString());
    const QImage image(folder.path(name));
    QCOMPARE(image.size(), QSize(100, 60));
    QCOMPARE(wrongPixels(image), 0);
}

void PictureTest::svgShowsTheSame() {
    const Testing::SourceFolder folder;
    BoxWidget widget(QSize(100, 60));
    QCOMPARE(exportPicture(widget, folder.path("a.svg")), QString());
    const QImage image = renderSvg(Testing::contentOf(folder.path("a.svg")));
    QCOMPARE(image.size(), QSize(100, 60));
    QCOMPARE(wrongPixels(image), 0);
}

void PictureTest::anEmptyViewGivesNoFile() {
    const Testing::SourceFolder folder;
    BoxWidget widget(QSize(100, 60));
    widget.clear();
    QVERIFY(exportPicture(widget, folder.path("a.png")).contains("nothing to draw"));
    QVERIFY(!QFile::exists(folder.path("a.png")));
}

void PictureTest::tooManyPixelsAreRefused() {
    const Testing::SourceFolder folder;
    BoxWidget widget(QSize(40000, 10));
    const QString error = exportPicture(widget, folder.path("a.png"));
    QVERIFY2(error.contains("40000 x 10"), qPrintable(error));
    QVERIFY(!QFile::exists(folder.path("a.png")));
    QCOMPARE(exportPicture(widget, folder.path("a.svg")), QString());
    QVERIFY(!fitsImage(widget));
    QVERIFY(!fitsImage(BoxWidget(QSize(10, 32768))));
    QVERIFY(fitsImage(BoxWidget(QSize(32767, 32767))));
}

void PictureTest::unknownSuffix() {
    BoxWidget widget(QSize(100, 60));
    QVERIFY(exportPicture(widget, "/tmp/a.gif").contains(".png .xpm .svg"));
}

void PictureTest::unwritablePlace() {
    BoxWidget widget(QSize(100, 60));
    QVERIFY(exportPicture(widget, "/dev/full").contains("No space left on device"));
    QVERIFY(exportPicture(widget, "/nowhere/a.png").startsWith("cannot write '/nowhere/a.png': "));
}

} // namespace Kova::Shell

QTEST_MAIN(Kova::Shell::PictureTest)
#include "PictureTest.moc"
