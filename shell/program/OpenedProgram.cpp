// SPDX-License-Identifier: MIT
#include "shell/program/OpenedProgram.h"

#include "environment/tessel/ProgramUnit.h"

#include <algorithm>

namespace Kova::Shell {

OpenedProgram::OpenedProgram() : m_unit(std::make_unique<Tessel::ProgramUnit>()) {}

OpenedProgram::~OpenedProgram() = default;
OpenedProgram::OpenedProgram(OpenedProgram&& other) noexcept = default;
OpenedProgram& OpenedProgram::operator=(OpenedProgram&& other) noexcept = default;

bool OpenedProgram::isEmpty() const {
    return std::all_of(m_files.begin(), m_files.end(),
                       [](const OpenedFile& file) { return file.state == OpenedFile::State::Unreadable; });
}

bool OpenedProgram::hasUnreadableFile() const {
    return std::any_of(m_files.begin(), m_files.end(),
                       [](const OpenedFile& file) { return file.state == OpenedFile::State::Unreadable; });
}

std::vector<std::string> OpenedProgram::getDiagnosticTexts() const {
    std::vector<std::string> texts;
    for (const Tessel::Diagnostic& diagnostic : m_unit->getDiagnostics())
        texts.push_back(Tessel::toString(diagnostic));
    return texts;
}

} // namespace Kova::Shell
