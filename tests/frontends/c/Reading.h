// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/ProgramUnit.h"
#include "frontends/c/CFrontend.h"

#include <filesystem>
#include <map>
#include <string>
#include <utility>

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

/// Headers of the user by their names, with folders on the way.
using Headers = std::map<std::string, std::string>;

/// A program read from one piece of C text.
struct Reading {
    explicit Reading(const std::string& text, Frontends::COptions options = {})
        : Reading(text, Headers(), std::move(options)) {}
    /// The headers stand beside the text. @param options with include directories below that folder.
    Reading(const std::string& text, const Headers& headers, Frontends::COptions options = {});

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

/// Files that are read one after the other into one program.
struct ReadFiles {
    /// Writes the file before.
    Frontends::CFrontend::Result read(const std::string& name, const std::string& text);
    /// Reads what is there.
    Frontends::CFrontend::Result read(const std::string& name);
    /// The diagnostics as Reading gives them.
    [[nodiscard]] std::string messages() const;

    SourceFolder folder;
    Tessel::ProgramUnit program;
};

/// The body of `void f(void) { ... }` around the statements, after the declarations.
[[nodiscard]] std::string bodyOf(const std::string& statements, const std::string& declarations = {});

/// The diagnostics of a program, notes left out, a line each with the folder's path cut off.
[[nodiscard]] std::string messagesOf(const Tessel::ProgramUnit& program, const std::string& folder);

} // namespace Kova::Test
