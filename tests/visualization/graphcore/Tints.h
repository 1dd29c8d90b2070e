// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>
#include <QPoint>

#include <algorithm>
#include <cstdlib>

/// Thin lines that were smoothed.
namespace Tints {

/// Whether a pixel is the colour on white, as strong as at least a third.
inline bool isTintOf(const QColor& pixel, const QColor& colour) {
    const int white = 255;
    const int strongest = std::min({colour.red(), colour.green(), colour.blue()});
    const int darkest = std::min({pixel.red(), pixel.green(), pixel.blue()});
    const double strength = double(white - darkest) / (white - strongest);
    const auto fits = [&](int channel, int pure) {
        return std::abs(channel - (white - strength * (white - pure))) < 4.0;
    };
    return strength > 1.0 / 3.0 && fits(pixel.red(), colour.red()) && fits(pixel.green(), colour.green()) &&
           fits(pixel.blue(), colour.blue());
}

/// How many pixels not farther than a distance, in either direction, are tints of a colour.
inline int countNear(const QImage& image, const QPoint& point, const QColor& colour, int distance) {
    int count = 0;
    for (int y = point.y() - distance; y <= point.y() + distance; ++y) {
        for (int x = point.x() - distance; x <= point.x() + distance; ++x) {
            if (image.rect().contains(x, y) && isTintOf(image.pixelColor(x, y), colour))
                ++count;
        }
    }
    return count;
}

inline int countAll(const QImage& image, const QColor& colour) {
    return countNear(image, image.rect().center(), colour, std::max(image.width(), image.height()));
}

} // namespace Tints
