// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ProgramUnit.h"
#include "frontends/c/CFrontend.h"

#include <filesystem>
#include <string>

namespace Kova::Test {

/// A folder of source files that goes when the test does.
class SourceFolder {
public:
    SourceFolder();
    ~SourceFolder();
    SourceFolder(const SourceFolder&) = delete;
    SourceFolder& operator=(const SourceFolder&) = delete;

    /// Writes a file, with folders on the way, and gives its path.
    std::string write(const std::string& name, const std::string& text) const;
    [[nodiscard]] std::string pathOf(const std::string& name) const { return (m_path / name).string(); }

private:
    std::filesystem::path m_path;
};

/// A program read from one piece of C text.
struct Reading {
    explicit Reading(const std::string& text, Frontends::COptions options = {});

    /// The unit's declarations as text, see treeText; empty without a unit.
    [[nodiscard]] std::string tree() const;
    /// The statements of the first function with a body as text.
    [[nodiscard]] std::string body() const;
    /// The diagnostics without their notes, a line each, without the path of the folder.
    [[nodiscard]] std::string messages() const;
    [[nodiscard]] Tessel::TranslationUnit& unit() const { return *program.getTranslationUnit(0); }

    SourceFolder folder;
    std::string path;
    Tessel::ProgramUnit program;
    Frontends::CFrontend::Result result;
};

/// The body of `void f(void) { ... }` around the statements, after the declarations.
[[nodiscard]] std::string bodyOf(const std::string& statements, const std::string& declarations = {});

/// The diagnostics of a program, notes left out, a line each with the folder's path cut off.
[[nodiscard]] std::string messagesOf(const Tessel::ProgramUnit& program, const std::string& folder);

} // namespace Kova::Test
