// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/SourceRange.h"
#include "frontends/c/LineTable_p.h"

#include <clang/Basic/SourceLocation.h>
#include <llvm/ADT/DenseMap.h>

#include <memory>
#include <string>

namespace clang {
class ASTContext;
class SourceManager;
} // namespace clang

namespace Kova::Tessel {
class ProgramUnit;
}

namespace Kova::Frontends {

/// Where Clang's nodes stand, and what the source says there. What is written as a macro's argument stands where it is
/// written; all else that comes of a macro stands where the macro is used.
class SourcePlaces {
public:
    SourcePlaces(const clang::ASTContext& context, Tessel::ProgramUnit& program);

    [[nodiscard]] Tessel::SourceRange rangeOf(clang::SourceRange range);

    /// One token as it is spelled, in a macro's definition where it comes of one.
    [[nodiscard]] std::string spellingAt(clang::SourceLocation location) const;

    /// True for a place in the body of a macro of that name.
    [[nodiscard]] bool isMacroOf(clang::SourceLocation location, const std::string& name) const;
    /// True for two places that come of one use of a macro.
    [[nodiscard]] bool isSameUse(clang::SourceLocation a, clang::SourceLocation b) const;

private:
    struct File {
        const Tessel::SourceFile* file = nullptr;
        LineTable lines;
    };
    [[nodiscard]] File& fileOf(clang::FileID id);

    const clang::ASTContext& m_context;
    const clang::SourceManager& m_sources;
    Tessel::ProgramUnit& m_program;
    llvm::DenseMap<clang::FileID, std::unique_ptr<File>> m_files;
};

} // namespace Kova::Frontends
