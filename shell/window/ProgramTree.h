// SPDX-License-Identifier: MIT
#pragma once

#include "shell/window/ProgramTreeModel.h"

#include <QTreeView>

namespace Kova::Shell {

class OpenedProgram;

/// The tree from which a person picks what to look at.
class ProgramTree : public QTreeView {
    Q_OBJECT

public:
    explicit ProgramTree(QWidget* parent = nullptr);

    /// Shows another program, with its files open. It must live until the next call or forgetProgram().
    void setProgram(const OpenedProgram& program);
    void forgetProgram();
    /// Whether blocks have rows, too; they have none at first.
    void setShowsBlocks(bool shows);

    /// Makes the subject's row the current one, or that of what is around it, without telling that it was picked.
    void showSubject(const Subject& subject);

    [[nodiscard]] const ProgramTreeModel& getModel() const { return *m_model; }

Q_SIGNALS:
    /// The user made another row the current one.
    void subjectPicked(const Kova::Shell::Subject& subject);
    /// The user double-clicked a row.
    void subjectOpened(const Kova::Shell::Subject& subject);

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    [[nodiscard]] QModelIndex rowAround(const Subject& subject) const;

    ProgramTreeModel* m_model;
    const OpenedProgram* m_program = nullptr;
    bool m_showsBlocks = false;
    bool m_silent = false;
};

} // namespace Kova::Shell
