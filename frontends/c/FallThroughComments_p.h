// SPDX-License-Identifier: MIT
#pragma once

#include <clang/Basic/SourceLocation.h>
#include <clang/Lex/Preprocessor.h>

#include <vector>

namespace Kova::Frontends {

/// Remembers what says that a case is meant to go on into the next: comments, as compilers take them ("fall through",
/// "FALLTHRU" and the like, with nothing else but a reason behind a hyphen), and macros of such a name. Programs choose
/// what the macro stands for by the compiler, and Clang calls itself one that has no word for it.
class FallThroughComments final : public clang::CommentHandler {
public:
    /// To be called before the preprocessor gives its first word. This outlives its last.
    void watch(clang::Preprocessor& preprocessor);

    bool HandleComment(clang::Preprocessor& preprocessor, clang::SourceRange comment) override;

    /// The comment or macro between two places of one file; invalid when there is none.
    [[nodiscard]] clang::SourceRange findBetween(clang::SourceLocation begin, clang::SourceLocation end,
                                                 const clang::SourceManager& sources) const;
    /// The macro's use between two places; invalid when there is none.
    [[nodiscard]] clang::SourceRange findMacroBetween(clang::SourceLocation begin, clang::SourceLocation end,
                                                      const clang::SourceManager& sources) const;
    /// The macro's use that a statement is all of; invalid when it is none. @param statement may begin with a semicolon
    /// behind a macro that stands for nothing.
    [[nodiscard]] clang::SourceRange findMacro(clang::SourceRange statement, const clang::SourceManager& sources,
                                               const clang::LangOptions& language) const;

private:
    class MacroWatcher;

    // Sorted: in the order in which they are read.
    std::vector<clang::SourceRange> m_comments;
    std::vector<clang::SourceLocation> m_macros;
};

} // namespace Kova::Frontends
