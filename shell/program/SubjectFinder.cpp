// SPDX-License-Identifier: MIT
#include "shell/program/SubjectFinder.h"

#include "environment/tessel/CaseStatement.h"
#include "environment/tessel/LabelStatement.h"
#include "environment/tessel/LoopStatement.h"
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/SourceFile.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/service/Preorder.h"
#include "environment/tessel/service/SubroutineIndex.h"
#include "shell/program/OpenedProgram.h"

#include <QFileInfo>

namespace Kova::Shell {

namespace {

using Tessel::StatementBase;
using Tessel::SubroutineDeclaration;

QString nameOf(const SubroutineDeclaration& subroutine) {
    return QString::fromStdString(subroutine.getName());
}

QString fileOf(const SubroutineDeclaration& subroutine) {
    return Subject(const_cast<SubroutineDeclaration&>(subroutine)).getFile();
}

QString fullNameOf(const SubroutineDeclaration& subroutine) {
    const Tessel::TranslationUnit* unit = subroutine.findTranslationUnit();
    const QString path = unit != nullptr ? QString::fromStdString(unit->getPath()) : fileOf(subroutine);
    return QString("%1 (%2)").arg(nameOf(subroutine), QFileInfo(path).fileName());
}

bool isLabel(const StatementBase& statement) {
    return dynamic_cast<const Tessel::LabelStatement*>(&statement) != nullptr ||
           dynamic_cast<const Tessel::CaseStatement*>(&statement) != nullptr;
}

/// A block that the source wrote without braces begins where its first statement does.
bool isBlockWithoutBraces(const StatementBase& statement) {
    const auto* block = dynamic_cast<const Tessel::BlockStatement*>(&statement);
    const StatementBase* first = block != nullptr ? block->getStatement(0) : nullptr;
    return first != nullptr && first->getSourceRange().beginLine == block->getSourceRange().beginLine &&
           first->getSourceRange().beginColumn == block->getSourceRange().beginColumn;
}

bool startsAt(const StatementBase& statement, const Tessel::SourceFile* file, std::uint32_t line) {
    const Tessel::SourceRange& range = statement.getSourceRange();
    return range.file == file && range.beginLine == line;
}

/// The first statement behind a label and the labels that follow it; the last label when nothing follows.
StatementBase* markedBy(StatementBase* label) {
    while (isLabel(*label)) {
        const Tessel::TesselBase* block = label->getParent();
        auto* next =
            block != nullptr ? dynamic_cast<StatementBase*>(block->getChild(label->getIndexInParent() + 1)) : nullptr;
        if (next == nullptr)
            break;
        label = next;
    }
    return label;
}

StatementBase* statementAt(SubroutineDeclaration& subroutine, std::uint32_t line) {
    const Tessel::SourceFile* file = subroutine.getSourceRange().file;
    for (Tessel::TesselBase& node : Tessel::Service::Preorder(subroutine)) {
        auto* statement = dynamic_cast<StatementBase*>(&node);
        if (statement != nullptr && startsAt(*statement, file, line) && !isBlockWithoutBraces(*statement))
            return markedBy(statement);
    }
    return nullptr;
}

/// The innermost loop or block around a statement; a loop is around itself, a block is around what is in it.
StatementBase* enclosing(StatementBase& statement, Subject::Kind wanted) {
    for (Tessel::TesselBase* node = &statement; node != nullptr; node = node->getParent()) {
        if (wanted == Subject::Kind::Loop && dynamic_cast<Tessel::LoopStatement*>(node) != nullptr)
            return static_cast<StatementBase*>(node);
        if (wanted == Subject::Kind::Block && dynamic_cast<Tessel::BlockStatement*>(node) != nullptr)
            return static_cast<StatementBase*>(node);
    }
    return nullptr;
}

StatementBase* firstLoopIn(SubroutineDeclaration& subroutine) {
    for (Tessel::TesselBase& node : Tessel::Service::Preorder(subroutine))
        if (auto* loop = dynamic_cast<Tessel::LoopStatement*>(&node))
            return loop;
    return nullptr;
}

FoundSubject atLine(StatementBase& statement, int line, Subject::Kind wanted) {
    if (wanted == Subject::Kind::Statement)
        return {Subject(statement), {}};
    if (StatementBase* around = enclosing(statement, wanted))
        return {Subject(*around), {}};
    return {{}, QString("no loop is around line %1").arg(line)};
}

} // namespace

SubjectFinder::SubjectFinder(const OpenedProgram& program)
    : m_program(program.getUnit()),
      m_subroutines(Tessel::Service::SubroutineIndex(program.getUnit()).getImplementations()) {}

SubroutineDeclaration* SubjectFinder::findSubroutine(const QString& name) const {
    for (SubroutineDeclaration* subroutine : m_subroutines)
        if (nameOf(*subroutine) == name)
            return subroutine;
    for (SubroutineDeclaration* subroutine : m_subroutines)
        if (fullNameOf(*subroutine) == name)
            return subroutine;
    return nullptr;
}

StatementBase* SubjectFinder::findStatement(int line, SubroutineDeclaration* subroutine) const {
    if (line <= 0)
        return nullptr;
    const auto wanted = static_cast<std::uint32_t>(line);
    if (subroutine != nullptr)
        return statementAt(*subroutine, wanted);
    for (SubroutineDeclaration* candidate : m_subroutines)
        if (candidate->getSourceRange().containsLine(wanted))
            if (StatementBase* statement = statementAt(*candidate, wanted))
                return statement;
    return nullptr;
}

FoundSubject SubjectFinder::find(const SubjectRequest& request, const SubjectPreference& preference) const {
    SubroutineDeclaration* named = nullptr;
    if (!request.function.isEmpty()) {
        named = findSubroutine(request.function);
        if (named == nullptr)
            return {{}, QString("no subroutine '%1' with a body; there %2").arg(request.function, namesThatExist())};
    }
    if (!request.line)
        return findDefault(named, preference.whenNothingNamed);
    if (StatementBase* statement = findStatement(*request.line, named))
        return atLine(*statement, *request.line, preference.atLine);
    const QString where = named != nullptr ? QString("line %1 of '%2', which spans lines %3 to %4")
                                                 .arg(*request.line)
                                                 .arg(request.function)
                                                 .arg(named->getSourceRange().beginLine)
                                                 .arg(named->getSourceRange().endLine)
                                           : QString("line %1").arg(*request.line);
    return {{}, "no statement starts on " + where};
}

// Without a name, a view of a subroutine or a loop takes the first one in program order.
FoundSubject SubjectFinder::findDefault(SubroutineDeclaration* named, Subject::Kind wanted) const {
    if (named == nullptr && wanted == Subject::Kind::Program)
        return {Subject(m_program), {}};
    if (wanted != Subject::Kind::Loop) {
        if (named == nullptr && !m_subroutines.empty())
            named = m_subroutines.front();
        return named != nullptr ? FoundSubject{Subject(*named), {}} : FoundSubject{{}, "there is no subroutine"};
    }
    const std::vector<SubroutineDeclaration*> candidates =
        named != nullptr ? std::vector<SubroutineDeclaration*>{named} : m_subroutines;
    for (SubroutineDeclaration* subroutine : candidates)
        if (StatementBase* loop = firstLoopIn(*subroutine))
            return {Subject(*loop), {}};
    return {{}, "there is no loop"};
}

QString SubjectFinder::namesThatExist() const {
    constexpr int most = 30;
    QStringList names;
    for (const SubroutineDeclaration* subroutine : m_subroutines)
        if (!names.contains(nameOf(*subroutine)))
            names.append(nameOf(*subroutine));
    if (names.isEmpty())
        return "is none";
    if (names.size() <= most)
        return (names.size() == 1 ? "is " : "are ") + names.join(", ");
    return QString("are %1 and %2 more").arg(names.mid(0, most).join(", ")).arg(names.size() - most);
}

SubjectFinder::Identity SubjectFinder::identify(const Subject& subject) {
    const SubroutineDeclaration* subroutine = subject.getSubroutine();
    return {subject.getKind(), subroutine != nullptr ? nameOf(*subroutine) : QString(), subject.getFile(),
            static_cast<int>(subject.getLine())};
}

Subject SubjectFinder::findAgain(const Identity& identity) const {
    for (SubroutineDeclaration* subroutine : m_subroutines) {
        if (nameOf(*subroutine) != identity.function || fileOf(*subroutine) != identity.file)
            continue;
        if (identity.kind == Subject::Kind::Subroutine)
            return Subject(*subroutine);
        // By kind, too: a loop and its body may begin on one line.
        for (Tessel::TesselBase& node : Tessel::Service::Preorder(*subroutine))
            if (auto* statement = dynamic_cast<StatementBase*>(&node))
                if (const Subject subject(*statement);
                    subject.getKind() == identity.kind && static_cast<int>(subject.getLine()) == identity.line)
                    return subject;
        return Subject(*subroutine);
    }
    return Subject(m_program);
}

Subject SubjectFinder::subjectAt(Tessel::TesselBase& node, Subject::Kind atLine) {
    for (Tessel::TesselBase* around = &node; around != nullptr; around = around->getParent()) {
        if (auto* statement = dynamic_cast<StatementBase*>(around)) {
            if (atLine == Subject::Kind::Statement)
                return Subject(*statement);
            if (StatementBase* found = enclosing(*statement, atLine))
                return Subject(*found);
        }
        auto* subroutine = dynamic_cast<SubroutineDeclaration*>(around);
        if (subroutine != nullptr && subroutine->hasImplementation())
            return Subject(*subroutine);
    }
    return {};
}

Subject SubjectFinder::findAround(const QString& file, int line) const {
    const auto wanted = static_cast<std::uint32_t>(line);
    for (SubroutineDeclaration* subroutine : m_subroutines) {
        if (fileOf(*subroutine) != file || !subroutine->getSourceRange().containsLine(wanted))
            continue;
        Subject innermost(*subroutine);
        for (Tessel::TesselBase& node : Tessel::Service::Preorder(*subroutine))
            if (auto* loop = dynamic_cast<Tessel::LoopStatement*>(&node))
                if (loop->getSourceRange().containsLine(wanted))
                    innermost = Subject(*loop);
        return innermost;
    }
    return {};
}

} // namespace Kova::Shell
