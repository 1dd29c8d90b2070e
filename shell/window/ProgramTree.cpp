// SPDX-License-Identifier: MIT
#include "shell/window/ProgramTree.h"

#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/StatementBase.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "shell/program/OpenedProgram.h"
#include "shell/program/ProgramOutline.h"

#include <QHeaderView>
#include <QScopedValueRollback>

namespace Kova::Shell {

ProgramTree::ProgramTree(QWidget* parent) : QTreeView(parent), m_model(new ProgramTreeModel(this)) {
    setModel(m_model);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(ProgramTreeModel::NameColumn, QHeaderView::Stretch);
    header()->setSectionResizeMode(ProgramTreeModel::LinesColumn, QHeaderView::ResizeToContents);
    connect(this, &QTreeView::doubleClicked, this, [this](const QModelIndex& index) {
        if (const Subject subject = m_model->getSubject(index); subject.getKind() != Subject::Kind::None)
            Q_EMIT subjectOpened(subject);
    });
}

void ProgramTree::setProgram(const OpenedProgram& program) {
    const QScopedValueRollback<bool> silence(m_silent, true);
    m_program = &program;
    m_model->setProgram(ProgramOutline(program), &program.getUnit(), m_showsBlocks);
    expandToDepth(0);
}

void ProgramTree::forgetProgram() {
    const QScopedValueRollback<bool> silence(m_silent, true);
    m_program = nullptr;
    m_model->setProgram(ProgramOutline(), nullptr);
}

void ProgramTree::setShowsBlocks(bool shows) {
    if (shows == m_showsBlocks)
        return;
    m_showsBlocks = shows;
    if (m_program != nullptr)
        setProgram(*m_program);
}

void ProgramTree::showSubject(const Subject& subject) {
    const QScopedValueRollback<bool> silence(m_silent, true);
    const QModelIndex row = rowAround(subject);
    if (row != currentIndex().siblingAtColumn(ProgramTreeModel::NameColumn))
        setCurrentIndex(row);
}

QModelIndex ProgramTree::rowAround(const Subject& subject) const {
    QModelIndex row = m_model->findIndex(subject);
    for (Tessel::TesselBase* node = subject.getNode(); node != nullptr && !row.isValid(); node = node->getParent()) {
        if (auto* statement = dynamic_cast<Tessel::StatementBase*>(node))
            row = m_model->findIndex(Subject(*statement));
        else if (auto* subroutine = dynamic_cast<Tessel::SubroutineDeclaration*>(node))
            row = m_model->findIndex(Subject(*subroutine));
    }
    return row;
}

void ProgramTree::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTreeView::currentChanged(current, previous);
    if (!m_silent && current.isValid())
        Q_EMIT subjectPicked(m_model->getSubject(current));
}

} // namespace Kova::Shell
