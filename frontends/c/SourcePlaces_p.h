// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/SourceRange.h"
#include "frontends/c/LineTable_p.h"

#include <clang/Basic/SourceLocation.h>
#include <llvm/ADT/DenseMap.h>

#include <map>
#include <memory>
#include <optional>
#include <string>

namespace clang {
class ASTContext;
class Decl;
class Expr;
class IdentifierInfo;
class Preprocessor;
class SourceManager;
class Stmt;
} // namespace clang

namespace Kova::Tessel {
class ProgramUnit;
}

namespace Kova::Frontends {

class SystemHeaders;
struct ParsedText;

/// Where Clang's nodes stand, and what the source says there. What is written as a macro's argument stands where it is
/// written; all else that comes of a macro stands where the macro is used.
class SourcePlaces {
public:
    SourcePlaces(const clang::ASTContext& context, const ParsedText& parsed, Tessel::ProgramUnit& program);

    [[nodiscard]] Tessel::SourceRange rangeOf(clang::SourceRange range);

    /// One token as it is spelled, in a macro's definition where it comes of one.
    [[nodiscard]] std::string spellingAt(clang::SourceLocation location) const;

    /// The text of a statement or expression: the source's own, or, when it comes of a macro, Clang's rendering.
    [[nodiscard]] std::string textOf(const clang::Stmt& node) const;
    [[nodiscard]] std::string textOf(const clang::Decl& node) const;

    /// The use of a system header's macro that an expression is all of; empty when it is none.
    [[nodiscard]] std::string macroUseOf(const clang::Expr& expression) const;
    /// True for a place in the body of a macro of that name.
    [[nodiscard]] bool isMacroOf(clang::SourceLocation location, const std::string& name) const;
    /// True for two places that come of one use of a macro.
    [[nodiscard]] bool isSameUse(clang::SourceLocation a, clang::SourceLocation b) const;

    /// True for what no file of the user's holds: in a system header, or built into the compiler.
    [[nodiscard]] bool isExternal(clang::SourceLocation location) const;

private:
    /// Empty for what does not stand in a file as it is, such as a macro's expansion or what holds one.
    [[nodiscard]] std::string fileText(clang::SourceRange range) const;
    [[nodiscard]] bool isMacroOfProgram(const clang::IdentifierInfo& name) const;
    [[nodiscard]] bool holdsPreprocessing(const std::string& text) const;
    /// The text with the values of the program's macros that stand for one word each; none where there are others.
    [[nodiscard]] std::optional<std::string> withoutConstants(const std::string& text) const;
    void collectArguments(const clang::Stmt& node, clang::FileID use, std::map<unsigned, std::string>& arguments) const;
    struct File {
        const Tessel::SourceFile* file = nullptr;
        LineTable lines;
    };
    [[nodiscard]] File& fileOf(clang::FileID file);

    const clang::ASTContext& m_context;
    const clang::Preprocessor& m_preprocessor;
    const SystemHeaders& m_system;
    const clang::SourceManager& m_sources;
    Tessel::ProgramUnit& m_program;
    llvm::DenseMap<clang::FileID, std::unique_ptr<File>> m_files;
};

} // namespace Kova::Frontends
