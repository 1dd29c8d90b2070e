// SPDX-License-Identifier: MIT
#include "shell/pictures/Gallery.h"

#include "environment/tessel/LoopStatement.h"
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "shell/pictures/OutputFile.h"
#include "shell/pictures/Picture.h"
#include "shell/program/OpenedProgram.h"
#include "shell/program/ProgramOutline.h"
#include "shell/views/ViewTable.h"
#include "visualization/graphcore/GraphWidgetBase.h"

#include <QDir>

namespace Kova::Shell {

namespace {

QString fileNameFor(const Subject& subject) {
    const Tessel::SubroutineDeclaration* subroutine = subject.getSubroutine();
    if (subroutine == nullptr)
        return "program";
    const QString name = QString::fromStdString(subroutine->getName());
    return subject.getStatement() == nullptr ? name : QString("%1-line-%2").arg(name).arg(subject.getLine());
}

QString captionFor(const Subject& subject, const View& view) {
    QString summary = view.summarize();
    if (subject.getProgram() != nullptr)
        return summary;
    return QString("%1:%2, %3").arg(subject.getFile()).arg(subject.getLine()).arg(summary);
}

} // namespace

Gallery::Gallery(const OpenedProgram& program, QString directory)
    : m_program(program),
      m_directory(std::move(directory)) {}

QStringList Gallery::write() {
    if (!QDir().mkpath(m_directory))
        return {QString("cannot make the directory '%1'").arg(m_directory)};
    for (const ViewKind& kind : getViewKinds())
        writeView(kind);
    writePage();
    return m_failures;
}

std::vector<Subject> Gallery::collectSubjects() const {
    std::vector<Subject> subjects = {Subject(m_program.getUnit())};
    const ProgramOutline outline(m_program);
    for (const OutlineFile& file : outline.getFiles())
        for (const OutlineSubroutine& subroutine : file.subroutines) {
            subjects.emplace_back(*subroutine.subroutine);
            for (const OutlineLoop& loop : subroutine.loops)
                subjects.emplace_back(*loop.loop);
        }
    return subjects;
}

void Gallery::writeView(const ViewKind& kind) {
    const std::unique_ptr<View> view = kind.create();
    for (const Subject& subject : collectSubjects())
        if (kind.takes(subject) && kind.isWorthExporting(subject))
            writePicture(kind, *view, subject);
}

void Gallery::writePicture(const ViewKind& kind, View& view, const Subject& subject) {
    view.show(subject);
    if (!view.getWidget().isBuilded())
        return;
    const QString name = m_names.obtain(kind.name + "-" + fileNameFor(subject));
    const QString png = fitsImage(view.getWidget()) ? writeFormat(view, name + ".png") : QString();
    const QString svg = writeFormat(view, name + ".svg");
    if (!png.isEmpty() || !svg.isEmpty())
        m_entries.push_back({kind.title, subject.getTitle(), captionFor(subject, view), png, svg});
}

QString Gallery::writeFormat(const View& view, const QString& name) {
    const QString error = exportPicture(view.getWidget(), QDir(m_directory).filePath(name));
    if (error.isEmpty())
        return name;
    m_failures.append(error);
    return {};
}

void Gallery::writePage() {
    QStringList sources;
    for (const OpenedFile& file : m_program.getFiles())
        if (file.state != OpenedFile::State::Unreadable)
            sources.append(file.path);
    const QString path = QDir(m_directory).filePath("index.html");
    const QString reason = writeFile(path, renderGalleryPage(sources, m_entries));
    if (!reason.isEmpty())
        m_failures.append(QString("cannot write '%1': %2").arg(path, reason));
}

} // namespace Kova::Shell
