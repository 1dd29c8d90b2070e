// SPDX-License-Identifier: MIT
#include "shell/program/ProgramSession.h"

#include "environment/tessel/ProgramUnit.h"

namespace Kova::Shell {

namespace {

/// True when all files of these paths are unreadable. A path of a file that was read under another name is not there
/// and says nothing.
bool leavesNothingOf(const OpenedProgram& program, const QStringList& paths) {
    int count = 0;
    for (const OpenedFile& file : program.getFiles()) {
        if (!paths.contains(file.path))
            continue;
        if (file.state != OpenedFile::State::Unreadable)
            return false;
        ++count;
    }
    return count > 0;
}

} // namespace

ProgramSession::ProgramSession(Frontends::COptions options, QObject* parent)
    : QObject(parent),
      m_reader(std::move(options)) {}

QStringList ProgramSession::getPaths() const {
    QStringList paths;
    for (const OpenedFile& file : m_program.getFiles())
        paths.append(file.path);
    return paths;
}

bool ProgramSession::open(const QStringList& paths) {
    return replace(paths, paths);
}

bool ProgramSession::add(const QStringList& paths) {
    return replace(getPaths() + paths, paths);
}

bool ProgramSession::reload() {
    return replace(getPaths(), getPaths());
}

bool ProgramSession::replace(const QStringList& paths, const QStringList& needed) {
    OpenedProgram program = m_reader.read(paths);
    Q_EMIT fileRead(program);
    if (program.isEmpty() || leavesNothingOf(program, needed))
        return false;
    Q_EMIT programAboutToChange();
    m_program = std::move(program);
    Q_EMIT programChanged();
    return true;
}

} // namespace Kova::Shell
