// SPDX-License-Identifier: MIT
#include "environment/tessel/ProgramUnit.h"
#include "frontends/c/SourcePlaces_p.h"

#include <clang/AST/ASTContext.h>
#include <clang/Basic/SourceManager.h>
#include <clang/Lex/Lexer.h>

namespace Kova::Frontends {

SourcePlaces::SourcePlaces(const clang::ASTContext& context, Tessel::ProgramUnit& program)
    : m_context(context),
      m_sources(context.getSourceManager()),
      m_program(program) {}

SourcePlaces::File& SourcePlaces::fileOf(clang::FileID id) {
    std::unique_ptr<File>& file = m_files[id];
    if (!file) {
        file = std::make_unique<File>(File{nullptr, LineTable(m_sources.getBufferData(id))});
        if (const clang::OptionalFileEntryRef entry = m_sources.getFileEntryRefForID(id))
            file->file = m_program.obtainSourceFile(entry->getName().str());
    }
    return *file;
}

Tessel::SourceRange SourcePlaces::rangeOf(clang::SourceRange range) {
    if (range.isInvalid())
        return {};
    auto begin = m_sources.getDecomposedLoc(m_sources.getFileLoc(range.getBegin()));
    auto end = m_sources.getDecomposedLoc(range.getEnd().isMacroID() && !m_sources.isMacroArgExpansion(range.getEnd())
                                              ? m_sources.getExpansionRange(range.getEnd()).getEnd()
                                              : m_sources.getFileLoc(range.getEnd()));
    // A macro may turn its arguments round.
    if (begin.first != end.first || end.second < begin.second) {
        const clang::CharSourceRange use = m_sources.getExpansionRange(range);
        begin = m_sources.getDecomposedLoc(use.getBegin());
        end = m_sources.getDecomposedLoc(use.getEnd());
        if (begin.first != end.first)
            end = begin;
    }
    File& file = fileOf(begin.first);
    const LineTable::Place first = file.lines.find(begin.second);
    const LineTable::Place last = file.lines.find(end.second);
    return {file.file, first.line, first.column, last.line, last.column};
}

std::string SourcePlaces::spellingAt(clang::SourceLocation location) const {
    bool invalid = false;
    llvm::SmallString<32> buffer;
    const llvm::StringRef text = clang::Lexer::getSpelling(m_sources.getSpellingLoc(location), buffer, m_sources,
                                                           m_context.getLangOpts(), &invalid);
    return invalid ? std::string() : text.str();
}

bool SourcePlaces::isMacroOf(clang::SourceLocation location, const std::string& name) const {
    return location.isMacroID() && m_sources.isMacroBodyExpansion(location) &&
           clang::Lexer::getImmediateMacroName(location, m_sources, m_context.getLangOpts()) == name;
}

bool SourcePlaces::isSameUse(clang::SourceLocation a, clang::SourceLocation b) const {
    return a.isMacroID() && b.isMacroID() && m_sources.getFileID(a) == m_sources.getFileID(b);
}

} // namespace Kova::Frontends
