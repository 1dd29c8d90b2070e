// SPDX-License-Identifier: MIT
#include "environment/tessel/ProgramUnit.h"

namespace Kova::Tessel {

ProgramUnit::~ProgramUnit() = default;

TranslationUnit& ProgramUnit::append(std::unique_ptr<TranslationUnit> unit) {
    TranslationUnit& result = *unit;
    appendChild(std::move(unit));
    return result;
}

const SourceFile* ProgramUnit::obtainSourceFile(const std::string& path) {
    return &m_sourceFiles.try_emplace(path, path).first->second;
}

} // namespace Kova::Tessel
