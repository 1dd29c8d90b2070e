// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace Kova::Shell {

enum class PictureFormat { Png, Xpm, Svg };

/// The format that a file name's suffix asks for, in whatever case; none for any other suffix. A device or pipe without
/// a suffix gets PNG.
[[nodiscard]] std::optional<PictureFormat> pictureFormatOf(const QString& path);

/// ".png .xpm .svg", for messages.
[[nodiscard]] QString pictureSuffixes();

} // namespace Kova::Shell
