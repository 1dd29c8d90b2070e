// SPDX-License-Identifier: MIT
#include "shell/program/ProgramOutline.h"

#include "environment/tessel/DoWhileStatement.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/SourceFile.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/WhileStatement.h"
#include "environment/tessel/service/Preorder.h"
#include "environment/tessel/service/SubroutineIndex.h"
#include "shell/program/OpenedProgram.h"

#include <algorithm>
#include <map>

namespace Kova::Shell {

namespace {

QString kindOf(const Tessel::LoopStatement& loop) {
    if (dynamic_cast<const Tessel::ForStatement*>(&loop) != nullptr)
        return "for";
    return dynamic_cast<const Tessel::DoWhileStatement*>(&loop) != nullptr ? "do" : "while";
}

QString languageOf(const Tessel::TranslationUnit& unit) {
    return unit.getSourceLanguage() == Tessel::LANG_C ? "C" : "Fortran";
}

const Tessel::LoopStatement* loopAround(const Tessel::LoopStatement& loop) {
    for (const Tessel::TesselBase* node = loop.getParent(); node != nullptr; node = node->getParent())
        if (const auto* outer = dynamic_cast<const Tessel::LoopStatement*>(node))
            return outer;
    return nullptr;
}

std::vector<OutlineLoop> loopsOf(Tessel::SubroutineDeclaration& subroutine) {
    std::vector<OutlineLoop> loops;
    std::map<const Tessel::LoopStatement*, int> indexOf; // looked up, never walked
    for (Tessel::TesselBase& node : Tessel::Service::Preorder(subroutine)) {
        auto* loop = dynamic_cast<Tessel::LoopStatement*>(&node);
        if (loop == nullptr)
            continue;
        const auto outer = indexOf.find(loopAround(*loop));
        const int outerIndex = outer == indexOf.end() ? -1 : outer->second;
        const int depth = outerIndex < 0 ? 1 : loops[static_cast<std::size_t>(outerIndex)].depth + 1;
        const Tessel::SourceRange& range = loop->getSourceRange();
        indexOf[loop] = static_cast<int>(loops.size());
        loops.push_back({loop, kindOf(*loop), range.beginLine, range.endLine, depth, outerIndex});
    }
    return loops;
}

} // namespace

ProgramOutline::ProgramOutline(const OpenedProgram& program) {
    const Tessel::ProgramUnit& unit = program.getUnit();
    for (std::size_t i = 0; i < unit.getChildCount(); ++i)
        if (const Tessel::TranslationUnit* file = unit.getTranslationUnit(i))
            obtainFile(QString::fromStdString(file->getPath()), languageOf(*file));
    const Tessel::Service::SubroutineIndex index(unit);
    for (Tessel::SubroutineDeclaration* subroutine : index.getImplementations())
        add(*subroutine);
}

OutlineFile& ProgramOutline::obtainFile(const QString& path, const QString& language) {
    const auto found =
        std::find_if(m_files.begin(), m_files.end(), [&](const OutlineFile& file) { return file.path == path; });
    if (found != m_files.end())
        return *found;
    m_files.push_back({path, language, {}});
    return m_files.back();
}

// A header's subroutine comes once for every file that includes it; the first stands for all.
void ProgramOutline::add(Tessel::SubroutineDeclaration& subroutine) {
    const Tessel::TranslationUnit& unit = *subroutine.findTranslationUnit();
    const Tessel::SourceRange& range = subroutine.getSourceRange();
    const std::string& path = range.file != nullptr ? range.file->getPath() : unit.getPath();
    OutlineFile& file = obtainFile(QString::fromStdString(path), languageOf(unit));
    const QString name = QString::fromStdString(subroutine.getName());
    const bool known = std::any_of(file.subroutines.begin(), file.subroutines.end(), [&](const OutlineSubroutine& one) {
        return one.firstLine == range.beginLine && one.name == name && one.subroutine->findTranslationUnit() != &unit;
    });
    if (!known)
        file.subroutines.push_back({&subroutine, name, range.beginLine, range.endLine, loopsOf(subroutine)});
}

} // namespace Kova::Shell
