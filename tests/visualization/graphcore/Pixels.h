// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPainter>

/// Pictures that tests paint and look into.
namespace Pixels {

constexpr QRgb white = 0xffffffff;
constexpr QRgb black = 0xff000000;
constexpr QRgb red = 0xffff0000;
constexpr QRgb blue = 0xff0000ff;

inline QImage blank(const QSize& size) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    return image;
}

/// What `draw(painter)` leaves on white.
template <class Draw>
QImage painted(const QSize& size, Draw draw) {
    QImage image = blank(size);
    QPainter painter(&image);
    draw(painter);
    return image;
}

/// How many pixels are of a colour.
inline int count(const QImage& image, QRgb colour) {
    int found = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            found += image.pixel(x, y) == colour ? 1 : 0;
    }
    return found;
}

} // namespace Pixels
