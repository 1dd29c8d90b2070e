// SPDX-License-Identifier: MIT
#include "frontends/c/FallThroughComments_p.h"

#include <clang/Basic/SourceManager.h>
#include <clang/Lex/Lexer.h>

#include <algorithm>

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

} // namespace

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
    const auto first = std::lower_bound(m_comments.begin(), m_comments.end(), begin, isBefore);
    const bool isFound = first != m_comments.end() && isBefore(*first, end) &&
                         sources.getFileID(first->getBegin()) == sources.getFileID(end);
    return isFound ? *first : clang::SourceRange();
}

} // namespace Kova::Frontends
