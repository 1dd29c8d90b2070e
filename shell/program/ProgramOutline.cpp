// SPDX-License-Identifier: MIT
#include "shell/program/ProgramOutline.h"

#include "environment/tessel/DoWhileStatement.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/IfStatement.h"
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

QString kindOf(const Tessel::BlockStatement& block) {
    const Tessel::TesselBase* parent = block.getParent();
    if (dynamic_cast<const Tessel::LoopStatement*>(parent) != nullptr)
        return "body";
    if (const auto* branch = dynamic_cast<const Tessel::IfStatement*>(parent))
        return branch->getThenBlock() == &block ? "then" : "else";
    return "block";
}

/// The front end puts what the source wrote without braces into a block that begins where its statement does.
bool isInBraces(const Tessel::BlockStatement& block) {
    const Tessel::StatementBase* first = block.getStatement(0);
    if (first == nullptr)
        return false;
    const Tessel::SourceRange& inner = first->getSourceRange();
    const Tessel::SourceRange& outer = block.getSourceRange();
    return inner.beginLine != outer.beginLine || inner.beginColumn != outer.beginColumn;
}

/// Collects the loops and blocks of one subroutine.
class PartsCollector {
public:
    explicit PartsCollector(OutlineSubroutine& subroutine) : m_subroutine(subroutine) {}

    void collect() {
        for (Tessel::TesselBase& node : Tessel::Service::Preorder(*m_subroutine.subroutine)) {
            if (auto* loop = dynamic_cast<Tessel::LoopStatement*>(&node))
                add(*loop);
            else if (auto* block = dynamic_cast<Tessel::BlockStatement*>(&node))
                add(*block);
        }
    }

private:
    [[nodiscard]] int loopAround(const Tessel::TesselBase& node) const {
        for (const Tessel::TesselBase* outer = node.getParent(); outer != nullptr; outer = outer->getParent())
            if (const auto found = m_indexOf.find(outer); found != m_indexOf.end())
                return found->second;
        return -1;
    }

    void add(Tessel::LoopStatement& loop) {
        std::vector<OutlineLoop>& loops = m_subroutine.loops;
        const int outer = loopAround(loop);
        const int depth = outer < 0 ? 1 : loops[static_cast<std::size_t>(outer)].depth + 1;
        const Tessel::SourceRange& range = loop.getSourceRange();
        m_indexOf[&loop] = static_cast<int>(loops.size());
        loops.push_back({&loop, kindOf(loop), range.beginLine, range.endLine, depth, outer});
    }

    void add(Tessel::BlockStatement& block) {
        if (&block == m_subroutine.subroutine->getBody() || !isInBraces(block))
            return;
        const Tessel::SourceRange& range = block.getSourceRange();
        m_subroutine.blocks.push_back(
            {&block, kindOf(block), range.beginLine, range.endLine, loopAround(block), m_subroutine.loops.size()});
    }

    OutlineSubroutine& m_subroutine;
    std::map<const Tessel::TesselBase*, int> m_indexOf; // looked up, never walked
};

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
    if (known)
        return;
    file.subroutines.push_back({&subroutine, name, range.beginLine, range.endLine, {}, {}});
    PartsCollector(file.subroutines.back()).collect();
}

} // namespace Kova::Shell
