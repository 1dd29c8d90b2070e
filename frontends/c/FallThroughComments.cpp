// SPDX-License-Identifier: MIT
#include "frontends/c/FallThroughComments_p.h"

#include <clang/Basic/SourceManager.h>
#include <clang/Lex/Lexer.h>
#include <clang/Lex/PPCallbacks.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>

namespace Kova::Frontends {

namespace {

bool consume(llvm::StringRef& text, std::initializer_list<const char*> words) {
    return std::any_of(words.begin(), words.end(),
                       [&](const char* word) { return text.consume_front_insensitive(word); });
}

/// @param comment with its marks.
bool saysFallThrough(llvm::StringRef comment) {
    const llvm::StringRef blanks = " \t\r\n.!*/";
    llvm::StringRef text = comment.trim(blanks).trim("-@");
    text.consume_front_insensitive("lint ");
    text = text.ltrim("-");
    if (consume(text, {"else"}))
        text.consume_front(",");
    text = text.ltrim();
    if (consume(text, {"intentionally", "intentional"}))
        text = text.ltrim();
    if (!consume(text, {"falls", "fall"}))
        return false;
    consume(text, {" ", "-"});
    if (!consume(text, {"through", "thru"}))
        return false;
    text = text.ltrim(blanks);
    return text.empty() || text.front() == '-';
}

bool isNamedFallThrough(llvm::StringRef name) {
    std::string letters;
    std::copy_if(name.begin(), name.end(), std::back_inserter(letters), [](char c) { return c != '_'; });
    const llvm::StringRef word = letters;
    return word.contains_insensitive("fallthrough") || word.contains_insensitive("fallthru");
}

} // namespace

class FallThroughComments::MacroWatcher final : public clang::PPCallbacks {
public:
    explicit MacroWatcher(FallThroughComments& comments) : m_comments(comments) {}

    void MacroExpands(const clang::Token& name, const clang::MacroDefinition& /*definition*/,
                      clang::SourceRange /*range*/, const clang::MacroArgs* /*arguments*/) override {
        if (name.getLocation().isMacroID() || !isNamedFallThrough(name.getIdentifierInfo()->getName()))
            return;
        m_comments.m_comments.emplace_back(name.getLocation());
        m_comments.m_macros.push_back(name.getLocation());
    }

private:
    FallThroughComments& m_comments;
};

void FallThroughComments::watch(clang::Preprocessor& preprocessor) {
    preprocessor.addCommentHandler(this);
    preprocessor.addPPCallbacks(std::make_unique<MacroWatcher>(*this));
}

bool FallThroughComments::HandleComment(clang::Preprocessor& preprocessor, clang::SourceRange comment) {
    const clang::SourceManager& sources = preprocessor.getSourceManager();
    if (sources.isInSystemHeader(comment.getBegin()))
        return false;
    const llvm::StringRef text =
        clang::Lexer::getSourceText(clang::CharSourceRange::getCharRange(comment), sources, preprocessor.getLangOpts());
    if (saysFallThrough(text))
        m_comments.push_back(comment);
    return false;
}

clang::SourceRange FallThroughComments::findBetween(clang::SourceLocation begin, clang::SourceLocation end,
                                                    const clang::SourceManager& sources) const {
    const auto isBefore = [&](const clang::SourceRange& comment, clang::SourceLocation place) {
        return sources.isBeforeInTranslationUnit(comment.getBegin(), place);
    };
    const auto isBehind = [&](clang::SourceLocation place, const clang::SourceRange& comment) {
        return sources.isBeforeInTranslationUnit(place, comment.getBegin());
    };
    // A macro may be what ends at the begin.
    const auto first = std::upper_bound(m_comments.begin(), m_comments.end(), begin, isBehind);
    const bool isFound = first != m_comments.end() && isBefore(*first, end) &&
                         sources.getFileID(first->getBegin()) == sources.getFileID(end);
    return isFound ? *first : clang::SourceRange();
}

clang::SourceRange FallThroughComments::findMacroBetween(clang::SourceLocation begin, clang::SourceLocation end,
                                                         const clang::SourceManager& sources) const {
    const auto isBefore = [&](clang::SourceLocation a, clang::SourceLocation b) {
        return sources.isBeforeInTranslationUnit(a, b);
    };
    const auto first = std::upper_bound(m_macros.begin(), m_macros.end(), begin, isBefore);
    return first != m_macros.end() && isBefore(*first, end) ? clang::SourceRange(*first) : clang::SourceRange();
}

clang::SourceRange FallThroughComments::findMacro(clang::SourceRange statement, const clang::SourceManager& sources,
                                                  const clang::LangOptions& language) const {
    const auto isBefore = [&](clang::SourceLocation macro, clang::SourceLocation place) {
        return !sources.isBeforeInTranslationUnit(place, macro);
    };
    const auto behind =
        std::lower_bound(m_macros.begin(), m_macros.end(), sources.getExpansionLoc(statement.getBegin()), isBefore);
    if (behind == m_macros.begin())
        return {};
    const clang::SourceLocation macro = *std::prev(behind);
    const std::optional<clang::Token> next = clang::Lexer::findNextToken(macro, sources, language);
    const bool isWhole = statement.getBegin().isMacroID() && statement.getEnd().isMacroID() &&
                         sources.getExpansionLoc(statement.getBegin()) == macro &&
                         sources.getExpansionLoc(statement.getEnd()) == macro;
    const bool isNothing = next && next->getLocation() == statement.getBegin();
    return isWhole || isNothing ? clang::SourceRange(macro) : clang::SourceRange();
}

} // namespace Kova::Frontends
