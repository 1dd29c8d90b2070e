// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ProgramUnit.h"
#include "frontends/c/CFrontend.h"

#include <memory>

namespace Kova::Frontends {

/// One run of Clang over one file, and the translation unit that comes of it. Everything that may crash happens in
/// run(), which changes the program's types and source files only; the rest is handed over afterwards.
class ClangSession {
public:
    ClangSession(const COptions& options, std::string path, std::string text, Tessel::ProgramUnit& program);
    ~ClangSession();

    /// Parses without building a tree when false: what the reading costs without ours.
    void setBuildsTree(bool builds) { m_buildsTree = builds; }
    void run();

    [[nodiscard]] bool hadErrors() const { return m_hadErrors; }
    /// Whether the unit holds more than what is left of errors.
    [[nodiscard]] bool foundAny() const { return m_foundAny; }
    [[nodiscard]] std::vector<Tessel::Diagnostic> takeDiagnostics() { return std::move(m_diagnostics); }
    /// Null when Clang could not start.
    [[nodiscard]] std::unique_ptr<Tessel::TranslationUnit> takeUnit() { return std::move(m_unit); }

private:
    void report(Tessel::Diagnostic::Level level, std::string text);

    const COptions& m_options;
    std::string m_path;
    std::string m_text;
    Tessel::ProgramUnit& m_program;
    std::vector<Tessel::Diagnostic> m_diagnostics;
    std::unique_ptr<Tessel::TranslationUnit> m_unit;
    bool m_buildsTree = true;
    bool m_hadErrors = false;
    bool m_foundAny = false;
};

} // namespace Kova::Frontends
