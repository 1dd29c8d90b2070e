// SPDX-License-Identifier: MIT
#include "shell/pictures/Picture.h"

#include "shell/pictures/OutputFile.h"
#include "visualization/graphcore/GraphWidgetBase.h"

#include <QBuffer>
#include <QImageWriter>
#include <QRegularExpression>

namespace Kova::Shell {

namespace {

/// The rasterizer draws nothing beyond this coordinate.
constexpr int mostPixelsPerSide = 32767;

/// Qt gives a size in millimetres, which programs turn into different numbers of pixels: a unit shall be a pixel.
QByteArray withSizeInPixels(const QByteArray& svg, const QSize& size) {
    static const QRegularExpression millimetres(R"(<svg width="[^"]*mm" height="[^"]*mm")");
    const QRegularExpressionMatch match = millimetres.match(QString::fromUtf8(svg.left(1000)));
    const QByteArray found = match.captured().toUtf8();
    const int place = found.isEmpty() ? -1 : svg.indexOf(found);
    if (place < 0)
        return svg;
    // White as an image, also where a program shows pictures on a dark page.
    const QString pixels =
        QString(R"(<svg width="%1" height="%2" style="background:white")").arg(size.width()).arg(size.height());
    return svg.left(place) + pixels.toUtf8() + svg.mid(place + found.size());
}

EncodedPicture encodeSvg(GUI::GraphWidgetBase& widget) {
    QBuffer buffer;
    if (!widget.renderSvg(buffer))
        return {{}, "the picture cannot be drawn as SVG"};
    return {withSizeInPixels(buffer.data(), widget.getGraphSize()), {}};
}

EncodedPicture encodeImage(GUI::GraphWidgetBase& widget, const char* format) {
    const QSize size = widget.getGraphSize();
    const QString measure = QString("%1 x %2 pixels").arg(size.width()).arg(size.height());
    if (!fitsImage(widget))
        return {{},
                QString("%1 are too many for an image, which has at most %2 a side: use SVG")
                    .arg(measure)
                    .arg(mostPixelsPerSide)};
    const QImage image = widget.renderImage();
    if (image.isNull())
        return {{}, "there is no memory for an image of " + measure};
    QBuffer buffer;
    QImageWriter writer(&buffer, format);
    if (!buffer.open(QIODevice::WriteOnly) || !writer.write(image))
        return {{}, writer.errorString()};
    return {buffer.data(), {}};
}

} // namespace

bool fitsImage(const GUI::GraphWidgetBase& widget) {
    const QSize size = widget.getGraphSize();
    return size.width() <= mostPixelsPerSide && size.height() <= mostPixelsPerSide;
}

EncodedPicture encodePicture(GUI::GraphWidgetBase& widget, PictureFormat format) {
    if (!widget.isBuilded())
        return {{}, "there is nothing to draw"};
    switch (format) {
    case PictureFormat::Svg:
        return encodeSvg(widget);
    case PictureFormat::Xpm:
        return encodeImage(widget, "xpm");
    case PictureFormat::Png:
        break;
    }
    return encodeImage(widget, "png");
}

QString exportPicture(GUI::GraphWidgetBase& widget, const QString& path) {
    const std::optional<PictureFormat> format = pictureFormatOf(path);
    if (!format)
        return QString("cannot write '%1': its suffix is none of %2").arg(path, pictureSuffixes());
    const EncodedPicture picture = encodePicture(widget, *format);
    const QString reason = picture.error.isEmpty() ? writeFile(path, picture.data) : picture.error;
    return reason.isEmpty() ? QString() : QString("cannot write '%1': %2").arg(path, reason);
}

} // namespace Kova::Shell
