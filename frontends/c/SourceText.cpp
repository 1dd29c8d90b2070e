// SPDX-License-Identifier: MIT
#include "environment/tessel/ProgramUnit.h"
#include "frontends/c/SourceText_p.h"

#include <clang/AST/ASTContext.h>
#include <clang/AST/Decl.h>
#include <clang/AST/Stmt.h>
#include <clang/Basic/SourceManager.h>
#include <clang/Lex/Lexer.h>
#include <llvm/Support/raw_ostream.h>

#include <tuple>

namespace Kova::Frontends {

SourceText::SourceText(const clang::ASTContext& context, Tessel::ProgramUnit& program)
    : m_context(context),
      m_sources(context.getSourceManager()),
      m_program(program) {}

const Tessel::SourceFile* SourceText::fileOf(clang::FileID file) {
    const auto [entry, isNew] = m_files.try_emplace(file, nullptr);
    if (isNew)
        if (const clang::OptionalFileEntryRef ref = m_sources.getFileEntryRefForID(file))
            entry->second = m_program.obtainSourceFile(ref->getName().str());
    return entry->second;
}

Tessel::SourceRange SourceText::rangeOf(clang::SourceRange range) {
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
    Tessel::SourceRange result;
    result.file = fileOf(begin.first);
    // Lines before columns: Clang then finds the column from the line it has just looked up.
    result.beginLine = m_sources.getLineNumber(begin.first, begin.second);
    result.beginColumn = m_sources.getColumnNumber(begin.first, begin.second);
    result.endLine = m_sources.getLineNumber(end.first, end.second);
    result.endColumn = m_sources.getColumnNumber(end.first, end.second);
    return result;
}

std::string SourceText::spellingAt(clang::SourceLocation location) const {
    bool invalid = false;
    llvm::SmallString<32> buffer;
    const llvm::StringRef text = clang::Lexer::getSpelling(m_sources.getSpellingLoc(location), buffer, m_sources,
                                                           m_context.getLangOpts(), &invalid);
    return invalid ? std::string() : text.str();
}

std::string SourceText::fileText(clang::SourceRange range) const {
    if (range.isInvalid() || range.getBegin().isMacroID() || range.getEnd().isMacroID())
        return {};
    bool invalid = false;
    const llvm::StringRef text = clang::Lexer::getSourceText(clang::CharSourceRange::getTokenRange(range), m_sources,
                                                             m_context.getLangOpts(), &invalid);
    return invalid ? std::string() : text.str();
}

std::string SourceText::textOf(const clang::Stmt& node) const {
    std::string text = fileText(node.getSourceRange());
    if (!text.empty())
        return text;
    llvm::raw_string_ostream stream(text);
    node.printPretty(stream, nullptr, m_context.getPrintingPolicy());
    stream.flush();
    return llvm::StringRef(text).rtrim("\r\n").str();
}

std::string SourceText::textOf(const clang::Decl& node) const {
    std::string text = fileText(node.getSourceRange());
    if (!text.empty())
        return text;
    llvm::raw_string_ostream stream(text);
    node.print(stream, m_context.getPrintingPolicy());
    return stream.str();
}

bool SourceText::isExternal(clang::SourceLocation location) const {
    return location.isInvalid() || m_sources.isInSystemHeader(m_sources.getExpansionLoc(location));
}

} // namespace Kova::Frontends
