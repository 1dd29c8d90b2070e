// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

namespace Kova::Shell {

/// One subject's picture in a gallery; file names are relative to the page. A format that could not be written has an
/// empty name.
struct GalleryEntry {
    QString view;
    QString subject;
    QString summary;
    QString png;
    QString svg;
};

/// A page in HTML that shows the pictures as thumbnails, grouped by view in the order given, each leading to its files.
/// Texts are escaped. @param sources what was read, named in the heading.
[[nodiscard]] QByteArray renderGalleryPage(const QStringList& sources, const std::vector<GalleryEntry>& entries);

} // namespace Kova::Shell
