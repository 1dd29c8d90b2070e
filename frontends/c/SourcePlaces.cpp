// SPDX-License-Identifier: MIT
#include "environment/tessel/ProgramUnit.h"
#include "frontends/c/SourcePlaces_p.h"
#include "frontends/c/SystemHeaders_p.h"
#include "frontends/c/UnitBuilder_p.h"

#include <clang/AST/ASTContext.h>
#include <clang/AST/Decl.h>
#include <clang/AST/Expr.h>
#include <clang/AST/Stmt.h>
#include <clang/Basic/SourceManager.h>
#include <clang/Lex/Lexer.h>
#include <clang/Lex/MacroInfo.h>
#include <clang/Lex/Preprocessor.h>
#include <llvm/Support/raw_ostream.h>

#include <tuple>

namespace Kova::Frontends {

SourcePlaces::SourcePlaces(const clang::ASTContext& context, const ParsedText& parsed, Tessel::ProgramUnit& program)
    : m_context(context),
      m_preprocessor(parsed.preprocessor),
      m_system(parsed.system),
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

std::string SourcePlaces::fileText(clang::SourceRange range) const {
    if (range.isInvalid() || range.getBegin().isMacroID() || range.getEnd().isMacroID())
        return {};
    bool invalid = false;
    const llvm::StringRef text = clang::Lexer::getSourceText(clang::CharSourceRange::getTokenRange(range), m_sources,
                                                             m_context.getLangOpts(), &invalid);
    return invalid || holdsPreprocessing(text.str()) ? std::string() : text.str();
}

bool SourcePlaces::isMacroOfProgram(const clang::IdentifierInfo& name) const {
    if (!name.hadMacroDefinition())
        return false;
    const clang::MacroDirective* directive = m_preprocessor.getLocalMacroDirectiveHistory(&name);
    for (; directive != nullptr; directive = directive->getPrevious())
        if (const auto* definition = llvm::dyn_cast<clang::DefMacroDirective>(directive))
            if (!isExternal(definition->getInfo()->getDefinitionLoc()))
                return true;
    return false;
}

/// The program's macros are not printed: what mentions one cannot stay as it is written.
bool SourcePlaces::holdsPreprocessing(const std::string& text) const {
    clang::Lexer lexer(clang::SourceLocation(), m_context.getLangOpts(), text.c_str(), text.c_str(),
                       text.c_str() + text.size());
    clang::Token token;
    for (bool isLast = false; !isLast;) {
        isLast = lexer.LexFromRawLexer(token);
        if (token.is(clang::tok::hash) && token.isAtStartOfLine())
            return true;
        if (!token.is(clang::tok::raw_identifier))
            continue;
        const auto known = m_context.Idents.find(token.getRawIdentifier());
        if (known != m_context.Idents.end() && isMacroOfProgram(*known->second))
            return true;
    }
    return false;
}

std::optional<std::string> SourcePlaces::withoutConstants(const std::string& text) const {
    std::string result;
    clang::Lexer lexer(clang::SourceLocation(), m_context.getLangOpts(), text.c_str(), text.c_str(),
                       text.c_str() + text.size());
    lexer.SetKeepWhitespaceMode(true);
    clang::Token token;
    std::size_t done = 0;
    for (bool isLast = text.empty(); !isLast; done += token.getLength()) {
        isLast = lexer.LexFromRawLexer(token);
        const std::string word = text.substr(done, token.getLength());
        const auto known = m_context.Idents.find(word);
        if (token.isNot(clang::tok::raw_identifier) || known == m_context.Idents.end() ||
            !isMacroOfProgram(*known->second)) {
            result += word;
            continue;
        }
        const clang::MacroInfo* macro = m_preprocessor.getMacroInfo(known->second);
        if (macro == nullptr || macro->isFunctionLike() || macro->getNumTokens() != 1)
            return std::nullopt;
        const std::string value = m_preprocessor.getSpelling(macro->getReplacementToken(0));
        if (holdsPreprocessing(value))
            return std::nullopt;
        result += value;
    }
    return result;
}

std::string SourcePlaces::macroUseOf(const clang::Expr& expression) const {
    const clang::SourceLocation begin = expression.getBeginLoc();
    if (!begin.isMacroID() || !isExternal(m_sources.getSpellingLoc(begin)))
        return {};
    const clang::CharSourceRange use = m_sources.getImmediateExpansionRange(begin);
    if (use.getBegin().isMacroID() || use.getEnd().isMacroID())
        return {};
    std::string text = clang::Lexer::getSourceText(use, m_sources, m_context.getLangOpts()).str();
    if (std::optional<std::string> expanded = withoutConstants(text))
        return *expanded;
    std::map<unsigned, std::string> arguments;
    collectArguments(expression, m_sources.getFileID(begin), arguments);
    text.erase(text.find('(') + 1);
    for (const auto& [place, argument] : arguments)
        text += (text.back() == '(' ? "" : ", ") + argument;
    return text + ')';
}

/// Maps the places of a macro's arguments to what they mean.
void SourcePlaces::collectArguments(const clang::Stmt& node, clang::FileID use,
                                    std::map<unsigned, std::string>& arguments) const {
    const clang::SourceLocation begin = node.getBeginLoc();
    if (m_sources.isMacroArgExpansion(begin) &&
        m_sources.getFileID(m_sources.getImmediateExpansionRange(begin).getBegin()) == use) {
        arguments.emplace(m_sources.getFileOffset(m_sources.getFileLoc(begin)), textOf(node));
        return;
    }
    for (const clang::Stmt* child : node.children())
        if (child != nullptr)
            collectArguments(*child, use, arguments);
}

bool SourcePlaces::isMacroOf(clang::SourceLocation location, const std::string& name) const {
    return location.isMacroID() && m_sources.isMacroBodyExpansion(location) &&
           clang::Lexer::getImmediateMacroName(location, m_sources, m_context.getLangOpts()) == name;
}

bool SourcePlaces::isSameUse(clang::SourceLocation a, clang::SourceLocation b) const {
    return a.isMacroID() && b.isMacroID() && m_sources.getFileID(a) == m_sources.getFileID(b);
}

std::string SourcePlaces::textOf(const clang::Stmt& node) const {
    std::string text = fileText(node.getSourceRange());
    if (!text.empty())
        return text;
    llvm::raw_string_ostream stream(text);
    node.printPretty(stream, nullptr, m_context.getPrintingPolicy());
    stream.flush();
    return llvm::StringRef(text).rtrim("\r\n").str();
}

std::string SourcePlaces::textOf(const clang::Decl& node) const {
    std::string text = fileText(node.getSourceRange());
    if (!text.empty())
        return text;
    llvm::raw_string_ostream stream(text);
    node.print(stream, m_context.getPrintingPolicy());
    return stream.str();
}

bool SourcePlaces::isExternal(clang::SourceLocation location) const {
    return location.isInvalid() || m_system.hold(location);
}

} // namespace Kova::Frontends
