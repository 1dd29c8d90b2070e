// SPDX-License-Identifier: MIT
#include "shell/pictures/PictureFormat.h"

#include "shell/pictures/OutputFile.h"

#include <QFileInfo>

namespace Kova::Shell {

std::optional<PictureFormat> pictureFormatOf(const QString& path) {
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == "png")
        return PictureFormat::Png;
    if (suffix == "xpm")
        return PictureFormat::Xpm;
    if (suffix == "svg")
        return PictureFormat::Svg;
    if (suffix.isEmpty() && isDevice(path))
        return PictureFormat::Png;
    return std::nullopt;
}

QString pictureSuffixes() {
    return ".png .xpm .svg";
}

} // namespace Kova::Shell
