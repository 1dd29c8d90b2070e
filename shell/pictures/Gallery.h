// SPDX-License-Identifier: MIT
#pragma once

#include "shell/pictures/FileNames.h"
#include "shell/pictures/GalleryPage.h"
#include "shell/views/ViewKind.h"

#include <QStringList>

namespace Kova::Shell {

class OpenedProgram;

/// Writes the pictures of everything that is worth one, as PNG and SVG, with a page index.html that shows them. What is
/// too large for an image of pixels is there as SVG only.
class Gallery {
public:
    /// @param directory is made when missing.
    Gallery(const OpenedProgram& program, QString directory);

    /// Writes as much as can be written; files of the same names are replaced.
    /// @return what could not be, a line each; empty when all is done.
    [[nodiscard]] QStringList write();

    /// How many subjects have a picture after write().
    [[nodiscard]] std::size_t getPictureCount() const { return m_entries.size(); }

private:
    [[nodiscard]] std::vector<Subject> collectSubjects() const;
    void writeView(const ViewKind& kind);
    void writePicture(const ViewKind& kind, View& view, const Subject& subject);
    [[nodiscard]] QString writeFormat(const View& view, const QString& name);
    void writePage();

    const OpenedProgram& m_program;
    QString m_directory;
    FileNames m_names;
    std::vector<GalleryEntry> m_entries;
    QStringList m_failures;
};

} // namespace Kova::Shell
