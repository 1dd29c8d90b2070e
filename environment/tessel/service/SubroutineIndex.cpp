// SPDX-License-Identifier: MIT
#include "environment/tessel/service/SubroutineIndex.h"

#include "environment/tessel/ModuleDeclaration.h"
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/SubroutineDeclaration.h"

namespace Kova::Tessel::Service {

namespace {

void collect(const TesselBase& holder, std::vector<SubroutineDeclaration*>& found) {
    for (std::size_t i = 0; i < holder.getChildCount(); ++i) {
        TesselBase* child = holder.getChild(i);
        if (auto* subroutine = dynamic_cast<SubroutineDeclaration*>(child)) {
            if (subroutine->hasImplementation())
                found.push_back(subroutine);
        } else if (dynamic_cast<const ModuleDeclaration*>(child) != nullptr) {
            collect(*child, found);
        }
    }
}

SubroutineDeclaration* find(const std::map<std::string, SubroutineDeclaration*>& names, const std::string& name) {
    const auto found = names.find(name);
    return found != names.end() ? found->second : nullptr;
}

} // namespace

SubroutineIndex::SubroutineIndex(const ProgramUnit& program) {
    for (std::size_t i = 0; i < program.getChildCount(); ++i) {
        const TranslationUnit* unit = program.getTranslationUnit(i);
        if (unit == nullptr)
            continue;
        const std::size_t before = m_implementations.size();
        collect(*unit, m_implementations);
        for (std::size_t k = before; k < m_implementations.size(); ++k) {
            SubroutineDeclaration* subroutine = m_implementations[k];
            m_ofUnit[unit].try_emplace(subroutine->getName(), subroutine);
            if (subroutine->hasExternalLinkage())
                m_ofProgram.try_emplace(subroutine->getName(), subroutine);
        }
    }
}

SubroutineDeclaration* SubroutineIndex::findImplementation(const SubroutineDeclaration& declaration) const {
    if (declaration.hasImplementation())
        return const_cast<SubroutineDeclaration*>(&declaration);
    const auto unit = m_ofUnit.find(declaration.findTranslationUnit());
    if (unit != m_ofUnit.end())
        if (SubroutineDeclaration* own = find(unit->second, declaration.getName()))
            return own;
    return declaration.hasExternalLinkage() ? find(m_ofProgram, declaration.getName()) : nullptr;
}

} // namespace Kova::Tessel::Service
