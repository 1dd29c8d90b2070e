// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/DeclarationBase.h"
#include "environment/tessel/Visitable.h"

namespace Kova::Tessel {

/// What a program is written in; C prints with the C printers, any other value with the Fortran ones.
enum SourceLanguage : int { LANG_C = 0, LANG_FORTRAN = 1 };

/// One source file with the user's headers that it includes. The children are its declarations in program order; what
/// system headers declare is owned beside them, as far as the program uses it.
class TranslationUnit final : public Visitable<TranslationUnit, TesselBase> {
public:
    /// @param path of the source file, as the user gave it.
    TranslationUnit(std::string path, SourceLanguage language) : m_path(std::move(path)), m_language(language) {}

    [[nodiscard]] const std::string& getPath() const { return m_path; }
    [[nodiscard]] SourceLanguage getSourceLanguage() const { return m_language; }

    void append(DeclarationPtr declaration) { appendChild(std::move(declaration)); }
    [[nodiscard]] DeclarationBase* getDeclaration(std::size_t index) const { return childAs<DeclarationBase>(index); }

    /// The declarations of system headers that the program uses, in the order of their first use. They have this unit
    /// as their parent but are not among its numbered children.
    [[nodiscard]] const std::vector<DeclarationPtr>& getExternalDeclarations() const { return m_externals; }
    void appendExternal(DeclarationPtr declaration) {
        adopt(*declaration);
        declaration->setExternal(true);
        m_externals.push_back(std::move(declaration));
    }

    /// The system headers that the file and the user's headers name, as written with their brackets or quotes.
    [[nodiscard]] const std::vector<std::string>& getSystemIncludes() const { return m_systemIncludes; }
    void appendSystemInclude(std::string spelling) { m_systemIncludes.push_back(std::move(spelling)); }

    /// With what the file chooses among the things that system headers can declare: names of macros with their values,
    /// such as `_GNU_SOURCE 1`, to be defined before the headers are included.
    [[nodiscard]] const std::vector<std::string>& getSystemChoices() const { return m_systemChoices; }
    void appendSystemChoice(std::string definition) { m_systemChoices.push_back(std::move(definition)); }

    /// The names of macros that system headers or the compiler define and the file takes back, so that the names can be
    /// its own. To be undefined when the headers are included.
    [[nodiscard]] const std::vector<std::string>& getSystemUndefinitions() const { return m_systemUndefinitions; }
    void appendSystemUndefinition(std::string name) { m_systemUndefinitions.push_back(std::move(name)); }

private:
    std::string m_path;
    SourceLanguage m_language;
    std::vector<DeclarationPtr> m_externals;
    std::vector<std::string> m_systemIncludes;
    std::vector<std::string> m_systemChoices;
    std::vector<std::string> m_systemUndefinitions;
};

} // namespace Kova::Tessel
