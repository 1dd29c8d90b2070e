// SPDX-License-Identifier: MIT
#pragma once

#include <clang/Basic/SourceLocation.h>
#include <clang/Lex/Preprocessor.h>

#include <vector>

namespace Kova::Frontends {

/// Remembers the comments which say that a case is meant to go on into the next, as compilers take them: "fall
/// through", "FALLTHRU" and the like, with nothing else but a reason behind a hyphen.
class FallThroughComments final : public clang::CommentHandler {
public:
    bool HandleComment(clang::Preprocessor& preprocessor, clang::SourceRange comment) override;

    /// The comment between two places of one file; invalid when there is none.
    [[nodiscard]] clang::SourceRange findBetween(clang::SourceLocation begin, clang::SourceLocation end,
                                                 const clang::SourceManager& sources) const;

private:
    std::vector<clang::SourceRange> m_comments;
};

} // namespace Kova::Frontends
