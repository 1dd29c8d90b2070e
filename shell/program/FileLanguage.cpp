// SPDX-License-Identifier: MIT
#include "shell/program/FileLanguage.h"

#include <QFileInfo>
#include <QStringList>

namespace Kova::Shell {

Tessel::SourceLanguage languageOf(const QString& path) {
    static const QStringList fortranSuffixes = {"f", "for", "ftn", "f77", "f90", "f95", "f03", "f08"};
    return fortranSuffixes.contains(QFileInfo(path).suffix().toLower()) ? Tessel::LANG_FORTRAN : Tessel::LANG_C;
}

} // namespace Kova::Shell
