// SPDX-License-Identifier: MIT
#include "environment/tessel/TranslationUnit.h"
#include "frontends/c/IncludeRecorder_p.h"
#include "frontends/c/SystemHeaders_p.h"

#include <clang/Basic/SourceManager.h>
#include <clang/Lex/MacroInfo.h>
#include <clang/Lex/PPCallbacks.h>
#include <clang/Lex/Preprocessor.h>
#include <llvm/ADT/MapVector.h>
#include <llvm/ADT/SetVector.h>

#include <set>

namespace Kova::Frontends {

namespace {

/// A name that the language keeps for compilers and their libraries.
bool isReserved(llvm::StringRef name) {
    return name.size() > 1 && name[0] == '_' && (name[1] == '_' || (name[1] >= 'A' && name[1] <= 'Z'));
}

class IncludeRecorder final : public clang::PPCallbacks {
public:
    IncludeRecorder(const clang::Preprocessor& preprocessor, SystemHeaders& system, Tessel::TranslationUnit& unit)
        : m_preprocessor(preprocessor),
          m_system(system),
          m_sources(preprocessor.getSourceManager()),
          m_unit(unit) {}

    void FileChanged(clang::SourceLocation where, FileChangeReason reason, clang::SrcMgr::CharacteristicKind /*kind*/,
                     clang::FileID /*previous*/) override {
        if (reason == SystemHeaderPragma)
            m_system.noteClaim(where);
    }

    /// Only what stands before the first system header can have a say in what it declares.
    void MacroDefined(const clang::Token& name, const clang::MacroDirective* directive) override {
        const clang::MacroInfo& macro = *directive->getMacroInfo();
        const clang::SourceLocation place = macro.getDefinitionLoc();
        const bool isProgramText =
            place.isValid() && !m_sources.isWrittenInBuiltinFile(place) && !m_sources.isWrittenInCommandLineFile(place);
        if (m_seen.empty() && isProgramText && macro.isObjectLike() && isReserved(name.getIdentifierInfo()->getName()))
            m_choices[name.getIdentifierInfo()] = &macro;
    }

    void MacroUndefined(const clang::Token& name, const clang::MacroDefinition& definition,
                        const clang::MacroDirective* /*directive*/) override {
        if (m_seen.empty())
            m_choices.erase(name.getIdentifierInfo());
        const clang::MacroInfo* macro = definition.getMacroInfo();
        if (macro != nullptr && isOfSystem(*macro) && !m_system.isExternal(name.getLocation()))
            m_undefined.insert(name.getIdentifierInfo());
    }

    void EndOfMainFile() override {
        for (const auto& [name, macro] : m_choices)
            if (!m_seen.empty() && !macro->isUsedForHeaderGuard())
                m_unit.appendSystemChoice(textOf(*name, *macro));
        for (const clang::IdentifierInfo* name : m_undefined) {
            const clang::MacroInfo* macro = m_preprocessor.getMacroInfo(name);
            if (macro == nullptr || !isOfSystem(*macro))
                m_unit.appendSystemUndefinition(name->getName().str());
        }
    }

    void InclusionDirective(clang::SourceLocation hash, const clang::Token& /*directive*/, llvm::StringRef name,
                            bool isAngled, clang::CharSourceRange /*nameRange*/, clang::OptionalFileEntryRef file,
                            llvm::StringRef searchPath, llvm::StringRef /*relativePath*/,
                            const clang::Module* /*module*/, bool /*imported*/,
                            clang::SrcMgr::CharacteristicKind kind) override {
        if (file)
            m_system.noteInclusion(hash, *file, searchPath);
        if (!file || !clang::SrcMgr::isSystem(kind) || m_system.isClaimOnly(file->getFileEntry()) ||
            m_system.hold(hash))
            return;
        std::string spelling = (isAngled ? "<" : "\"") + name.str() + (isAngled ? ">" : "\"");
        if (m_seen.insert(spelling).second)
            m_unit.appendSystemInclude(std::move(spelling));
    }

private:
    [[nodiscard]] bool isOfSystem(const clang::MacroInfo& macro) const {
        const clang::SourceLocation place = macro.getDefinitionLoc();
        return m_system.isExternal(place) || m_sources.isWrittenInBuiltinFile(place) ||
               m_sources.isWrittenInCommandLineFile(place);
    }
    [[nodiscard]] std::string textOf(const clang::IdentifierInfo& name, const clang::MacroInfo& macro) const {
        std::string text = name.getName().str();
        for (const clang::Token& token : macro.tokens())
            text += ' ' + m_preprocessor.getSpelling(token);
        return text;
    }

    const clang::Preprocessor& m_preprocessor;
    SystemHeaders& m_system;
    const clang::SourceManager& m_sources;
    Tessel::TranslationUnit& m_unit;
    std::set<std::string> m_seen;
    llvm::MapVector<const clang::IdentifierInfo*, const clang::MacroInfo*> m_choices;
    llvm::SetVector<const clang::IdentifierInfo*> m_undefined;
};

} // namespace

std::unique_ptr<clang::PPCallbacks> recordSystemIncludes(const clang::Preprocessor& preprocessor, SystemHeaders& system,
                                                         Tessel::TranslationUnit& unit) {
    return std::make_unique<IncludeRecorder>(preprocessor, system, unit);
}

} // namespace Kova::Frontends
