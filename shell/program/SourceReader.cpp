// SPDX-License-Identifier: MIT
#include "shell/program/SourceReader.h"

#include "environment/tessel/ProgramUnit.h"
#include "shell/program/FileLanguage.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <exception>

namespace Kova::Shell {

namespace {

OpenedFile::State stateOf(Frontends::CFrontend::Result result) {
    switch (result) {
    case Frontends::CFrontend::Result::Complete:
        return OpenedFile::State::Complete;
    case Frontends::CFrontend::Result::Partial:
        return OpenedFile::State::Partial;
    case Frontends::CFrontend::Result::Unreadable:
        break;
    }
    return OpenedFile::State::Unreadable;
}

OpenedFile::State refuse(const QString& path, const std::string& reason, Tessel::ProgramUnit& program) {
    Tessel::Diagnostic diagnostic;
    diagnostic.file = path.toStdString();
    diagnostic.text = reason;
    program.appendDiagnostic(std::move(diagnostic));
    return OpenedFile::State::Unreadable;
}

/// The same for all paths of one file; the path itself for a file that is not there.
QString identityOf(const QString& path) {
    const QString canonical = QFileInfo(path).canonicalFilePath();
    return canonical.isEmpty() ? path : canonical;
}

} // namespace

QString SourceReader::checkOptions() const {
    return QString::fromStdString(Frontends::CFrontend(m_options).checkOptions());
}

OpenedProgram SourceReader::read(const QStringList& paths) const {
    OpenedProgram program;
    QSet<QString> seen;
    for (const QString& path : paths) {
        const QString identity = identityOf(path);
        if (seen.contains(identity))
            continue;
        seen.insert(identity);
        program.appendFile({path, readFile(path, program.getUnit())});
    }
    return program;
}

OpenedFile::State SourceReader::readFile(const QString& path, Tessel::ProgramUnit& program) const {
    if (languageOf(path) == Tessel::LANG_FORTRAN)
        return refuse(path, "cannot be read: only C files can", program);
    try {
        return stateOf(Frontends::CFrontend(m_options).read(QFile::encodeName(path).toStdString(), program));
    } catch (const std::exception& exception) {
        return refuse(path, std::string("cannot be read: ") + exception.what(), program);
    }
}

} // namespace Kova::Shell
