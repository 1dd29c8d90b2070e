// SPDX-License-Identifier: MIT
#pragma once

#include "shell/pictures/PictureFormat.h"

#include <QByteArray>
#include <QString>

namespace Kova::GUI {
class GraphWidgetBase;
}

namespace Kova::Shell {

/// A picture in a file's format, or why there is none.
struct EncodedPicture {
    QByteArray data;
    QString error;
};

/// Whether the widget's graph at scale 1 is small enough for an image of pixels; SVG has no limit.
[[nodiscard]] bool fitsImage(const GUI::GraphWidgetBase& widget);

/// The widget's graph at scale 1, without its legend.
[[nodiscard]] EncodedPicture encodePicture(GUI::GraphWidgetBase& widget, PictureFormat format);

/// Encodes and writes the picture, all of it or nothing.
/// @return empty when done, otherwise what went wrong with the path, for people.
[[nodiscard]] QString exportPicture(GUI::GraphWidgetBase& widget, const QString& path);

} // namespace Kova::Shell
