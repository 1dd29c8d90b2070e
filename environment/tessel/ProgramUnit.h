// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/Diagnostic.h"
#include "environment/tessel/SourceFile.h"
#include "environment/tessel/TranslationUnit.h"
#include "environment/tessel/Visitable.h"
#include "environment/tessel/types/TypeTable.h"

#include <map>
#include <string>

namespace Kova::Tessel {

/// A whole program: the root of the tree. The children are its translation units in the order in which they were read.
/// Owns the types and source files that its nodes refer to.
class ProgramUnit final : public Visitable<ProgramUnit, TesselBase> {
public:
    ProgramUnit() = default;
    ~ProgramUnit() override;

    TranslationUnit& append(std::unique_ptr<TranslationUnit> unit);
    [[nodiscard]] TranslationUnit* getTranslationUnit(std::size_t index) const {
        return childAs<TranslationUnit>(index);
    }

    [[nodiscard]] TypeTable& getTypes() { return m_types; }
    [[nodiscard]] const TypeTable& getTypes() const { return m_types; }

    /// The one SourceFile of a path.
    const SourceFile* obtainSourceFile(const std::string& path);

    [[nodiscard]] const std::vector<Diagnostic>& getDiagnostics() const { return m_diagnostics; }
    void appendDiagnostic(Diagnostic diagnostic) { m_diagnostics.push_back(std::move(diagnostic)); }

private:
    TypeTable m_types;
    std::map<std::string, SourceFile> m_sourceFiles;
    std::vector<Diagnostic> m_diagnostics;
};

} // namespace Kova::Tessel
