// SPDX-License-Identifier: MIT
#include "shell/program/ProgramListing.h"

#include "environment/tessel/ProgramUnit.h"
#include "shell/program/OpenedProgram.h"
#include "shell/program/ProgramOutline.h"

#include <QJsonArray>
#include <QSet>

namespace Kova::Shell {

namespace {

QString nameOf(OpenedFile::State state) {
    switch (state) {
    case OpenedFile::State::Complete:
        return "complete";
    case OpenedFile::State::Partial:
        return "partial";
    case OpenedFile::State::Unreadable:
        break;
    }
    return "unreadable";
}

int number(std::uint32_t value) {
    return static_cast<int>(value);
}

QString languageOf(const ProgramOutline& outline, const QString& path) {
    for (const OutlineFile& file : outline.getFiles())
        if (file.path == path)
            return file.language;
    return {};
}

// An unreadable file has no language: nobody knows what it is.
QJsonArray listFiles(const OpenedProgram& program, const ProgramOutline& outline) {
    QJsonArray files;
    QSet<QString> named;
    for (const OpenedFile& file : program.getFiles()) {
        named.insert(file.path);
        const QString language = languageOf(outline, file.path);
        files.append(QJsonObject{{"path", file.path},
                                 {"language", language.isEmpty() ? QJsonValue() : QJsonValue(language)},
                                 {"read", nameOf(file.state)}});
    }
    for (const OutlineFile& file : outline.getFiles())
        if (!named.contains(file.path))
            files.append(QJsonObject{{"path", file.path}, {"language", file.language}, {"read", "included"}});
    return files;
}

QJsonArray listLoops(const OutlineSubroutine& subroutine) {
    QJsonArray loops;
    for (const OutlineLoop& loop : subroutine.loops)
        loops.append(QJsonObject{{"kind", loop.kind},
                                 {"firstLine", number(loop.firstLine)},
                                 {"lastLine", number(loop.lastLine)},
                                 {"depth", loop.depth}});
    return loops;
}

QJsonArray listSubroutines(const ProgramOutline& outline) {
    QJsonArray subroutines;
    for (const OutlineFile& file : outline.getFiles())
        for (const OutlineSubroutine& subroutine : file.subroutines)
            subroutines.append(QJsonObject{{"name", subroutine.name},
                                           {"file", file.path},
                                           {"firstLine", number(subroutine.firstLine)},
                                           {"lastLine", number(subroutine.lastLine)},
                                           {"loops", listLoops(subroutine)}});
    return subroutines;
}

QJsonArray listDiagnostics(const Tessel::ProgramUnit& unit) {
    QJsonArray diagnostics;
    for (const Tessel::Diagnostic& diagnostic : unit.getDiagnostics())
        diagnostics.append(QJsonObject{{"file", QString::fromStdString(diagnostic.file)},
                                       {"line", number(diagnostic.line)},
                                       {"column", number(diagnostic.column)},
                                       {"level", toString(diagnostic.level)},
                                       {"text", QString::fromStdString(diagnostic.text)}});
    return diagnostics;
}

} // namespace

QJsonObject listProgram(const OpenedProgram& program) {
    const ProgramOutline outline(program);
    return {{"files", listFiles(program, outline)},
            {"subroutines", listSubroutines(outline)},
            {"diagnostics", listDiagnostics(program.getUnit())}};
}

} // namespace Kova::Shell
