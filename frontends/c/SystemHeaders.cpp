// SPDX-License-Identifier: MIT
#include "frontends/c/SystemHeaders_p.h"

#include <clang/Basic/SourceManager.h>

namespace Kova::Frontends {

void SystemHeaders::noteClaim(clang::SourceLocation where) {
    const clang::FileEntry* file = m_sources.getFileEntryForID(m_sources.getFileID(where));
    if (file != nullptr && !m_sources.isInSystemHeader(where))
        m_claims.insert(file);
}

void SystemHeaders::noteInclusion(clang::SourceLocation where, clang::FileEntryRef header, llvm::StringRef directory) {
    const clang::OptionalFileEntryRef from = m_sources.getFileEntryRefForID(m_sources.getFileID(where));
    if (from && isClaimOnly(from->getFileEntry()) && from->getDir().getName() == directory)
        m_claims.insert(&header.getFileEntry());
}

bool SystemHeaders::isSilent(clang::SourceLocation where) const {
    return where.isValid() && m_sources.isInSystemHeader(m_sources.getExpansionLoc(where)) && !hold(where);
}

bool SystemHeaders::hold(clang::SourceLocation where) const {
    const clang::SourceLocation use = m_sources.getExpansionLoc(where);
    if (!m_sources.isInSystemHeader(use))
        return false;
    const clang::FileEntry* file = m_sources.getFileEntryForID(m_sources.getFileID(use));
    return file == nullptr || !isClaimOnly(*file);
}

} // namespace Kova::Frontends
