// SPDX-License-Identifier: MIT
#include "shell/program/Subject.h"

#include "environment/tessel/BlockStatement.h"
#include "environment/tessel/LoopStatement.h"
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/SourceFile.h"
#include "environment/tessel/SubroutineDeclaration.h"

namespace Kova::Shell {

namespace {

Subject::Kind kindOf(const Tessel::StatementBase& statement) {
    if (dynamic_cast<const Tessel::LoopStatement*>(&statement) != nullptr)
        return Subject::Kind::Loop;
    if (dynamic_cast<const Tessel::BlockStatement*>(&statement) != nullptr)
        return Subject::Kind::Block;
    return Subject::Kind::Statement;
}

QString wordFor(Subject::Kind kind) {
    switch (kind) {
    case Subject::Kind::Loop:
        return "loop";
    case Subject::Kind::Block:
        return "block";
    case Subject::Kind::None:
    case Subject::Kind::Program:
    case Subject::Kind::Subroutine:
    case Subject::Kind::Statement:
        break;
    }
    return "statement";
}

} // namespace

Subject::Subject(Tessel::ProgramUnit& program) : m_kind(Kind::Program), m_node(&program) {}

Subject::Subject(Tessel::SubroutineDeclaration& subroutine) : m_kind(Kind::Subroutine), m_node(&subroutine) {}

Subject::Subject(Tessel::StatementBase& statement) : m_kind(kindOf(statement)), m_node(&statement) {}

Tessel::ProgramUnit* Subject::getProgram() const {
    return dynamic_cast<Tessel::ProgramUnit*>(m_node);
}

Tessel::SubroutineDeclaration* Subject::getSubroutine() const {
    for (Tessel::TesselBase* node = m_node; node != nullptr; node = node->getParent())
        if (auto* subroutine = dynamic_cast<Tessel::SubroutineDeclaration*>(node))
            return subroutine;
    return nullptr;
}

Tessel::StatementBase* Subject::getStatement() const {
    return dynamic_cast<Tessel::StatementBase*>(m_node);
}

QString Subject::getTitle() const {
    if (m_kind == Kind::None)
        return {};
    if (m_kind == Kind::Program)
        return "program";
    const Tessel::SubroutineDeclaration* subroutine = getSubroutine();
    const QString name = subroutine != nullptr ? QString::fromStdString(subroutine->getName()) : QString();
    if (m_kind == Kind::Subroutine)
        return "subroutine " + name;
    return QString("%1 at line %2 in %3").arg(wordFor(m_kind)).arg(getLine()).arg(name);
}

QString Subject::getFile() const {
    if (m_node == nullptr)
        return {};
    if (const Tessel::SourceFile* file = m_node->getSourceRange().file)
        return QString::fromStdString(file->getPath());
    const Tessel::TranslationUnit* unit = m_node->findTranslationUnit();
    if (const Tessel::ProgramUnit* program = getProgram())
        unit = program->getTranslationUnit(0);
    return unit != nullptr ? QString::fromStdString(unit->getPath()) : QString();
}

bool Subject::holds(const Tessel::TesselBase& node) const {
    for (const Tessel::TesselBase* around = &node; around != nullptr; around = around->getParent())
        if (around == m_node)
            return true;
    return false;
}

std::uint32_t Subject::getLine() const {
    return m_node != nullptr && m_kind != Kind::Program ? m_node->getSourceRange().beginLine : 0;
}

} // namespace Kova::Shell
