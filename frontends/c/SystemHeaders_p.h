// SPDX-License-Identifier: MIT
#pragma once

#include <clang/Basic/FileEntry.h>
#include <clang/Basic/SourceLocation.h>
#include <llvm/ADT/SmallPtrSet.h>
#include <llvm/ADT/StringRef.h>

namespace clang {
class SourceManager;
} // namespace clang

namespace Kova::Frontends {

/// Tells the system's headers from the user's files. A user's header that calls itself one of the system's, as those
/// do which stand in for the system's own, stays the user's: a printed program could not include it.
class SystemHeaders {
public:
    explicit SystemHeaders(const clang::SourceManager& sources) : m_sources(sources) {}

    /// A header asks to be taken for one of the system's. To be called before Clang obeys.
    void noteClaim(clang::SourceLocation where);

    /// A header that one of the user's with such a claim finds beside itself is the user's like that one, though Clang
    /// takes it for the system's. To be called before Clang enters the header.
    /// @param directory where it was found.
    void noteInclusion(clang::SourceLocation where, clang::FileEntryRef header, llvm::StringRef directory);

    /// True for a place in one of the system's headers. @param where may be in a macro, which is where it is used.
    [[nodiscard]] bool hold(clang::SourceLocation where) const;
    /// True for what no file of the user's holds: in a system header, or built into the compiler.
    [[nodiscard]] bool isExternal(clang::SourceLocation where) const { return where.isInvalid() || hold(where); }
    /// True for a place in a header of the user's that compilers take for the system's: they say nothing of it.
    [[nodiscard]] bool isSilent(clang::SourceLocation where) const;
    /// True for a header that is the user's although it claims to be the system's.
    [[nodiscard]] bool isClaimOnly(const clang::FileEntry& file) const { return m_claims.contains(&file); }

private:
    const clang::SourceManager& m_sources;
    // Looked up, never walked.
    llvm::SmallPtrSet<const clang::FileEntry*, 8> m_claims;
};

} // namespace Kova::Frontends
