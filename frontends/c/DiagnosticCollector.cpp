// SPDX-License-Identifier: MIT
#include "frontends/c/AttributeTexts_p.h"
#include "frontends/c/DiagnosticCollector_p.h"

#include <clang/Basic/SourceManager.h>
#include <llvm/ADT/SmallString.h>

namespace Kova::Frontends {

namespace {

using Tessel::Diagnostic;

Diagnostic::Level levelOf(clang::DiagnosticsEngine::Level level) {
    switch (level) {
    case clang::DiagnosticsEngine::Note:
        return Diagnostic::Level::Note;
    case clang::DiagnosticsEngine::Warning:
        return Diagnostic::Level::Warning;
    default:
        return Diagnostic::Level::Error;
    }
}

void locate(const clang::Diagnostic& info, Diagnostic& diagnostic) {
    if (!info.hasSourceManager() || info.getLocation().isInvalid())
        return;
    const clang::SourceManager& sources = info.getSourceManager();
    const auto [file, offset] = sources.getDecomposedLoc(sources.getFileLoc(info.getLocation()));
    const clang::OptionalFileEntryRef entry = sources.getFileEntryRefForID(file);
    if (!entry)
        return;
    diagnostic.file = entry->getName().str();
    diagnostic.line = sources.getLineNumber(file, offset);
    diagnostic.column = sources.getColumnNumber(file, offset);
}

} // namespace

void DiagnosticCollector::HandleDiagnostic(clang::DiagnosticsEngine::Level level, const clang::Diagnostic& info) {
    llvm::SmallString<128> text;
    info.FormatDiagnostic(text);
    if (AttributeTexts::isAboutNumber(text.str().str()))
        return;
    clang::DiagnosticConsumer::HandleDiagnostic(level, info);
    if (level < clang::DiagnosticsEngine::Note || level == clang::DiagnosticsEngine::Remark)
        return;
    Diagnostic diagnostic;
    diagnostic.level = levelOf(level);
    diagnostic.file = m_path;
    diagnostic.text = text.str().str();
    locate(info, diagnostic);
    m_diagnostics.push_back(std::move(diagnostic));
}

} // namespace Kova::Frontends
