// SPDX-License-Identifier: MIT
#include "environment/tessel/TranslationUnit.h"
#include "frontends/c/IncludeRecorder_p.h"

#include <clang/Basic/SourceManager.h>
#include <clang/Lex/PPCallbacks.h>

#include <set>

namespace Kova::Frontends {

namespace {

class IncludeRecorder final : public clang::PPCallbacks {
public:
    IncludeRecorder(const clang::SourceManager& sources, Tessel::TranslationUnit& unit)
        : m_sources(sources),
          m_unit(unit) {}

    void InclusionDirective(clang::SourceLocation hash, const clang::Token& /*directive*/, llvm::StringRef name,
                            bool isAngled, clang::CharSourceRange /*nameRange*/, clang::OptionalFileEntryRef file,
                            llvm::StringRef /*searchPath*/, llvm::StringRef /*relativePath*/,
                            const clang::Module* /*module*/, bool /*imported*/,
                            clang::SrcMgr::CharacteristicKind kind) override {
        if (!file || !clang::SrcMgr::isSystem(kind) || m_sources.isInSystemHeader(hash))
            return;
        std::string spelling = (isAngled ? "<" : "\"") + name.str() + (isAngled ? ">" : "\"");
        if (m_seen.insert(spelling).second)
            m_unit.appendSystemInclude(std::move(spelling));
    }

private:
    const clang::SourceManager& m_sources;
    Tessel::TranslationUnit& m_unit;
    std::set<std::string> m_seen;
};

} // namespace

std::unique_ptr<clang::PPCallbacks> recordSystemIncludes(const clang::SourceManager& sources,
                                                         Tessel::TranslationUnit& unit) {
    return std::make_unique<IncludeRecorder>(sources, unit);
}

} // namespace Kova::Frontends
